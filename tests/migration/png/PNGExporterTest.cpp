#include "migration/png/PNGExporter.h"
#include "migration/png/PNGImporter.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

constexpr const char* kGrey = "INTENSITY";

TEST(PNGExporter, WritesTheFileByteForByte) {
    IncrementalBuffer file;
    exportTo<PNGExporter>(file, {1, 2, 3, 4, 5, 6}, described(3, 2, 1, kBytes, kGrey));
    EXPECT_EQ(bytesOf(file), fixture("png/stored-3x2.png"));
}

TEST(PNGExporter, WritesWhatTheImporterReads) {
    const std::pair<ImageMetadata, std::uint8_t> kCases[] = {
        {described(70001, 3, 1, kBytes, kGrey), 0},
        {described(5, 7, 1, kWords, kGrey), 0},
        {described(300, 300, 3), 2},
        {described(5, 7, 3, kWords), 2},
        {described(5, 7, 4), 6},
        {described(0, 7, 3), 2},
    };
    for (const auto& [metadata, colorType] : kCases) {
        SCOPED_TRACE(testing::Message() << metadata.width << " x " << metadata.height);
        Bytes samples(std::size_t{metadata.width} * metadata.height * metadata.channels *
                      metadata.type.bits / 8);
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = static_cast<std::uint8_t>(i * i >> 5);
        IncrementalBuffer file;
        exportTo<PNGExporter>(file, samples, textsOf(metadata));
        EXPECT_EQ(file.data()[25], colorType);
        const Picture again = imported<PNGImporter>(file.data());
        EXPECT_EQ(again.samples, samples);
        EXPECT_EQ(again.metadata.width, metadata.width);
        EXPECT_EQ(again.metadata.height, metadata.height);
    }
}

TEST(PNGExporter, SaysWhatItCannotWrite) {
    const std::string depth = "No support for combination of bith depth and color type. ";
    const auto withBits = [](ImageMetadata metadata, std::uint32_t bits) {
        metadata.type.bits = bits;
        return metadata;
    };
    const std::pair<ImageMetadata, std::string> kCases[] = {
        {described(4, 1, 4, kBytes, "RGBA", 0, 32),
         "No support for non-zero image line alignment. "},
        {described(4, 1, 4, kBytes, "RGBA", 8), "No support for non-zero image pixel alignment. "},
        {described(1, 1, 3, kBytes, "BGRA"), "No support for BGRA. "},
        {described(1, 1, 2), "No support for RGBA with 2 channels. "},
        {described(1, 1, 1), "No support for RGBA with 1 channels. "},
        {described(1, 1, 2, kBytes, kGrey), "No support for INTENSITY with 2 channels. "},
        {withBits(described(1, 1, 1, kBytes, kGrey), 3), depth},
        {withBits(described(1, 1, 3), 3), ""},
        {withBits(described(0, 1, 3), 259), ""}, // the header keeps the low byte
        {withBits(described(~0U, 1, 3), ~0U),
         "Value (2305843009213693952) out of bound (4294967295). "},
        {described(3, 2, 3), "More space requested (18) than what is available (16). "},
        {described(0x10000, 0x10000, 1, kBytes, kGrey),
         "Value (4295032832) out of bound (4294967295). "},
        {withBits(described(~0U, ~0U, 4), 255), "Value (547608330113) out of bound (4294967295). "},
    };
    for (const auto& [metadata, complaint] : kCases) {
        IncrementalBuffer file;
        EXPECT_EQ(
            complaintOf([&, &texts = metadata] { exportTo<PNGExporter>(file, Bytes(16), texts); }),
            complaint);
        EXPECT_EQ(file.size() == 8, !complaint.empty()); // the signature alone
    }
    EXPECT_EQ(
        complaintOf([] { PNGExporter{}.exportImage(BorrowConstBuffer{{}}, ImageMetadata{}); }),
        "Migrator was not associated with a stream. ");
}

} // namespace
} // namespace VORN::Migration
