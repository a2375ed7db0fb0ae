#include "migration/ImageSignal.h"

#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"

#include <algorithm>
#include <array>

namespace VORN::Migration {

namespace {

constexpr std::size_t kColorChannels = 3;

void checkSamples(const ImageMetadata& metadata) {
    const SampleType& type = metadata.type;
    const bool isWhole = type.kind == SampleType::Kind::Unsigned;
    if (type.bits != 1 && !(isWhole && (type.bits == 8 || type.bits == 16)))
        throw SupportException{kNoOrigin, "pictures of " + toText(type) + " samples"};
    if (metadata.channels == 0)
        throw SupportException{kNoOrigin, "pictures without channels"};
}

/// The bytes of an imported picture that are kept: one for grey, three for red, green and blue.
class KeptBytes {
public:
    KeptBytes(const SampleLayout& layout, const SampleType& type)
        : layout_{&layout},
          channels_{layout.offsets.size() < kColorChannels ? 1 : kColorChannels},
          scale_{type.bits == 1 ? std::uint8_t{255} : std::uint8_t{1}} {
        std::copy_n(layout.offsets.begin(), channels_, offsets_.begin());
    }

    /// Whether these are all bytes of the picture, side by side.
    bool isAll() const {
        return scale_ == 1 && layout_->sampleBytes == 1 && layout_->isPacked() &&
               layout_->offsets.size() == channels_ && layout_->lineStride == layout_->rowBytes();
    }
    std::size_t channels() const { return channels_; }

    /// Moves them together within their memory, which holds the picture as its layout says, so that
    /// its strides are sizes. No pixel takes more bytes than before: every byte moves towards the
    /// front.
    void pack(std::span<std::uint8_t> memory) const {
        if (channels_ == 1)
            packChannels<1>(memory.data());
        else
            packChannels<kColorChannels>(memory.data());
    }

private:
    template <std::size_t Channels>
    void packChannels(std::uint8_t* memory) const {
        const auto pixelStride = static_cast<std::size_t>(layout_->pixelStride);
        std::uint8_t* to = memory;
        for (std::size_t y = 0; y < layout_->height; ++y) {
            const std::uint8_t* from = memory + y * static_cast<std::size_t>(layout_->lineStride);
            for (std::size_t x = 0; x < layout_->width; ++x, from += pixelStride, to += Channels) {
                std::array<std::uint8_t, Channels> kept; // read whole before it is written
                for (std::size_t c = 0; c < Channels; ++c)
                    kept[c] = static_cast<std::uint8_t>(from[offsets_[c]] * scale_);
                std::ranges::copy(kept, to);
            }
        }
    }

    const SampleLayout* layout_;
    std::size_t channels_;
    std::array<std::size_t, kColorChannels> offsets_{}; // within a pixel
    std::uint8_t scale_;                                // what each byte is multiplied with
};

/// Leaves in `buffer` the bytes that are kept; returns their size as a signal.
Tuple<3, unsigned> pack(IncrementalBuffer& buffer, const ImageMetadata& metadata) {
    checkSamples(metadata);
    const SampleLayout layout{metadata};
    if (buffer.size() < layout.bytes())
        throw SpaceException<std::uint64_t>{kNoOrigin, layout.bytes(), buffer.size()};
    const KeptBytes kept{layout, metadata.type};
    if (layout.bytes() > 0 && !kept.isAll()) {
        kept.pack(buffer.writableData());
        buffer.resize(std::uint64_t{kept.channels()} * layout.width * layout.height);
    }
    return {kept.channels(), metadata.width, metadata.height};
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
    metadata.format =
        metadata.channels == 1 ? ImageMetadata::Format::Intensity : ImageMetadata::Format::Rgba;
    exporter.exportImage(BorrowConstBuffer{this->samples()}, metadata);
}

template class ImageSignal<unsigned char>;

} // namespace VORN::Migration
