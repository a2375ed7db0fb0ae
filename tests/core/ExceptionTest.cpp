#include "core/CppStream.h"
#include "core/ExceptionWriter.h"
#include "core/TypeName.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

namespace VORN {
namespace {

TEST(Exception, PrintsClassAndMessage) {
    const Origin known{"file.cpp", 12};
    const Origin none = kNoOrigin;
    const auto impaired = [&](std::int32_t state, std::unique_ptr<Exception> previous) {
        return ArchiveImpairedException{none, state, std::move(previous)};
    };
    const std::pair<std::unique_ptr<Exception>, const char*> kCases[] = {
        {StreamException{none, "Text. "}.clone(), "StreamException: Text. "},
        {IteratorException{known}.clone(), "IteratorException (file.cpp, 12 ): Invalid iterator. "},
        {CppException{none, "what", "class std::bad_alloc"}.clone(),
         "CppException: Wrapped C++ exception (class std::bad_alloc): what"},
        {SupportException{none, "x"}.clone(), "SupportException: No support for x. "},
        {SignalSizeException{none}.clone(), "SignalSizeException: Missmatching signal size. "},
        {Migration::StreamException{none}.clone(),
         "Migration::StreamException: Migrator was not associated with a stream. "},
        {UnexpectedEndException{none, "x"}.clone(),
         "UnexpectedEndException: Unexpected end, expected x."},
        {Text::ConversionException{none, "a", "float"}.clone(),
         "Text::ConversionException: Failed to convert \"a\" to float."},
        {ParseException{none, "a", "b"}.clone(),
         "ParseException: String \"a\" could not be parsed into \"b\". "},
        {UnexpectedValueException{none, "a", "b"}.clone(),
         "UnexpectedValueException: a is not b. "},
        {UninitializedException{none, "x"}.clone(), "UninitializedException: x not initialized. "},
        {AccessException{none, "a", "b"}.clone(),
         "AccessException: Failed to access a because b. "},
        {AcquireException{none, "x"}.clone(), "AcquireException: Failed to acquire x. "},
        {ReleaseException{none, "x"}.clone(), "ReleaseException: Failed to acquire x. "},
        {AllocateException{none, "x"}.clone(), "AllocateException: Failed to allocate x. "},
        {Migration::FormatException{none, "png", "x"}.clone(),
         "Migration::FormatException: png : x"},
        {Migration::InsufficientMetaException{none, "x"}.clone(),
         "Migration::InsufficientMetaException: x"},
        {NotFoundException<std::string>{none, "a", "b"}.clone(),
         "NotFoundException<std::string>: Could not find a in b. "},
        {NotFoundException<unsigned>{none, 7, "b"}.clone(),
         "NotFoundException<unsigned int>: Could not find 7 in b. "},
        {BoundException<unsigned char>{none, 'A', 'B'}.clone(),
         "BoundException<unsigned char>: Value (A) out of bound (B). "},
        {BoundException<int>{none, 0, -3}.clone(),
         "BoundException<int>: Value (0) out of bound (-3). "},
        {BoundException<std::uint64_t>{none, 2, 1}.clone(),
         "BoundException<unsigned long>: Value (2) out of bound (1). "},
        {SpaceException<unsigned>{none, 2, 1}.clone(),
         "SpaceException<unsigned int>: More space requested (2) than what is available (1). "},
        {Match<char>::UnexpectedNumberOfMatches{none, 1, 2}.clone(),
         "Match<char>::UnexpectedNumberOfMatches: Got 1 matches but expected 2 matches. "},
        {impaired(0, nullptr).clone(),
         "ArchiveImpairedException: Archive impaired, modification prohibited. "},
        {impaired(7, IteratorException{none}.clone()).clone(),
         "ArchiveImpairedException: Archive impaired, end of index CRC_MISSMATCH, modification "
         "prohibited. \n  Previous exception VORN class VORN::IteratorException: Invalid iterator. "
         "\n"},
        {impaired(8, nullptr).clone(), "ArchiveImpairedException: Archive impaired, end of index "
                                       "not recognized, modification prohibited. "},
    };
    for (const auto& [exception, printed] : kCases)
        EXPECT_EQ(printedForm(*exception, ""), std::string{"VORN class VORN::"} + printed + '\n');
    EXPECT_EQ(printedForm(IteratorException{kNoOrigin}, "loading"),
              "context: loading> VORN class VORN::IteratorException: Invalid iterator. \n");
    EXPECT_EQ(className(typeid(std::bad_alloc)), "class std::bad_alloc");
}

TEST(ExceptionWriter, CountsWhatItWrites) {
    std::ostringstream text;
    CppOutStream out{text};
    ExceptionWriter writer{out};
    writer.handle(IteratorException{kNoOrigin}, "");
    writer.handle(SignalSizeException{kNoOrigin}, "x");
    EXPECT_EQ(writer.count(), 2U);
    EXPECT_EQ(text.str(), "VORN class VORN::IteratorException: Invalid iterator. \n"
                          "context: x> VORN class VORN::SignalSizeException: Missmatching signal "
                          "size. \n");
}

} // namespace
} // namespace VORN
