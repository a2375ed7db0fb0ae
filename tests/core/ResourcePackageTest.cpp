#include "core/ResourcePackage.h"
#include "core/BuiltinPackage.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace VORN {
namespace {

TEST(ResourcePackage, HoldsThePalettesInTheirPlaces) {
    struct Case {
        const char* name;
        std::size_t offset;
        std::size_t size;
        std::ptrdiff_t lines;
    };
    constexpr Case kCases[] = {
        {"palettes/artkal.txt", 664, 4160, 89},   {"palettes/artkal_mini.txt", 4824, 4034, 88},
        {"palettes/hama.txt", 8858, 1478, 32},    {"palettes/hama_mini.txt", 10336, 1478, 32},
        {"palettes/ikea.txt", 11814, 716, 10},    {"palettes/nabbi.txt", 12530, 1386, 30},
        {"palettes/kavrin.txt", 13916, 2044, 45}, {"palettes/kavrin_mini.txt", 15960, 756, 17},
    };
    const std::span<const std::uint8_t> package = builtinPackage();
    ASSERT_EQ(package.size(), 16716U);
    const auto& entries = ResourcePackage::builtin().entries();
    ASSERT_EQ(entries.size(), std::size(kCases));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        SCOPED_TRACE(kCases[i].name);
        EXPECT_EQ(entries[i].name, kCases[i].name);
        EXPECT_EQ(entries[i].bytes.data() - package.data(),
                  static_cast<std::ptrdiff_t>(kCases[i].offset));
        EXPECT_EQ(entries[i].bytes.size(), kCases[i].size);
        EXPECT_EQ(std::ranges::count(entries[i].bytes, '\n'), kCases[i].lines);
        EXPECT_EQ(std::ranges::count(entries[i].bytes, '\r'), kCases[i].lines);
    }
}

TEST(ResourcePackage, OpensByTheWholeName) {
    const ResourcePackage& package = ResourcePackage::builtin();
    EXPECT_EQ(package.open("palettes/Hama.txt"), nullptr);
    EXPECT_EQ(package.open("hama.txt"), nullptr);
    const auto stream = package.open("palettes/ikea.txt");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(stream->size(), 716U);
    std::string start(9, ' ');
    stream->read({reinterpret_cast<std::uint8_t*>(start.data()), start.size()});
    EXPECT_EQ(start, "a 0 0 0\r\n");
}

TEST(ResourcePackage, RefusesWhatIsImpaired) {
    const std::span<const std::uint8_t> package = builtinPackage();
    std::vector<std::uint8_t> bytes{package.begin(), package.end()};
    bytes[40] ^= 1; // an attribute's name or value
    EXPECT_NE(complaintOf([&] { ResourcePackage{bytes}; }), "");
    bytes[40] ^= 1;
    bytes[0] = 'X';
    EXPECT_EQ(complaintOf([&] { ResourcePackage{bytes}; }),
              "Archive impaired, end of index INVALID_LEADER, modification prohibited. ");
}

} // namespace
} // namespace VORN
