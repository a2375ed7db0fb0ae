#include "migration/native/NativeImporter.h"

#include "core/Exception.h"
#include "migration/ImageMetadata.h"

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

} // namespace

double NativeMetaImporter::recognise(ReadStream& stream) {
    try {
        return hasImageKeys(stream) ? 1.0 : 0.0;
    } catch (const VORN::StreamException&) {
        return 0.0; // too short even for the keys
    }
}

void NativeMetaImporter::parseMetadata(Metadata& metadata) {
    Metadata texts;
    for (const auto& [key, value] : Deserializer{stream()}.getMap())
        texts.set(key, value);
    for (const std::string& key : ImageMetadata{}.keys())
        static_cast<void>(texts.get(key)); // has to be there
    metadata.assign(texts);
}

void NativeImporter::parseData(std::uint64_t bytes, DynamicBuffer& buffer) {
    const auto stored = Deserializer{stream()}.get<std::uint32_t>();
    if (stored != bytes)
        throw FormatException{kNoOrigin, "native",
                              "Expected " + std::to_string(bytes) + " sample bytes but " +
                                  std::to_string(stored) + " are stored. "};
    readSamples(stream(), stored, buffer);
}

} // namespace VORN::Migration
