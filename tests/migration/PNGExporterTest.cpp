#include "migration/PNGExporter.h"
#include "core/BufferStream.h"
#include "migration/PNGImporter.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

ImageMetadata metadataOf(std::uint32_t width, std::uint32_t height, std::uint32_t channels,
                         ImageMetadata::Format format, std::uint32_t bits = 8) {
    ImageMetadata metadata;
    metadata.width = width;
    metadata.height = height;
    metadata.channels = channels;
    metadata.format = format;
    metadata.type.bits = bits;
    return metadata;
}

/// Writes the picture to `file`, whatever comes of it.
void exportTo(IncrementalBuffer& file, const Bytes& picture, const Metadata& metadata) {
    BufferStream stream{file};
    PNGExporter exporter;
    exporter.setStream(&stream);
    exporter.exportImage(BorrowConstBuffer{picture}, metadata);
}

constexpr auto kIntensity = ImageMetadata::Format::Intensity;
constexpr auto kRgba = ImageMetadata::Format::Rgba;
constexpr auto kBgra = ImageMetadata::Format::Bgra;

TEST(PNGExporter, WritesTheFileByteForByte) {
    IncrementalBuffer file;
    exportTo(file, {1, 2, 3, 4, 5, 6}, metadataOf(3, 2, 1, kIntensity));
    const Bytes expected = fixture("png/stored-3x2.png");
    EXPECT_EQ((Bytes{file.data().begin(), file.data().end()}), expected);
}

TEST(PNGExporter, WritesWhatTheImporterReads) {
    struct Case {
        ImageMetadata metadata;
        std::uint8_t colorType;
    };
    const Case kCases[] = {
        {metadataOf(70001, 3, 1, kIntensity), 0}, {metadataOf(5, 7, 1, kIntensity, 16), 0},
        {metadataOf(300, 300, 3, kRgba), 2},      {metadataOf(5, 7, 3, kRgba, 16), 2},
        {metadataOf(5, 7, 4, kRgba), 6},          {metadataOf(0, 7, 3, kRgba), 2},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << c.metadata.width << " x " << c.metadata.height);
        Bytes picture(std::size_t{c.metadata.width} * c.metadata.height * c.metadata.channels *
                      c.metadata.type.bits / 8);
        for (std::size_t i = 0; i < picture.size(); ++i)
            picture[i] = static_cast<std::uint8_t>(i * i >> 5);
        Metadata texts;
        texts.assign(c.metadata);
        IncrementalBuffer file;
        exportTo(file, picture, texts);
        EXPECT_EQ(file.data()[25], c.colorType);

        ConstBufferStream stream{file};
        PNGImporter importer;
        importer.setStream(&stream);
        IncrementalBuffer again;
        ImageMetadata metadata;
        importer.importImage(again, metadata);
        EXPECT_EQ((Bytes{again.data().begin(), again.data().end()}), picture);
        EXPECT_EQ(metadata.width, c.metadata.width);
        EXPECT_EQ(metadata.height, c.metadata.height);
    }
}

TEST(PNGExporter, SaysWhatItCannotWrite) {
    ImageMetadata lineAligned = metadataOf(4, 1, 4, kRgba);
    lineAligned.lineAlignment = 32;
    ImageMetadata pixelAligned = metadataOf(4, 1, 4, kRgba);
    pixelAligned.pixelAlignment = 8;
    struct Case {
        ImageMetadata metadata;
        const char* complaint;
    };
    const Case kCases[] = {
        {lineAligned, "No support for non-zero image line alignment. "},
        {pixelAligned, "No support for non-zero image pixel alignment. "},
        {metadataOf(1, 1, 3, kBgra), "No support for BGRA. "},
        {metadataOf(1, 1, 2, kRgba), "No support for RGBA with 2 channels. "},
        {metadataOf(1, 1, 1, kRgba), "No support for RGBA with 1 channels. "},
        {metadataOf(1, 1, 2, kIntensity), "No support for INTENSITY with 2 channels. "},
        {metadataOf(1, 1, 1, kIntensity, 3),
         "No support for combination of bith depth and color type. "},
        {metadataOf(1, 1, 3, kRgba, 3), ""},
        {metadataOf(1, 1, 3, kRgba, 256),
         "No support for combination of bith depth and color type. "},
        {metadataOf(3, 2, 3, kRgba), "More space requested (18) than what is available (16). "},
        {metadataOf(0x10000, 0x10000, 1, kIntensity),
         "Value (4295032832) out of bound (4294967295). "},
        {metadataOf(0xFFFFFFFF, 0xFFFFFFFF, 4, kRgba, 255),
         "Value (547608330113) out of bound (4294967295). "},
    };
    for (const Case& c : kCases) {
        IncrementalBuffer file;
        EXPECT_EQ(complaintOf([&] { exportTo(file, Bytes(16), c.metadata); }), c.complaint);
        EXPECT_EQ(file.size() == 8, *c.complaint != '\0'); // the signature alone
    }
    EXPECT_EQ(
        complaintOf([] { PNGExporter{}.exportImage(BorrowConstBuffer{{}}, ImageMetadata{}); }),
        "Migrator was not associated with a stream. ");
}

} // namespace
} // namespace VORN::Migration
