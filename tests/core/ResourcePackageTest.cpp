#include "core/ResourcePackage.h"
#include "core/Crc32.h"
#include "core/Serialization.h"
#include "tests/Bytes.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace VORN {
namespace {

TEST(ResourcePackage, HoldsThePalettesInTheirPlaces) {
    const std::string kContents = "palettes/artkal.txt 664 4160 89\n"
                                  "palettes/artkal_mini.txt 4824 4034 88\n"
                                  "palettes/hama.txt 8858 1478 32\n"
                                  "palettes/hama_mini.txt 10336 1478 32\n"
                                  "palettes/ikea.txt 11814 716 10\n"
                                  "palettes/nabbi.txt 12530 1386 30\n"
                                  "palettes/kavrin.txt 13916 2044 45\n"
                                  "palettes/kavrin_mini.txt 15960 756 17\n";
    std::ostringstream contents; // name, offset, size and lines
    for (const auto& [name, bytes] : ResourcePackage::builtin().entries()) {
        const auto lines = std::ranges::count(bytes, '\n');
        EXPECT_EQ(std::ranges::count(bytes, '\r'), lines);
        contents << name << ' ' << bytes.data() - builtinPackage().data() << ' ' << bytes.size()
                 << ' ' << lines << '\n';
    }
    EXPECT_EQ(contents.str(), kContents);
    EXPECT_EQ(builtinPackage().size(), 16716U);
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

TEST(ResourcePackage, KeepsEveryResourceInside) {
    // The index takes 49 bytes and its checksum 4; two more follow.
    const std::string outside =
        "Archive impaired, end of index INCOMPLETE_HEADER, modification prohibited. ";
    const std::tuple<const char*, const char*, std::string> kCases[] = {
        {"53", "2", ""},      {"55", "0", ""},      {"53", "3", outside},
        {"56", "0", outside}, {"99", "1", outside}, {"01", "56", outside},
    };
    for (const auto& [offset, size, complaint] : kCases) {
        Bytes package = written([&, &o = offset, &s = size](WriteStream& stream) {
            Serializer out{stream};
            out.put(ResourcePackage::kLeader);
            out.put(1U);
            out.put(std::string{"name"});
            out.put(std::map<std::string, std::string>{{"offset", o}, {"size", s}});
        });
        Crc32 crc;
        crc.update(package);
        append(package, written([&](WriteStream& out) { Serializer{out}.put(crc.value()); }));
        append(package, bytesOf("ab"));
        EXPECT_EQ(complaintOf([&] { ResourcePackage{package}; }), complaint)
            << offset << ' ' << size << ' ' << package.size();
    }
}

} // namespace
} // namespace VORN
