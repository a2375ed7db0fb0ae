#pragma once

#include "core/Crc32.h"
#include "migration/DataImporter.h"
#include "migration/png/PNG.h"

#include <optional>

namespace VORN::Migration {

/// Reads PNG pictures that are not interlaced: grey, grey with alpha, RGB and RGBA with 8 or 16
/// bits a sample, and indices of 8 bits, which become RGB.
///
/// Ancillary chunks are skipped, transparency included; an index beyond the palette is black.
class PNGImporter : public DataImporter {
public:
    /// A violation is a `FormatException` of the format "png" or, in compressed data, "deflate", a
    /// feature that is missing here a `SupportException`, and a filter that does not exist a
    /// `BoundException<unsigned int>`. `metadata` is set once all chunks have been read.
    ///
    /// Memory grows with the data read: beside the picture only its compressed data is kept.
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override;

private:
    /// Red, green and blue of each index; black where the file gives none.
    using Palette = std::array<std::uint8_t, 3 * 256>;

    struct Chunk {
        PNG::ChunkType type{};
        std::uint32_t length = 0;
    };

    void readSignature();
    Chunk readChunk();
    void readData(IncrementalBuffer& into, std::uint64_t kept, std::uint32_t length);
    std::uint32_t readNumber();

    bool takeChunk(const Chunk& chunk);
    void takeHeader();
    void takePalette(const Chunk& chunk);
    void checkEnd(const Chunk& chunk) const;

    void decode(DynamicBuffer& buffer, const ImageMetadata& metadata);
    void decodeLines(DynamicBuffer& buffer, std::uint64_t lineBytes, std::size_t pixelBytes,
                     const char* sizeMismatch);
    void expandPalette(DynamicBuffer& buffer) const;

    Crc32 checksum_;               // of the chunk that is being read
    IncrementalBuffer data_;       // of the chunk read last, as far as it can matter
    IncrementalBuffer compressed_; // the data of all IDAT chunks
    PNG::IHDR header_;             // the last one
    std::optional<Palette> palette_;
};

} // namespace VORN::Migration
