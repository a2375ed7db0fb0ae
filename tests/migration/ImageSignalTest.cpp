#include "migration/ImageSignal.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

/// A buffer that holds `bytes`.
IncrementalBuffer filled(const Bytes& bytes) {
    IncrementalBuffer buffer;
    buffer.resize(bytes.size());
    std::ranges::copy(bytes, buffer.writableData().begin());
    return buffer;
}

TEST(ImageSignal, LeavesAByteForGreyOrForRedGreenAndBlue) {
    const Bytes kColors{1, 2, 3, 4, 5, 6};
    const Bytes kGreys{1, 2, 3, 4};
    const char* const kGrey = "INTENSITY";
    const struct {
        ImageMetadata metadata;
        Bytes bytes; // as imported
        Bytes left;  // what remains
    } kCases[] = {
        {described(1, 2, 3), {1, 2, 3, 4, 5, 6}, kColors},
        {described(1, 2, 3, kBytes, "BGRA"), {3, 2, 1, 6, 5, 4}, kColors},
        {described(1, 2, 4), {1, 2, 3, 9, 4, 5, 6, 9}, kColors},
        {described(1, 2, 3, kBytes, "RGBA", 0, 32), {1, 2, 3, 0, 4, 5, 6, 0}, kColors},
        {described(2, 2, 1, kBytes, kGrey), {1, 2, 3, 4}, kGreys},
        {described(2, 2, 1, kBytes, kGrey, 0, 64),
         {1, 2, 0, 0, 0, 0, 0, 0, 3, 4, 0, 0, 0, 0, 0, 0},
         kGreys},
        {described(2, 2, 2, kBytes, kGrey), {1, 9, 2, 9, 3, 9, 4, 9}, kGreys},
        // The first byte of two is the most significant, whatever the metadata says.
        {described(1, 2, 1, kWords, kGrey), {1, 9, 2, 9}, {1, 2}},
        {described(1, 2, 3, kWords), {1, 9, 2, 9, 3, 9, 4, 9, 5, 9, 6, 9}, kColors},
        {described(1, 2, 4, kWords), {1, 9, 2, 9, 3, 9, 7, 7, 4, 9, 5, 9, 6, 9, 7, 7}, kColors},
        {described(2, 1, 1, kBits, kGrey), {1, 0}, {255, 0}},
        {described(1, 2, 3, kBits, "RGBA", 8), {1, 0, 1, 0, 0, 1}, {255, 0, 255, 0, 0, 255}},
        {described(1, 2, 2, kBytes, kGrey, 24), {1, 9, 0, 2, 9, 0}, {1, 2}},
        {described(0, 2, 3), {}, {}},
    };
    for (const auto& c : kCases) {
        IncrementalBuffer buffer = filled(c.bytes);
        const ImageSignal<unsigned char> picture{buffer, c.metadata};
        const unsigned channels = c.metadata.channels < 3 ? 1 : 3;
        EXPECT_EQ(picture.size(),
                  (Tuple<3, unsigned>{channels, c.metadata.width, c.metadata.height}));
        EXPECT_TRUE(std::ranges::equal(picture.samples(), c.left));
    }
}

TEST(ImageSignal, RefusesOtherSamples) {
    const struct {
        ImageMetadata metadata;
        std::size_t bytes;
        const char* complaint;
    } kCases[] = {
        {described(1, 2, 3, "32-bit floating point big endian"), 24,
         "No support for pictures of 32-bit floating point big endian samples. "},
        {described(1, 2, 0), 24, "No support for pictures without channels. "},
        {described(2, 2, 3), 11, "More space requested (12) than what is available (11). "},
    };
    for (const auto& c : kCases) {
        IncrementalBuffer buffer = filled(Bytes(c.bytes));
        EXPECT_EQ(complaintOf([&] { ImageSignal<unsigned char>(buffer, c.metadata); }),
                  c.complaint);
    }
}

} // namespace
} // namespace VORN::Migration
