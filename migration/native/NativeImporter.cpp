#include "migration/native/NativeImporter.h"

#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"
#include "migration/ReadSamples.h"

namespace VORN::Migration {

namespace {

/// Tells whether a serialised map follows whose keys ascend and hold all that `ImageMetadata`
/// serves. No other kind of file gets past its first key or two.
bool hasImageKeys(ReadStream& stream) {
    constexpr std::uint32_t kMostKeys = 4096;
    constexpr std::uint32_t kLongestKeyBytes = 1024;
    const ImageMetadata image;
    Deserializer in{stream};
    const auto count = in.get<std::uint32_t>();
    if (count > kMostKeys)
        return false;
    std::size_t imageKeys = 0;
    std::string previous;
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto length = in.get<std::uint32_t>();
        if (length > kLongestKeyBytes)
            return false;
        std::string key(length, '\0');
        stream.read({reinterpret_cast<std::uint8_t*>(key.data()), key.size()});
        if (i > 0 && key <= previous)
            return false;
        imageKeys += image.has(key) ? 1 : 0;
        previous = std::move(key);
    }
    return imageKeys == image.keys().size();
}

/// The typed form of what the stream holds; every key of `ImageMetadata` has to be there.
ImageMetadata readImageMetadata(ReadStream& stream) {
    Metadata texts;
    for (const auto& [key, value] : Deserializer{stream}.getMap())
        texts.set(key, value);
    ImageMetadata image;
    for (const std::string& key : image.keys())
        image.set(key, texts.get(key));
    image.assign(texts);
    return image;
}

} // namespace

double NativeMetaImporter::recognise(ReadStream& stream) {
    try {
        return hasImageKeys(stream) ? 1.0 : 0.0;
    } catch (const VORN::StreamException&) {
        return 0.0; // too short even for the keys
    }
}

void NativeMetaImporter::readMetadata(Metadata& metadata) {
    metadata_ = readImageMetadata(stream());
    hasMetadata_ = true;
    metadata.assign(metadata_);
}

const ImageMetadata& NativeMetaImporter::takeMetadata() {
    if (!hasMetadata_)
        throw InsufficientMetaException{kNoOrigin,
                                        "Meta data not provided before attempting to read data. "};
    hasMetadata_ = false;
    return metadata_;
}

void NativeImporter::readData(DynamicBuffer& buffer) {
    const ImageMetadata& metadata = takeMetadata();
    const ImageFormatDescriptor layout{metadata};
    // Each channel has a slot of whole bytes within its pixel.
    const std::uint64_t sampleBytes = (std::uint64_t{metadata.type.bits} + 7) / 8;
    if (layout.pixelStride < metadata.channels * sampleBytes)
        throw SupportException{kNoOrigin, "non-byte-aligned pixels"};
    const auto stored = Deserializer{stream()}.get<std::uint32_t>();
    if (stored != layout.bytes())
        throw FormatException{kNoOrigin, "native",
                              "Expected " + std::to_string(layout.bytes()) + " sample bytes but " +
                                  std::to_string(stored) + " are stored. "};
    readSamples(stream(), stored, buffer);
}

} // namespace VORN::Migration
