#include "beads/Palette.h"
#include "core/BufferStream.h"
#include "core/ResourcePackage.h"
#include "tests/Complaint.h"
#include "tests/beads/TextFiles.h"

#include <gtest/gtest.h>

namespace VORN {
namespace {

TEST(Palette, ReadsLinesOfSymbolAndFractions) {
    const std::pair<const char*, const char*> kCases[] = {
        {"", ""},
        {"a 1 0.5 0\n", "a 1 0.5 0\n"},
        {"b 1 0 0\r\na\t0 \t 1   0  \r\n\r\n\n", "a 0 1 0\nb 1 0 0\n"},
        {"Z 1 1 1\nZ 0 0 0\nZ .25 0.996078431373 1.", "Z 0.25 0.996078 1\n"},
        {"  1 0 0\n", "  1 0 0\n"},  // the symbol may be a blank
        {"a 1 0\r0\n", "a 1 0 0\n"}, // a lone CR separates
    };
    for (const auto& [file, written] : kCases) {
        Palette palette;
        EXPECT_TRUE(readText(palette, file));
        EXPECT_EQ(writtenText(palette), written) << file;
    }
}

TEST(Palette, RefusesOtherLines) {
    const auto entry = [](const std::string& line) {
        return "String \"" + line + "\" could not be parsed into \"palette entry\". ";
    };
    for (const char* line : {"a", "a ", "a 1 1", "a 1 1 1 1", "a1 1 1", "a 1 1 1x", "a -1 1 1",
                             "a 1e0 1 1", " ", "ab 1 1 1", "a 1,0 1 1"}) {
        Palette palette;
        EXPECT_EQ(complaintOf([&] { readText(palette, std::string{"b 1 1 1\n"} + line + "\r\n"); }),
                  entry(line));
    }
    for (const std::string& number :
         {std::string{"1.2.3"}, std::string{"."}, "1" + std::string(50, '0')}) {
        Palette palette;
        EXPECT_EQ(complaintOf([&] { readText(palette, "a 1 1 " + number); }),
                  "Failed to convert \"" + number + "\" to float.");
    }
}

TEST(Palette, ReadsEveryBuiltinOne) {
    for (const auto& entry : ResourcePackage::builtin().entries()) {
        Palette palette;
        BorrowConstBuffer buffer{entry.bytes};
        ConstBufferStream in{buffer};
        EXPECT_TRUE(palette.Read(in));
        // Colours beyond the symbols share "Z"; of each symbol one line remains.
        std::bitset<Palette::kSlots> symbols;
        for (std::size_t i = 0; i < entry.bytes.size(); ++i)
            if (i == 0 || entry.bytes[i - 1] == '\n')
                symbols.set(entry.bytes[i]);
        for (std::size_t slot = 0; slot < Palette::kSlots; ++slot)
            EXPECT_EQ(palette.Contains(static_cast<char>(slot)), symbols[slot]);
    }
}

} // namespace
} // namespace VORN
