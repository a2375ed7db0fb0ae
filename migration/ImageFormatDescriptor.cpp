#include "migration/ImageFormatDescriptor.h"

#include "core/Exception.h"

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

std::uint64_t multiply(std::uint64_t a, std::uint64_t b) {
    std::uint64_t product = 0;
    if (__builtin_mul_overflow(a, b, &product))
        throw AllocateException{kNoOrigin, "picture"};
    return product;
}

/// The bytes that `bits` take when rounded up to a multiple of `alignment` bits; without alignment
/// a part of a byte is dropped.
std::uint64_t alignedBytes(std::uint64_t bits, std::uint64_t alignment) {
    if (alignment == 0)
        return bits / 8;
    const std::uint64_t padding = (alignment - bits % alignment) % alignment;
    if (__builtin_add_overflow(bits, padding, &bits))
        throw AllocateException{kNoOrigin, "picture"};
    if (bits % 8 != 0)
        throw SupportException{kNoOrigin, "non-byte-aligned pixels"};
    return bits / 8;
}

} // namespace

ImageFormatDescriptor::ImageFormatDescriptor(const Metadata& metadata) {
    const ImageMetadata image = typed(metadata);
    if (image.channels > kMaximumChannels)
        throw BoundException<unsigned>{kNoOrigin, image.channels, kMaximumChannels};
    width = image.width;
    height = image.height;
    pixelStride = alignedBytes(multiply(image.channels, image.type.bits), image.pixelAlignment);
    lineStride = alignedBytes(multiply(multiply(pixelStride, width), 8), image.lineAlignment);
    multiply(lineStride, height);
    channelOffsets.resize(image.channels);
    std::iota(channelOffsets.begin(), channelOffsets.end(), 0U);
    if (metadata.get("Format") == "BGRA" && image.channels >= 3)
        std::swap(channelOffsets[0], channelOffsets[2]);
}

} // namespace VORN::Migration
