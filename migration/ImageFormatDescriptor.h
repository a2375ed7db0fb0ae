#pragma once

#include "migration/ImageMetadata.h"

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

} // namespace VORN::Migration
