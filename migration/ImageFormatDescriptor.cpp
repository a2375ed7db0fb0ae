#include "migration/ImageFormatDescriptor.h"

#include "core/CheckedSize.h"
#include "core/Exception.h"

#include <algorithm>
#include <numeric>

namespace VORN::Migration {

namespace {

/// The typed form of `metadata` but for its format, read from its texts unless it has typed fields
/// already.
ImageMetadata typed(const Metadata& metadata) {
    if (const auto* image = dynamic_cast<const ImageMetadata*>(&metadata))
        return *image;
    ImageMetadata image;
    for (const char* key :
         {"Width", "Height", "Pixel alignment", "Channels", "Type", "Line alignment"})
        image.set(key, metadata.get(key));
    return image;
}

constexpr const char* kPicture = "picture"; // what has no memory when it is too large

/// The bytes that `bits` take when rounded up to a multiple of `alignment` bits; without alignment
/// a part of a byte is dropped.
std::uint64_t alignedBytes(CheckedSize bits, std::uint64_t alignment) {
    const std::uint64_t unaligned = bits.sizeOf(kPicture);
    if (alignment == 0)
        return unaligned / 8;
    const std::uint64_t padding = (alignment - unaligned % alignment) % alignment;
    const std::uint64_t aligned = (bits + padding).sizeOf(kPicture);
    if (aligned % 8 != 0)
        throw SupportException{kNoOrigin, "non-byte-aligned pixels"};
    return aligned / 8;
}

} // namespace

ImageFormatDescriptor::ImageFormatDescriptor(const Metadata& metadata) {
    const ImageMetadata image = typed(metadata);
    if (image.channels > kMaximumChannels)
        throw BoundException<unsigned>{kNoOrigin, image.channels, kMaximumChannels};
    width = image.width;
    height = image.height;
    pixelStride = alignedBytes(CheckedSize{image.channels} * image.type.bits, image.pixelAlignment);
    lineStride = alignedBytes(CheckedSize{pixelStride} * width * 8, image.lineAlignment);
    static_cast<void>((CheckedSize{lineStride} * height).sizeOf(kPicture));
    channelOffsets.resize(image.channels);
    std::iota(channelOffsets.begin(), channelOffsets.end(), 0U);
    if (metadata.get("Format") == "BGRA" && image.channels >= 3)
        std::swap(channelOffsets[0], channelOffsets[2]);
}

SampleLayout::SampleLayout(const ImageMetadata& metadata)
    : width{metadata.width},
      height{metadata.height},
      sampleBytes{static_cast<std::size_t>((std::uint64_t{metadata.type.bits} + 7) / 8)} {
    const ImageFormatDescriptor descriptor{metadata};
    const std::uint64_t channels = descriptor.channelOffsets.size();
    // No overflow: at most twice the descriptor's for samples of more than 8 bits, else 2^48.
    pixelStride = std::max(descriptor.pixelStride, channels * sampleBytes);
    lineStride = std::max(descriptor.lineStride, pixelStride * width);
    for (const std::uint32_t slot : descriptor.channelOffsets)
        offsets.push_back(slot * sampleBytes);
}

bool SampleLayout::isPacked() const {
    return pixelStride == offsets.size() * sampleBytes && std::ranges::is_sorted(offsets);
}

std::uint64_t SampleLayout::bytes() const { return (CheckedSize{lineStride} * height).saturated(); }

} // namespace VORN::Migration
