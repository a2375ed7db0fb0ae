#pragma once

#include "core/Exception.h"
#include "tests/migration/Codecs.h"

#include <fstream>
#include <iterator>

namespace VORN {

/// The bytes of a file below `tests/data`.
inline Bytes fixture(const std::string& name) {
    std::ifstream in{KAVRIN_TEST_DATA "/" + name, std::ios::binary};
    if (!in)
        throw AccessException{kNoOrigin, name, "it is not there"};
    return Bytes(std::istreambuf_iterator<char>{in}, {});
}

namespace Migration {

constexpr const char* kBits = "1-bit unsigned little endian";
constexpr const char* kBytes = "8-bit unsigned little endian";
constexpr const char* kWords = "16-bit unsigned little endian";

inline ImageMetadata described(std::uint32_t width, std::uint32_t height, std::uint32_t channels,
                               const std::string& type = kBytes, const std::string& format = "RGBA",
                               std::uint32_t pixelAlignment = 0, std::uint32_t lineAlignment = 0) {
    ImageMetadata metadata;
    metadata.width = width;
    metadata.height = height;
    metadata.channels = channels;
    metadata.set("Type", type);
    metadata.set("Format", format);
    metadata.pixelAlignment = pixelAlignment;
    metadata.lineAlignment = lineAlignment;
    return metadata;
}

/// The same as texts only.
inline Metadata textsOf(const ImageMetadata& metadata) {
    Metadata texts;
    texts.assign(metadata);
    return texts;
}

} // namespace Migration
} // namespace VORN
