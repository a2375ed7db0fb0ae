#include "core/CppOutStream.h"
#include "core/ExceptionWriter.h"
#include "core/TypeName.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

namespace VORN {
namespace {

TEST(Exception, PrintsClassAndMessage) {
    const Origin known{"file.cpp", 12};
    const auto impaired = [](std::int32_t state, std::unique_ptr<Exception> previous) {
        return ArchiveImpairedException{kNoOrigin, state, std::move(previous)};
    };
    const struct {
        std::unique_ptr<Exception> exception;
        const char* printed;
    } kCases[] = {
        {StreamException{kNoOrigin, "Text. "}.clone(), "VORN class VORN::StreamException: Text. "},
        {IteratorException{known}.clone(),
         "VORN class VORN::IteratorException (file.cpp, 12 ): Invalid iterator. "},
        {CppException{kNoOrigin, "what", "class std::bad_alloc"}.clone(),
         "VORN class VORN::CppException: Wrapped C++ exception (class std::bad_alloc): what"},
        {SupportException{kNoOrigin, "x"}.clone(),
         "VORN class VORN::SupportException: No support for x. "},
        {SignalSizeException{kNoOrigin}.clone(),
         "VORN class VORN::SignalSizeException: Missmatching signal size. "},
        {Migration::StreamException{kNoOrigin}.clone(),
         "VORN class VORN::Migration::StreamException: Migrator was not associated with a "
         "stream. "},
        {UnexpectedEndException{kNoOrigin, "x"}.clone(),
         "VORN class VORN::UnexpectedEndException: Unexpected end, expected x."},
        {Text::ConversionException{kNoOrigin, "a", "float"}.clone(),
         "VORN class VORN::Text::ConversionException: Failed to convert \"a\" to float."},
        {ParseException{kNoOrigin, "a", "b"}.clone(),
         "VORN class VORN::ParseException: String \"a\" could not be parsed into \"b\". "},
        {UnexpectedValueException{kNoOrigin, "a", "b"}.clone(),
         "VORN class VORN::UnexpectedValueException: a is not b. "},
        {UninitializedException{kNoOrigin, "x"}.clone(),
         "VORN class VORN::UninitializedException: x not initialized. "},
        {AccessException{kNoOrigin, "a", "b"}.clone(),
         "VORN class VORN::AccessException: Failed to access a because b. "},
        {AcquireException{kNoOrigin, "x"}.clone(),
         "VORN class VORN::AcquireException: Failed to acquire x. "},
        {ReleaseException{kNoOrigin, "x"}.clone(),
         "VORN class VORN::ReleaseException: Failed to acquire x. "},
        {AllocateException{kNoOrigin, "x"}.clone(),
         "VORN class VORN::AllocateException: Failed to allocate x. "},
        {Migration::FormatException{kNoOrigin, "png", "x"}.clone(),
         "VORN class VORN::Migration::FormatException: png : x"},
        {Migration::InsufficientMetaException{kNoOrigin, "x"}.clone(),
         "VORN class VORN::Migration::InsufficientMetaException: x"},
        {NotFoundException<std::string>{kNoOrigin, "a", "b"}.clone(),
         "VORN class VORN::NotFoundException<std::string>: Could not find a in b. "},
        {NotFoundException<unsigned>{kNoOrigin, 7, "b"}.clone(),
         "VORN class VORN::NotFoundException<unsigned int>: Could not find 7 in b. "},
        {BoundException<unsigned char>{kNoOrigin, 'A', 'B'}.clone(),
         "VORN class VORN::BoundException<unsigned char>: Value (A) out of bound (B). "},
        {BoundException<int>{kNoOrigin, 0, -3}.clone(),
         "VORN class VORN::BoundException<int>: Value (0) out of bound (-3). "},
        {SpaceException<unsigned>{kNoOrigin, 2, 1}.clone(),
         "VORN class VORN::SpaceException<unsigned int>: More space requested (2) than what is "
         "available (1). "},
        {Match<char>::UnexpectedNumberOfMatches{kNoOrigin, 1, 2}.clone(),
         "VORN class VORN::Match<char>::UnexpectedNumberOfMatches: Got 1 matches but expected 2 "
         "matches. "},
        {impaired(0, nullptr).clone(),
         "VORN class VORN::ArchiveImpairedException: Archive impaired, modification prohibited. "},
        {impaired(7, IteratorException{kNoOrigin}.clone()).clone(),
         "VORN class VORN::ArchiveImpairedException: Archive impaired, end of index "
         "CRC_MISSMATCH, modification prohibited. \n  Previous exception VORN class "
         "VORN::IteratorException: Invalid iterator. \n"},
        {impaired(8, nullptr).clone(),
         "VORN class VORN::ArchiveImpairedException: Archive impaired, end of index not "
         "recognized, modification prohibited. "},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(printedForm(*c.exception, ""), std::string{c.printed} + '\n');
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
