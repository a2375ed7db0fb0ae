#pragma once

#include "migration/ImageMetadata.h"

#include <cstddef>
#include <vector>

namespace VORN::Migration {

/// The strides of a picture buffer, derived from its metadata.
struct ImageFormatDescriptor {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint64_t pixelStride = 0;             // bytes from one pixel to the next
    std::uint64_t lineStride = 0;              // bytes from one line to the next
    std::vector<std::uint32_t> channelOffsets; // per channel the sample slot that holds it

    /// The format "BGRA" swaps the first and the third channel, any other text leaves them in
    /// order.
    ///
    /// Alignments that give no whole bytes are a `SupportException`, a picture of 2^64 bytes or
    /// more an `AllocateException`, more than `kMaximumChannels` channels a `BoundException`. A key
    /// that is missing is a `NotFoundException`, and other text values that do not convert throw as
    /// `ImageMetadata::set` does.
    explicit ImageFormatDescriptor(const Metadata& metadata);

    static constexpr std::uint32_t kMaximumChannels = 65536;

    /// The size of the whole buffer.
    std::uint64_t bytes() const { return lineStride * height; }
};

/// Where the samples of a picture lie in its buffer, for all who touch single samples.
///
/// That is where the descriptor says, but that a sample takes whole bytes: samples of up to 8 bits
/// one, those of 9 to 16 bits two. So the pixels of a bitmap, to which the descriptor gives no byte
/// at all, have one each.
struct SampleLayout {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::size_t sampleBytes = 0;
    std::uint64_t pixelStride = 0; // in bytes, as all that follow
    std::uint64_t lineStride = 0;
    std::vector<std::size_t> offsets; // of each channel's sample from the begin of its pixel

    /// Throws as `ImageFormatDescriptor` does.
    explicit SampleLayout(const ImageMetadata& metadata);

    /// The samples of all channels of one line.
    std::uint64_t rowBytes() const { return std::uint64_t{width} * offsets.size() * sampleBytes; }
    /// Whether the samples of a line follow each other in channel order without padding.
    bool isPacked() const;
    /// The size of the whole buffer; 2^64 - 1 when it is larger than that.
    std::uint64_t bytes() const;
};

} // namespace VORN::Migration
