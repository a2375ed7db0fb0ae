#include "migration/ImageSignal.h"

#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"

#include <array>

namespace VORN::Migration {

namespace {

constexpr std::size_t kChannels = 3;

/// Where the bytes of red, green and blue lie in a picture that was imported.
struct ColorLayout {
    std::uint64_t pixelStride;
    std::uint64_t lineStride;
    std::array<std::size_t, kChannels> offsets; // of the byte that is kept, within a pixel
    unsigned char scale;                        // what the kept byte is multiplied with
};

void checkSamples(const ImageMetadata& metadata) {
    const SampleType& type = metadata.type;
    const bool isWhole = type.kind == SampleType::Kind::Unsigned;
    if (type.bits != 1 && !(isWhole && (type.bits == 8 || type.bits == 16)))
        throw SupportException{kNoOrigin, "pictures of " + toText(type) + " samples"};
    if (metadata.channels == 0)
        throw SupportException{kNoOrigin, "pictures without channels"};
}

ColorLayout colorsOf(const SampleLayout& samples, const SampleType& type) {
    const bool isGrey = samples.offsets.size() < kChannels;
    ColorLayout layout{samples.pixelStride, samples.lineStride, {}, 1};
    if (type.bits == 1)
        layout.scale = 255;
    for (std::size_t c = 0; c < kChannels; ++c)
        layout.offsets[c] = samples.offsets[isGrey ? 0 : c];
    return layout;
}

/// Moves the three bytes of pixel `pixel` to where they belong.
void movePixel(const ColorLayout& layout, std::uint8_t* memory, std::size_t pixel) {
    const std::uint8_t* source = memory + pixel * static_cast<std::size_t>(layout.pixelStride);
    const std::array<std::uint8_t, kChannels> rgb{
        source[layout.offsets[0]], source[layout.offsets[1]], source[layout.offsets[2]]};
    for (std::size_t c = 0; c < kChannels; ++c)
        memory[pixel * kChannels + c] = static_cast<std::uint8_t>(rgb[c] * layout.scale);
}

/// Moves the lines of a picture together, so that no bytes lie between them.
void closeLines(std::uint8_t* bytes, ColorLayout& layout, std::size_t width, std::size_t height) {
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
void packInPlace(IncrementalBuffer& bytes, ColorLayout layout, std::size_t width,
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
    checkSamples(metadata);
    const SampleLayout layout{metadata};
    if (bytes_.size() < layout.bytes())
        throw SpaceException<std::uint64_t>{kNoOrigin, layout.bytes(), bytes_.size()};
    const bool isPackedAlready = layout.pixelStride == kChannels && metadata.type.bits == 8 &&
                                 layout.isPacked() && layout.lineStride == layout.rowBytes();
    if (!isPackedAlready && layout.bytes() > 0)
        packInPlace(bytes_, colorsOf(layout, metadata.type), metadata.width, metadata.height);
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
