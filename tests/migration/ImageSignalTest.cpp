#include "migration/ImageSignal.h"
#include "migration/ImageMetadata.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

/// Hands out a picture that is already there.
class ReadyImporter : public DataImporter {
public:
    ReadyImporter(const ImageMetadata& metadata, std::vector<std::uint8_t> bytes)
        : metadata_{metadata}, bytes_{std::move(bytes)} {}
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override {
        metadata.assign(metadata_);
        buffer.resize(bytes_.size());
        std::ranges::copy(bytes_, buffer.writableData().begin());
    }

private:
    ImageMetadata metadata_;
    std::vector<std::uint8_t> bytes_;
};

ImageMetadata described(std::uint32_t width, std::uint32_t channels, const char* type,
                        const char* format, const char* lineAlignment) {
    ImageMetadata metadata;
    metadata.width = width;
    metadata.height = 2;
    metadata.channels = channels;
    metadata.set("Type", type);
    metadata.set("Format", format);
    metadata.set("Line alignment", lineAlignment);
    return metadata;
}

TEST(ImageSignal, LeavesRedGreenAndBlueBytes) {
    const char* const kBytes = "8-bit unsigned little endian";
    const char* const kWords = "16-bit unsigned little endian";
    const struct {
        ImageMetadata metadata;
        std::vector<std::uint8_t> bytes; // as imported
        std::vector<std::uint8_t> rgb;   // what remains
    } kCases[] = {
        {described(1, 3, kBytes, "RGBA", "0"), {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}},
        {described(1, 3, kBytes, "BGRA", "0"), {1, 2, 3, 4, 5, 6}, {3, 2, 1, 6, 5, 4}},
        {described(1, 4, kBytes, "RGBA", "0"), {1, 2, 3, 9, 4, 5, 6, 9}, {1, 2, 3, 4, 5, 6}},
        {described(1, 3, kBytes, "RGBA", "32"), {1, 2, 3, 0, 4, 5, 6, 0}, {1, 2, 3, 4, 5, 6}},
        {described(2, 1, kBytes, "INTENSITY", "0"),
         {1, 2, 3, 4},
         {1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4}},
        {described(2, 1, kBytes, "INTENSITY", "64"),
         {1, 2, 0, 0, 0, 0, 0, 0, 3, 4, 0, 0, 0, 0, 0, 0},
         {1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4}},
        {described(2, 2, kBytes, "INTENSITY", "0"),
         {1, 9, 2, 9, 3, 9, 4, 9},
         {1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4}},
        // The first byte of two is the most significant, whatever the metadata says.
        {described(1, 1, kWords, "INTENSITY", "0"), {1, 9, 2, 9}, {1, 1, 1, 2, 2, 2}},
        {described(1, 3, kWords, "RGBA", "0"),
         {1, 9, 2, 9, 3, 9, 4, 9, 5, 9, 6, 9},
         {1, 2, 3, 4, 5, 6}},
        {described(1, 4, kWords, "RGBA", "0"),
         {1, 9, 2, 9, 3, 9, 7, 7, 4, 9, 5, 9, 6, 9, 7, 7},
         {1, 2, 3, 4, 5, 6}},
        {described(2, 1, "1-bit unsigned little endian", "INTENSITY", "0"),
         {1, 0, 0, 1},
         {255, 255, 255, 0, 0, 0, 0, 0, 0, 255, 255, 255}},
        {described(0, 3, kBytes, "RGBA", "0"), {}, {}},
    };
    for (const auto& c : kCases) {
        ReadyImporter importer{c.metadata, c.bytes};
        ImageSignal<unsigned char> picture;
        picture.importImage(importer);
        EXPECT_EQ(picture.size(), (Tuple<3, unsigned>{3U, c.metadata.width, 2U}));
        EXPECT_TRUE(std::ranges::equal(picture.samples(), c.rgb));
    }
}

TEST(ImageSignal, RefusesOtherSamples) {
    const auto complaint = [](const ImageMetadata& metadata, std::size_t bytes) {
        return complaintOf([&] {
            ReadyImporter importer{metadata, std::vector<std::uint8_t>(bytes)};
            ImageSignal<unsigned char>{}.importImage(importer);
        });
    };
    EXPECT_EQ(complaint(described(1, 3, "32-bit floating point big endian", "RGBA", "0"), 24),
              "No support for pictures of 32-bit floating point big endian samples. ");
    EXPECT_EQ(complaint(described(1, 0, "8-bit unsigned big endian", "RGBA", "0"), 24),
              "No support for pictures without channels. ");
    EXPECT_EQ(complaint(described(2, 3, "8-bit unsigned big endian", "RGBA", "0"), 11),
              "More space requested (12) than what is available (11). ");
    ImageMetadata partial = described(1, 3, "1-bit unsigned big endian", "RGBA", "0");
    partial.pixelAlignment = 8;
    EXPECT_EQ(complaint(partial, 6), "No support for pictures with samples of a part of a byte. ");
}

} // namespace
} // namespace VORN::Migration
