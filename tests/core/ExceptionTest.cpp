#include "core/CppStream.h"
#include "core/ExceptionWriter.h"
#include "core/TypeName.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

namespace VORN {
namespace {

// What the program can throw stands in the transcripts and the tests of those who throw it.
TEST(Exception, PrintsClassAndMessage) {
    const Origin known{"file.cpp", 12};
    const Origin none = kNoOrigin;
    const std::pair<std::unique_ptr<Exception>, const char*> kCases[] = {
        {IteratorException{known}.clone(), "IteratorException (file.cpp, 12 ): Invalid iterator. "},
        {CppException{none, "what", className(typeid(std::bad_alloc))}.clone(),
         "CppException: Wrapped C++ exception (class std::bad_alloc): what"},
        {NotFoundException<std::string>{none, "a", "b"}.clone(),
         "NotFoundException<std::string>: Could not find a in b. "},
        {BoundException<unsigned char>{none, 'A', 'B'}.clone(),
         "BoundException<unsigned char>: Value (A) out of bound (B). "},
        {BoundException<std::uint64_t>{none, 2, 1}.clone(),
         "BoundException<unsigned long>: Value (2) out of bound (1). "},
        {ArchiveImpairedException{none, 7, IteratorException{none}.clone()}.clone(),
         "ArchiveImpairedException: Archive impaired, end of index CRC_MISSMATCH, modification "
         "prohibited. \n  Previous exception VORN class VORN::IteratorException: Invalid iterator. "
         "\n"},
        {ArchiveImpairedException{none, 8, nullptr}.clone(),
         "ArchiveImpairedException: Archive impaired, end of index not recognized, modification "
         "prohibited. "},
    };
    for (const auto& [exception, printed] : kCases)
        EXPECT_EQ(printedForm(*exception, ""), std::string{"VORN class VORN::"} + printed + '\n');
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
