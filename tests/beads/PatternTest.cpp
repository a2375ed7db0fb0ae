#include "beads/Pattern.h"
#include "tests/Complaint.h"
#include "tests/beads/TextFiles.h"

#include <gtest/gtest.h>

namespace VORN {
namespace {

/// A line for each layer: its size and its content.
std::string layersOf(const Pattern& pattern) {
    std::string text;
    for (std::size_t i = 0; i < pattern.layerCount(); ++i) {
        const auto& [content, size] = pattern.layer(i);
        text += std::to_string(size[0]) + 'x' + std::to_string(size[1]) + ' ' + content + '\n';
    }
    return text;
}

TEST(Pattern, ReadsLayersOfEachStyle) {
    const struct {
        const char* file;
        PatternStyle style;
        const char* layers;
        const char* written; // "" where it is the file itself
    } kCases[] = {
        {"square\n\nabc\ndef\n\n", PatternStyle::Square, "3x2 abcdef\n", ""},
        {"square\n\na\n\nbc\n\n", PatternStyle::Square, "1x1 a\n2x1 bc\n", ""},
        {"hex\n\na b \n c d\n\n", PatternStyle::Hex, "2x2 a b  c d\n", ""},
        {"hex\n\na b\n c \n\n", PatternStyle::Hex, "1x2 a b c \n", "hex\n\na \nb \nc \n\n"},
        {"hex\n\na\nb\n\n", PatternStyle::Hex, "0x2 ab\n", "hex\n\nab\n\n"},
        {"circle\n\na\nbcdefg\n\n", PatternStyle::Circle, "2x2 abcdefg\n", ""},
        {"circle\n\na\n\n", PatternStyle::Circle, "1x1 a\n", ""},
        {"circle\n\nxyz\nbcdefg\n\n", PatternStyle::Circle, "2x2 xyzbcdefg\n",
         "circle\n\nx\nyzbcde\nfg\n\n"},
        // The first line is a row when it names no style.
        {"Square\nabcdef\n", PatternStyle::Square, "6x2 Squareabcdef\n",
         "square\n\nSquare\nabcdef\n\n"},
        // Line ends of all kinds, blank lines in between, no line end at the end.
        {"square\r\n\r\n\r\nab\r\ncd\r\n\r\n\r\nef", PatternStyle::Square, "2x2 abcd\n2x1 ef\n",
         "square\n\nab\ncd\n\nef\n\n"},
        {"square\r\rab\rcd\r", PatternStyle::Square, "2x2 abcd\n", "square\n\nab\ncd\n\n"},
        {"", PatternStyle::Square, "", "square\n\n"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.file);
        Pattern pattern;
        EXPECT_TRUE(readText(pattern, c.file));
        EXPECT_EQ(pattern.style, c.style);
        EXPECT_EQ(layersOf(pattern), c.layers);
        EXPECT_EQ(writtenText(pattern), *c.written != '\0' ? c.written : c.file);
    }
}

TEST(Pattern, NamesTheLineOfTheWrongLength) {
    const struct {
        const char* file;
        const char* message;
        std::size_t layers;
    } kCases[] = {
        {"square\n\nabc\nde\n", "line 4: Missmatching line length. \n", 0},
        {"square\r\n\r\nabc\r\nde\r\n", "line 4: Missmatching line length. \n", 0},
        {"abc\nde\n", "line 2: Missmatching line length. \n", 0},
        {"hex\n\na \n\nb c \n d\n", "line 6: Missmatching line length. \n", 1},
        {"circle\n\na\nbcdef\n\n", "line 4: Missmatching line length. \n", 0},
    };
    for (const auto& c : kCases) {
        Pattern pattern;
        testing::internal::CaptureStderr();
        EXPECT_FALSE(readText(pattern, c.file));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), c.message);
        EXPECT_EQ(pattern.layerCount(), c.layers);
    }
}

TEST(Pattern, FillsLayers) {
    const struct {
        PatternStyle style;
        Tuple<2, unsigned> size;
        const char* written;
    } kCases[] = {
        {PatternStyle::Square, {3U, 2U}, "square\n\naaa\naaa\n\n"},
        {PatternStyle::Hex, {2U, 3U}, "hex\n\na a \n a a\na a \n\n"},
        {PatternStyle::Circle, {3U, 3U}, "circle\n\na\naaaaaa\naaaaaaaaaaaa\n\n"},
        {PatternStyle::Circle, {0U, 0U}, "circle\n\n\n"},
        {PatternStyle::Hex, {0U, 5U}, "hex\n\n\n"},
    };
    for (const auto& c : kCases) {
        Pattern pattern;
        pattern.style = c.style;
        EXPECT_EQ(pattern.AddFilledLayer(c.size, 'a'), 0U);
        EXPECT_EQ(writtenText(pattern), c.written);
    }
    Pattern huge;
    huge.style = PatternStyle::Circle;
    EXPECT_EQ(complaintOf([&] {
                  huge.AddFilledLayer({~0U, ~0U}, 'a');
              }),
              "Failed to allocate pattern layer. ");
}

TEST(Pattern, SharesSquareLayersAsSignals) {
    Pattern pattern;
    readText(pattern, "square\n\nabc\ndef\n");
    Signal<2, char> signal;
    pattern.GetLayer(0, signal);
    EXPECT_EQ((signal[{2U, 0U}]), 'c');
    EXPECT_EQ((signal[{0U, 1U}]), 'd');
    signal.Resize({2U, 1U});
    pattern.SetLayer(0, signal);
    EXPECT_EQ(layersOf(pattern), "2x1 ab\n");
    EXPECT_THROW(pattern.GetLayer(1, signal), std::out_of_range);
    pattern.style = PatternStyle::Hex;
    EXPECT_EQ(complaintOf([&] { pattern.GetLayer(0, signal); }),
              "No support for layer content access for non-square pattern. ");
}

} // namespace
} // namespace VORN
