#include "migration/jpeg/JPEGImporter.h"

#include "migration/netpbm/NetPBMImporter.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iomanip>
#include <sstream>

namespace VORN::Migration {
namespace {

std::string complaintAbout(const Bytes& file) {
    return complaintOf([&] { imported<JPEGImporter>(file); });
}

// An independent decoder rounds colours where this one truncates them, so that samples differ by 1;
// where its inverse DCT rounds a half the other way, by 2.
TEST(JPEGImporter, DecodesAsAnIndependentDecoderDoes) {
    const std::pair<std::string, std::string> kFixtures[] = {
        {"rgb444", "rgb444.ppm"},         {"rgb444-progressive", "rgb444.ppm"},
        {"rgb422", "rgb422.ppm"},         {"rgb440", "rgb440.ppm"},
        {"rgb420", "rgb420.ppm"},         {"rgb420-progressive", "rgb420.ppm"},
        {"rgb411", "rgb411.ppm"},         {"grey", "grey.pgm"},
        {"grey-progressive", "grey.pgm"}, {"restart", "rgb444.ppm"},
        {"quality1", "quality1.ppm"},     {"quality100", "quality100.ppm"},
        {"rgb420-3x5", "rgb420-3x5.ppm"}, {"rgb420-1x1", "rgb420-1x1.ppm"},
        {"rgb-4x2", "rgb-4x2.ppm"},       {"rgb-2x4", "rgb-2x4.ppm"},
        {"grey-reordered", "grey.pgm"},   {"grey-refined", "grey-refined.pgm"},
        {"edge-4x3", "edge-4x3.ppm"},
    };
    for (const auto& [name, original] : kFixtures) {
        SCOPED_TRACE(name);
        const Picture picture = imported<JPEGImporter>(fixture("jpeg/" + name + ".jpg"));
        const Picture expected = imported<NetPBMImporter>(fixture("jpeg/" + original));
        for (const std::string& key : expected.metadata.keys())
            EXPECT_EQ(picture.metadata.get(key), expected.metadata.get(key)) << key;
        ASSERT_EQ(picture.samples.size(), expected.samples.size());
        int total = 0;
        for (std::size_t i = 0; i < expected.samples.size(); ++i) {
            const int difference = std::abs(picture.samples[i] - expected.samples[i]);
            ASSERT_LE(difference, 2) << "at " << i;
            total += difference;
        }
        EXPECT_LT(total, (original.ends_with("pgm") ? 0.01 : 0.9) *
                             static_cast<double>(expected.samples.size()));
    }
}

/// The place of the first byte behind the first marker with this code.
std::ptrdiff_t behindMarker(const Bytes& file, unsigned code) {
    for (std::size_t i = 0; i + 1 < file.size(); ++i)
        if (file[i] == 0xFF && file[i + 1] == code)
            return static_cast<std::ptrdiff_t>(i) + 2;
    throw NotFoundException<unsigned>{kNoOrigin, code, "the markers"};
}

TEST(JPEGImporter, NamesWhatIsWrong) {
    const Bytes table = fixture("jpeg/complaints.txt");
    std::istringstream lines{std::string{table.begin(), table.end()}};
    unsigned cases = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('#'))
            continue;
        std::istringstream fields{line};
        std::string name, complaint;
        unsigned marker = 0;
        std::ptrdiff_t offset = 0;
        fields >> name >> std::hex >> marker >> std::dec >> offset >> std::quoted(complaint);
        Bytes file = fixture("jpeg/" + name + ".jpg");
        auto at = file.begin() + behindMarker(file, marker) + offset;
        const bool isInsertion = (fields >> std::ws).peek() == '+' && fields.get() != 0;
        for (unsigned byte = 0; fields >> std::hex >> byte; ++at)
            if (isInsertion)
                at = file.insert(at, static_cast<std::uint8_t>(byte));
            else
                *at = static_cast<std::uint8_t>(byte);
        EXPECT_EQ(complaintAbout(file), complaint) << line;
        ++cases;
    }
    EXPECT_EQ(cases, 72U);
    // A segment may be the last thing in a file.
    EXPECT_EQ(complaintAbout({0xFF, 0xD8, 0xFF, 0xDD, 0, 5, 0, 0, 0}),
              "jpeg : Define restart interval segment larger than expected. ");
}

} // namespace
} // namespace VORN::Migration
