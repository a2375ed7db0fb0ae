#pragma once

#include "core/BufferStream.h"
#include "core/Exception.h"
#include "migration/DataExporter.h"
#include "migration/DataImporter.h"
#include "migration/ImageMetadata.h"

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace VORN {

using Bytes = std::vector<std::uint8_t>;

/// The bytes of a file below `tests/data`.
inline Bytes fixture(const std::string& name) {
    std::ifstream in{KAVRIN_TEST_DATA "/" + name, std::ios::binary};
    if (!in)
        throw AccessException{kNoOrigin, name, "it is not there"};
    return Bytes(std::istreambuf_iterator<char>{in}, {});
}

inline Bytes bytesOf(const Buffer& buffer) { return {buffer.data().begin(), buffer.data().end()}; }
inline Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

inline void append(Bytes& bytes, std::span<const std::uint8_t> more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

/// Packs the digits in the order in which DEFLATE reads them; blanks only separate.
inline Bytes packed(const std::string& digits, Bytes bytes = {}) {
    unsigned filled = 0;
    for (const char digit : digits) {
        if (digit == ' ')
            continue;
        if (filled++ % 8 == 0)
            bytes.push_back(0);
        bytes.back() = static_cast<std::uint8_t>(bytes.back() | (digit - '0') << (filled - 1) % 8);
    }
    return bytes;
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

struct Picture {
    ImageMetadata metadata;
    Bytes samples;
};

inline Picture imported(DataImporter& importer, std::span<const std::uint8_t> file) {
    const BorrowConstBuffer bytes{file};
    ConstBufferStream stream{bytes};
    importer.setStream(&stream);
    Picture picture;
    IncrementalBuffer samples;
    importer.importImage(samples, picture.metadata);
    picture.samples = bytesOf(samples);
    return picture;
}

template <class Importer>
Picture imported(std::span<const std::uint8_t> file) {
    Importer importer;
    return imported(importer, file);
}

/// Writes the file, of which a part is there when the exporter refuses the picture.
template <class Exporter>
void exportTo(IncrementalBuffer& file, const Bytes& samples, const Metadata& metadata) {
    BufferStream stream{file};
    Exporter exporter;
    exporter.setStream(&stream);
    exporter.exportImage(BorrowConstBuffer{samples}, metadata);
}

} // namespace Migration
} // namespace VORN
