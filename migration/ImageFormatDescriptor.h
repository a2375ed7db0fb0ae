#pragma once

#include "migration/ImageMetadata.h"

#include <cstddef>
#include <vector>

namespace VORN::Migration {

/// The distances between pixels and lines in a picture buffer, derived from its metadata.
struct ImageFormatDescriptor {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint64_t pixelStride = 0;             // bytes from one pixel to the next
    std::uint64_t lineStride = 0;              // bytes from one line to the next
    std::vector<std::uint32_t> channelOffsets; // by channel: which sample of a pixel holds it

    /// Works the layout out. In the format "BGRA" the first and the third channel change places.
    ///
    /// An alignment that gives no whole bytes is a `SupportException`, a picture of 2^64 bytes or
    /// more an `AllocateException`, more than `kMaximumChannels` channels a `BoundException`. A
    /// missing key is a `NotFoundException`; text that does not convert throws as
    /// `ImageMetadata::set` does.
    explicit ImageFormatDescriptor(const Metadata& metadata);

    static constexpr std::uint32_t kMaximumChannels = 65536;

    /// The size of the whole buffer, in bytes.
    std::uint64_t bytes() const { return lineStride * height; }
};

/// Where the samples of a picture lie in its buffer, for code that handles single samples.
///
/// It differs from the descriptor in that a sample always has whole bytes: one for up to 8 bits,
/// two for 9 to 16. So each pixel of a bitmap has one byte, where the descriptor's strides are 0.
struct SampleLayout {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::size_t sampleBytes = 0;
    std::uint64_t pixelStride = 0;    // bytes from one pixel to the next
    std::uint64_t lineStride = 0;     // bytes from one line to the next
    std::vector<std::size_t> offsets; // by channel: bytes from a pixel's start to the sample

    /// Works the layout out; throws as `ImageFormatDescriptor` does.
    explicit SampleLayout(const ImageMetadata& metadata);

    /// The size of a line's samples in bytes, without padding.
    std::uint64_t rowBytes() const { return std::uint64_t{width} * offsets.size() * sampleBytes; }
    /// Whether a line is just its samples, pixel by pixel in the order of channels, up to padding
    /// at its end.
    bool isPacked() const;
    /// The size of the whole buffer, in bytes; 2^64 - 1 if it is larger than that.
    std::uint64_t bytes() const;
};

} // namespace VORN::Migration
