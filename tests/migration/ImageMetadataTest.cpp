#include "migration/ImageFormatDescriptor.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

ImageMetadata metadataOf(std::uint32_t width, std::uint32_t channels, const std::string& type,
                         std::uint32_t pixelAlignment, std::uint32_t lineAlignment) {
    ImageMetadata metadata;
    metadata.width = width;
    metadata.height = 2;
    metadata.channels = channels;
    metadata.set("Type", type);
    metadata.pixelAlignment = pixelAlignment;
    metadata.lineAlignment = lineAlignment;
    return metadata;
}

TEST(ImageMetadata, ServesItsKeysFromTheFields) {
    ImageMetadata metadata = metadataOf(5, 3, "16-bit unsigned big endian", 0, 32);
    metadata.set("Format", "BGRA");
    metadata.set("Comment", "mine");
    EXPECT_EQ(metadata.get("Width"), "5");
    EXPECT_EQ(metadata.get("Type"), "16-bit unsigned big endian");
    EXPECT_EQ(metadata.get("Format"), "BGRA");
    EXPECT_EQ(metadata.get("Comment"), "mine");
    EXPECT_TRUE(metadata.has("Line alignment"));
    EXPECT_FALSE(metadata.has("Author"));
    EXPECT_EQ(metadata.keys().size(), 8U);
    EXPECT_EQ(complaintOf([&] { metadata.get("Author"); }), "Could not find Author in metadata. ");

    metadata.format = static_cast<ImageMetadata::Format>(7);
    EXPECT_EQ(complaintOf([&] { metadata.get("Format"); }), "7 is not image format descriptor. ");
}

TEST(SampleType, RefusesWhatIsNoType) {
    struct Case {
        const char* text;
        const char* complaint;
    };
    constexpr Case kCases[] = {
        {"8-bit unsigned little endian", ""},
        {"1-bit boolean big endian", ""},
        {"32-bit two complement big endian", ""},
        {"8-bit custom little endian",
         "String \"8-bit custom little endian\" could not be parsed into \"unsigned | two "
         "complement | floating point | fixed point | boolean\". "},
        {"8-bit unsigned small endian",
         "String \"8-bit unsigned small endian\" could not be parsed "
         "into \"big endian | small endian\". "},
        {"x-bit unsigned big endian", "Failed to convert \"x\" to unsigned int."},
    };
    for (const Case& c : kCases) {
        std::string again;
        EXPECT_EQ(complaintOf([&] { again = toText(parseSampleType(c.text)); }), c.complaint);
        EXPECT_EQ(again, *c.complaint == '\0' ? c.text : "");
    }
}

TEST(ImageFormatDescriptor, ComputesStrides) {
    struct Case {
        ImageMetadata metadata;
        std::uint64_t pixelStride;
        std::uint64_t lineStride;
        const char* complaint;
    };
    const Case kCases[] = {
        {metadataOf(5, 3, "8-bit unsigned little endian", 0, 32), 3, 16, ""},
        {metadataOf(5, 1, "1-bit boolean big endian", 8, 0), 1, 5, ""},
        {metadataOf(5, 1, "1-bit boolean big endian", 4, 0), 0, 0,
         "No support for non-byte-aligned pixels. "},
        {metadataOf(5, 1, "1-bit unsigned little endian", 0, 0), 0, 0, ""},
        {metadataOf(4294967295, 65536, "4294967295-bit unsigned little endian", 0, 0), 0, 0,
         "Failed to allocate picture. "},
        {metadataOf(1, 4294967295, "8-bit unsigned little endian", 0, 0), 0, 0,
         "Value (4294967295) out of bound (65536). "},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.metadata.get("Type"));
        Metadata texts;
        texts.assign(c.metadata);
        for (const Metadata* metadata :
             {static_cast<const Metadata*>(&c.metadata), static_cast<const Metadata*>(&texts)})
            EXPECT_EQ(complaintOf([&] {
                          const ImageFormatDescriptor descriptor{*metadata};
                          EXPECT_EQ(descriptor.pixelStride, c.pixelStride);
                          EXPECT_EQ(descriptor.lineStride, c.lineStride);
                      }),
                      c.complaint);
    }
}

TEST(ImageFormatDescriptor, SwapsTheChannelsOfBgra) {
    ImageMetadata metadata = metadataOf(1, 4, "8-bit unsigned little endian", 0, 0);
    metadata.format = ImageMetadata::Format::Bgra;
    EXPECT_EQ(ImageFormatDescriptor{metadata}.channelOffsets,
              (std::vector<std::uint32_t>{2, 1, 0, 3}));
}

} // namespace
} // namespace VORN::Migration
