#include "beads/Pattern.h"
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
        const char* layers;
        const char* written; // nothing where it is the file itself
    } kCases[] = {
        {"square\n\nabc\ndef\n\n", "3x2 abcdef\n", nullptr},
        {"square\n\na\n\nbc\n\n", "1x1 a\n2x1 bc\n", nullptr},
        {"hex\n\na b \n c d\n\n", "2x2 a b  c d\n", nullptr},
        {"hex\n\na b\n c \n\n", "1x2 a b c \n", "hex\n\na \nb \nc \n\n"},
        {"hex\n\na\nb\n\n", "0x2 ab\n", "hex\n\nab\n\n"},
        {"circle\n\na\nbcdefg\n\n", "2x2 abcdefg\n", nullptr},
        {"circle\n\na\n\n", "1x1 a\n", nullptr},
        {"circle\n\nxyz\nbcdefg\n\n", "2x2 xyzbcdefg\n", "circle\n\nx\nyzbcde\nfg\n\n"},
        // The first line is a row when it names no style.
        {"Square\nabcdef\n", "6x2 Squareabcdef\n", "square\n\nSquare\nabcdef\n\n"},
        // Line ends of all kinds, blank lines in between, no line end at the end.
        {"square\r\n\r\n\r\nab\r\ncd\r\n\r\n\r\nef", "2x2 abcd\n2x1 ef\n",
         "square\n\nab\ncd\n\nef\n\n"},
        {"square\r\rab\rcd\r", "2x2 abcd\n", "square\n\nab\ncd\n\n"},
        {"", "", "square\n\n"},
    };
    for (const auto& c : kCases) {
        Pattern pattern;
        EXPECT_TRUE(readText(pattern, c.file));
        EXPECT_EQ(layersOf(pattern), c.layers) << c.file;
        EXPECT_EQ(writtenText(pattern), c.written != nullptr ? c.written : c.file);
    }
}

TEST(Pattern, NamesTheLineOfTheWrongLength) {
    const struct {
        const char* file;
        int line;
        std::size_t layers;
    } kCases[] = {
        {"square\n\nabc\nde\n", 4, 0},
        {"square\r\n\r\nabc\r\nde\r\n", 4, 0},
        {"abc\nde\n", 2, 0},
        {"hex\n\na \n\nb c \n d\n", 6, 1},
        {"circle\n\na\nbcdef\n\n", 4, 0},
    };
    for (const auto& c : kCases) {
        Pattern pattern;
        testing::internal::CaptureStderr();
        EXPECT_FALSE(readText(pattern, c.file));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "line " + std::to_string(c.line) + ": Missmatching line length. \n");
        EXPECT_EQ(pattern.layerCount(), c.layers);
    }
}

} // namespace
} // namespace VORN
