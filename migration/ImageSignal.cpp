#include "migration/ImageSignal.h"

#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"

#include <array>

namespace VORN::Migration {

namespace {

constexpr std::size_t kChannels = 3;

/// Where the bytes of red, green and blue lie in a picture that was imported.
struct SampleLayout {
    std::uint64_t pixelStride;
    std::uint64_t lineStride;
    std::array<std::size_t, kChannels> offsets; // of the byte that is kept, within a pixel
    unsigned char scale;                        // what the kept byte is multiplied with
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
    const bool isPacked = metadata.type.bits == 1 && metadata.pixelAlignment == 0;
    SampleLayout layout{format.pixelStride, format.lineStride, {}, 1};
    if (isPacked) {
        layout.pixelStride = channels.size();
        layout.lineStride = layout.pixelStride * metadata.width;
    }
    if (metadata.type.bits == 1)
        layout.scale = 255;
    const bool isGrey = channels.size() < kChannels;
    for (std::size_t c = 0; c < kChannels; ++c)
        layout.offsets[c] = bytes * channels[isGrey ? 0 : c];
    if (std::ranges::max(layout.offsets) >= layout.pixelStride)
        throw SupportException{kNoOrigin, "pictures with samples of a part of a byte"};
    return layout;
}

/// Moves the three bytes of pixel `pixel` to where they belong.
void movePixel(const SampleLayout& layout, std::uint8_t* memory, std::size_t pixel) {
    const std::uint8_t* source = memory + pixel * static_cast<std::size_t>(layout.pixelStride);
    const std::array<std::uint8_t, kChannels> rgb{
        source[layout.offsets[0]], source[layout.offsets[1]], source[layout.offsets[2]]};
    for (std::size_t c = 0; c < kChannels; ++c)
        memory[pixel * kChannels + c] = static_cast<std::uint8_t>(rgb[c] * layout.scale);
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

/// Turns a picture into red, green and blue bytes within the same memory.
///
/// Where pixels shrink every byte moves towards the front, so the walk starts there; where they
/// grow it starts at the end. The picture lies in the memory as the layout says, so that its
/// strides are sizes.
void packInPlace(IncrementalBuffer& bytes, SampleLayout layout, std::size_t width,
                 std::size_t height) {
    const std::uint64_t packed = std::uint64_t{kChannels} * width * height;
    const std::size_t pixels = width * height;
    closeLines(bytes.writableData().data(), layout, width, height);
    const bool grows = layout.pixelStride < kChannels;
    if (grows)
        bytes.resize(packed);
    std::uint8_t* const memory = bytes.writableData().data();
    for (std::size_t k = 0; k < pixels; ++k)
        movePixel(layout, memory, grows ? pixels - 1 - k : k);
    bytes.resize(packed);
}

} // namespace

template <class T>
void ImageSignal<T>::Resize(const Tuple<3, unsigned>& size) {
    bytes_.resize(sampleCount(size));
    this->refer(size, bytes_.writableData().data());
}

template <class T>
void ImageSignal<T>::importImage(DataImporter& importer) {
    ImageMetadata metadata;
    importer.importImage(bytes_, metadata);
    const SampleLayout layout = layoutOf(metadata);
    const std::uint64_t needed = layout.lineStride * metadata.height;
    if (bytes_.size() < needed)
        throw SpaceException<std::uint64_t>{kNoOrigin, needed, bytes_.size()};
    const bool isPackedAlready = layout.pixelStride == kChannels && metadata.type.bits == 8 &&
                                 metadata.format != ImageMetadata::Format::Bgra &&
                                 layout.lineStride == std::uint64_t{kChannels} * metadata.width;
    if (!isPackedAlready && needed > 0)
        packInPlace(bytes_, layout, metadata.width, metadata.height);
    Resize({kChannels, metadata.width, metadata.height});
}

template <class T>
void ImageSignal<T>::exportImage(DataExporter& exporter) const {
    ImageMetadata metadata;
    metadata.width = this->size()[1];
    metadata.height = this->size()[2];
    metadata.channels = this->size()[0];
    metadata.format = ImageMetadata::Format::Rgba;
    exporter.exportImage(bytes_, metadata);
}

template class ImageSignal<unsigned char>;

} // namespace VORN::Migration
