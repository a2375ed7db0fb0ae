#include "migration/ImageFormatDescriptor.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

TEST(ImageMetadata, ServesItsKeysFromTheFields) {
    ImageMetadata metadata = described(5, 2, 3, "16-bit unsigned big endian", "BGRA", 0, 32);
    metadata.set("Comment", "mine");
    EXPECT_EQ(metadata.get("Width"), "5");
    EXPECT_EQ(metadata.get("Type"), "16-bit unsigned big endian");
    EXPECT_EQ(metadata.get("Format"), "BGRA");
    EXPECT_EQ(metadata.get("Comment"), "mine");
    EXPECT_TRUE(metadata.has("Line alignment"));
    EXPECT_FALSE(metadata.has("Author"));
    EXPECT_EQ(metadata.keys().size(), 8U);
    EXPECT_EQ(complaintOf([&] { metadata.get("Author"); }), "Could not find Author in metadata. ");
}

TEST(SampleType, RefusesWhatIsNoType) {
    const auto unparsed = [](const std::string& text, const std::string& choices) {
        return "String \"" + text + "\" could not be parsed into \"" + choices + "\". ";
    };
    const std::pair<const char*, std::string> kCases[] = {
        {"8-bit unsigned little endian", ""},
        {"1-bit boolean big endian", ""},
        {"32-bit two complement big endian", ""},
        {"8-bit custom little endian",
         unparsed("8-bit custom little endian",
                  "unsigned | two complement | floating point | fixed point | boolean")},
        {"8-bit unsigned small endian",
         unparsed("8-bit unsigned small endian", "big endian | small endian")},
        {"x-bit unsigned big endian", "Failed to convert \"x\" to unsigned int."},
    };
    for (const auto& [text, complaint] : kCases) {
        std::string again;
        EXPECT_EQ(complaintOf([&, &type = text] { again = toText(parseSampleType(type)); }),
                  complaint);
        EXPECT_EQ(again, complaint.empty() ? text : "");
    }
}

TEST(ImageFormatDescriptor, ComputesStrides) {
    const std::string unaligned = "No support for non-byte-aligned pixels. ";
    const struct {
        ImageMetadata metadata;
        std::string stridesOrComplaint;
    } kCases[] = {
        {described(5, 2, 3, kBytes, "RGBA", 0, 32), "3 16"},
        {described(5, 2, 1, "1-bit boolean big endian", "RGBA", 8), "1 5"},
        {described(5, 2, 1, "1-bit boolean big endian", "RGBA", 4), unaligned},
        {described(5, 2, 1, kBits), "0 0"},
        {described(4, 2, 1, kBytes, "RGBA", 8, 32), "1 4"}, // aligned as it is
        {described(~0U, 2, 65536, "4294967295-bit unsigned little endian"),
         "Failed to allocate picture. "},
        {described(1, 2, 65536), "65536 65536"},
        {described(1, 2, 65537), "Value (65537) out of bound (65536). "},
    };
    for (const auto& c : kCases) {
        const Metadata texts = textsOf(c.metadata);
        for (const Metadata* metadata : {static_cast<const Metadata*>(&c.metadata), &texts}) {
            std::string strides;
            strides += complaintOf([&] {
                const ImageFormatDescriptor format{*metadata};
                strides =
                    std::to_string(format.pixelStride) + ' ' + std::to_string(format.lineStride);
            });
            EXPECT_EQ(strides, c.stridesOrComplaint);
        }
    }
    EXPECT_EQ((ImageFormatDescriptor{described(1, 2, 4, kBytes, "BGRA")}.channelOffsets),
              (std::vector<std::uint32_t>{2, 1, 0, 3}));
    Metadata unknown = textsOf(described(1, 2, 4));
    unknown.set("Format", "CMYK");
    EXPECT_EQ(ImageFormatDescriptor{unknown}.channelOffsets,
              (std::vector<std::uint32_t>{0, 1, 2, 3}));
}

} // namespace
} // namespace VORN::Migration
