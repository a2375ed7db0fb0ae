#include "migration/ImageSignal.h"

#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"

#include <array>

namespace VORN::Migration {

namespace {

constexpr std::size_t kColorChannels = 3;

/// Where the bytes that are kept lie in a picture that was imported: red, green and blue, or grey.
struct SampleLayout {
    std::uint64_t pixelStride;
    std::uint64_t lineStride;
    std::size_t channels;                            // kept, 1 or 3
    std::array<std::size_t, kColorChannels> offsets; // of the byte that is kept, within a pixel
    unsigned char scale;                             // what the kept byte is multiplied with

    /// Whether the picture is already as it is to be.
    bool isPacked(std::uint32_t width) const {
        return scale == 1 && pixelStride == channels && offsets[channels - 1] == channels - 1 &&
               offsets[0] == 0 && lineStride == channels * std::uint64_t{width};
    }
};

std::size_t sampleBytes(const SampleType& type) {
    if (type.bits == 1)
        return 1; // one byte each, whatever the descriptor says
    const bool isWhole = type.kind == SampleType::Kind::Unsigned;
    if (isWhole && (type.bits == 8 || type.bits == 16))
        return type.bits / 8;
    throw SupportException{kNoOrigin, "pictures of " + toText(type) + " samples"};
}

SampleLayout layoutOf(const ImageMetadata& metadata) {
    const ImageFormatDescriptor format{metadata};
    const std::size_t bytes = sampleBytes(metadata.type);
    const auto& channels = format.channelOffsets;
    if (channels.empty())
        throw SupportException{kNoOrigin, "pictures without channels"};
    const bool isBitmap = metadata.type.bits == 1 && metadata.pixelAlignment == 0;
    SampleLayout layout{format.pixelStride, format.lineStride,
                        channels.size() < kColorChannels ? 1 : kColorChannels, {}, 1};
    if (isBitmap) {
        layout.pixelStride = channels.size();
        layout.lineStride = layout.pixelStride * metadata.width;
    }
    if (metadata.type.bits == 1)
        layout.scale = 255;
    for (std::size_t c = 0; c < layout.channels; ++c)
        layout.offsets[c] = bytes * channels[c];
    if (std::ranges::max(layout.offsets) >= layout.pixelStride)
        throw SupportException{kNoOrigin, "pictures with samples of a part of a byte"};
    return layout;
}

/// Moves the bytes of pixel `pixel` that are kept to where they belong.
void movePixel(const SampleLayout& layout, std::uint8_t* memory, std::size_t pixel) {
    const std::uint8_t* source = memory + pixel * static_cast<std::size_t>(layout.pixelStride);
    std::array<std::uint8_t, kColorChannels> kept;
    for (std::size_t c = 0; c < layout.channels; ++c)
        kept[c] = static_cast<std::uint8_t>(source[layout.offsets[c]] * layout.scale);
    std::copy_n(kept.begin(), layout.channels, memory + pixel * layout.channels);
}

/// Moves the lines of a picture together, so that no bytes lie between them.
void closeLines(std::uint8_t* bytes, SampleLayout& layout, std::size_t width, std::size_t height) {
    const std::size_t lineBytes = static_cast<std::size_t>(layout.pixelStride) * width;
    const auto lineStride = static_cast<std::size_t>(layout.lineStride);
    if (lineStride != lineBytes)
        for (std::size_t line = 0; line < height; ++line)
            std::copy_n(bytes + line * lineStride, lineBytes, bytes + line * lineBytes);
    layout.lineStride = lineBytes;
}

/// Leaves the bytes that are kept, side by side, within the same memory.
///
/// The picture lies in the memory as the layout says, so that its strides are sizes. No pixel takes
/// more bytes than before, so every byte moves towards the front.
void packInPlace(IncrementalBuffer& bytes, SampleLayout layout, std::size_t width,
                 std::size_t height) {
    std::uint8_t* const memory = bytes.writableData().data();
    closeLines(memory, layout, width, height);
    for (std::size_t pixel = 0; pixel < width * height; ++pixel)
        movePixel(layout, memory, pixel);
    bytes.resize(layout.channels * width * height);
}

/// The samples of a picture of that layout, which `bytes` holds.
Tuple<3, unsigned> pack(IncrementalBuffer& bytes, const ImageMetadata& metadata) {
    const SampleLayout layout = layoutOf(metadata);
    const std::uint64_t needed = layout.lineStride * metadata.height;
    if (bytes.size() < needed)
        throw SpaceException<std::uint64_t>{kNoOrigin, needed, bytes.size()};
    if (needed > 0 && !layout.isPacked(metadata.width))
        packInPlace(bytes, layout, metadata.width, metadata.height);
    return {layout.channels, metadata.width, metadata.height};
}

} // namespace

template <class T>
ImageSignal<T>::ImageSignal(IncrementalBuffer& buffer, const ImageMetadata& metadata) {
    const Tuple<3, unsigned> size = pack(buffer, metadata);
    this->refer(size, buffer.data().data());
}

template <class T>
void ImageSignal<T>::exportImage(DataExporter& exporter) const {
    ImageMetadata metadata;
    metadata.channels = this->size()[0];
    metadata.width = this->size()[1];
    metadata.height = this->size()[2];
    metadata.format = metadata.channels == 1 ? ImageMetadata::Format::Intensity
                                             : ImageMetadata::Format::Rgba;
    exporter.exportImage(BorrowConstBuffer{this->samples()}, metadata);
}

template class ImageSignal<unsigned char>;

} // namespace VORN::Migration
