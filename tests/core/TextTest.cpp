#include "core/Conversion.h"
#include "core/TextWriter.h"
#include "tests/Bytes.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

namespace VORN::Text {
namespace {

TEST(Conversion, TakesWholeUnsignedNumbersOnly) {
    EXPECT_EQ(toUnsigned("0"), 0U);
    EXPECT_EQ(toUnsigned("007"), 7U);
    EXPECT_EQ(toUnsigned("4294967295"), 4294967295U);
    for (const char* text : {"", "4294967296", "-1", "+1", " 1", "1 ", "1x", "0x1", "1.0"})
        EXPECT_EQ(complaintOf([&] { toUnsigned(text); }),
                  std::string{"Failed to convert \""} + text + "\" to unsigned int.");
}

TEST(Conversion, TakesWholeFiniteDecimalsOnly) {
    const std::pair<const char*, float> kCases[] = {
        {"1", 1},      {"-0.5", -0.5F},   {"+.25", 0.25F}, {"2.", 2},
        {"1e3", 1000}, {"1.5E-1", 0.15F}, {"1e-99", 0.F},  {"16777217", 16777216.0F}};
    for (const auto& [text, value] : kCases)
        EXPECT_EQ(toFloat(text), value) << text;
    for (const char* text : {"", ".", "e1", "1e", "1e+", "nan", "inf", "1e39", "0x1p3", "1,5", "1 ",
                             " 1", "1.2.3", "--1"})
        EXPECT_EQ(complaintOf([&] { toFloat(text); }),
                  std::string{"Failed to convert \""} + text + "\" to float.");
}

TEST(Conversion, WritesSixSignificantDigits) {
    const std::pair<float, const char*> kCases[] = {
        {1, "1"},         {0.996078431373F, "0.996078"}, {0, "0"},
        {0.5F, "0.5"},    {1234567, "1.23457e+06"},      {1e-5F, "1e-05"},
        {-0.25F, "-0.25"}};
    for (const auto& [value, text] : kCases)
        EXPECT_EQ(toText(value), text);
}

std::string paragraphOf(const std::string& text, std::size_t column, std::size_t indent,
                        std::size_t width) {
    const Bytes bytes = written([&](WriteStream& out) {
        TextWriter writer{out};
        writer.paragraph(text, column, indent, width);
        writer.flush();
    });
    return {bytes.begin(), bytes.end()};
}

TEST(TextWriter, WrapsAtBlanks) {
    const struct {
        const char* text;
        std::size_t column, indent;
        const char* written;
    } kCases[] = {
        {"aaa bbb ccc", 0, 0, "aaa bbb\nccc"},            // 10 characters fit, 11 do not
        {"aaa bbb cc", 0, 0, "aaa bbb cc"},               // exactly the width
        {"aaa bbb", 5, 2, "aaa\n  bbb"},                  // the first line starts further right
        {"abcdefghijklm no", 0, 1, "abcdefghijklm\n no"}, // a longer word is not split
        {"no abcdefghijklm", 0, 1, "no\n abcdefghijklm"},
        {"aaaa bbbb ccc ddd ee", 0, 0, "aaaa bbbb\nccc ddd ee"}, // also on further lines
        {"", 0, 4, ""},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(paragraphOf(c.text, c.column, c.indent, 10), c.written);
}

} // namespace
} // namespace VORN::Text
