#pragma once

#include "core/Crc32.h"
#include "core/Exception.h"
#include "core/Serialization.h"
#include "core/Stream.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

/// What reading and writing PNG share (ISO/IEC 15948).
namespace VORN::Migration::PNG {

/// How every file begins (PNG, clause 5.2).
inline constexpr std::array<std::uint8_t, 8> kSignature{
    0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
};

/// The four letters that say what a chunk holds.
using ChunkType = std::array<std::uint8_t, 4>;

/// The types of chunks that the program knows, one behind the other.
inline constexpr std::string_view kChunkTypes = "IHDRPLTEIDATIEND";

/// The type number `index` in `kChunkTypes`.
consteval ChunkType chunkType(std::size_t index) {
    ChunkType type{};
    std::copy_n(kChunkTypes.begin() + 4 * index, type.size(), type.begin());
    return type;
}

/// The image header, the first chunk (PNG, clause 11.2.2).
inline constexpr ChunkType kHeader = chunkType(0);
/// The colours of a picture with indices (PNG, clause 11.2.3).
inline constexpr ChunkType kPalette = chunkType(1);
/// A piece of the compressed picture (PNG, clause 11.2.4).
inline constexpr ChunkType kData = chunkType(2);
/// The end of the file (PNG, clause 11.2.5).
inline constexpr ChunkType kEnd = chunkType(3);

/// Throws the `FormatException` of "png"; `detail` says what is wrong.
[[noreturn]] inline void refuse(std::string detail) {
    throw FormatException{kNoOrigin, "png", std::move(detail)};
}

/// Writes one chunk (PNG, clause 5.3), piece by piece.
class ChunkWriter : public WriteStream {
public:
    /// Begins the chunk. Exactly `length` bytes of data must be written before `finish`. `out` is
    /// borrowed and must outlive the writer.
    ChunkWriter(WriteStream& out, const ChunkType& type, std::uint32_t length) : out_{&out} {
        out.write(toBigEndian(length));
        out.write(type);
        checksum_.update(type);
    }

    void write(std::span<const std::uint8_t> data) override {
        checksum_.update(data);
        out_->write(data);
    }
    /// Ends the chunk with its checksum.
    void finish() { out_->write(toBigEndian(checksum_.value())); }

private:
    WriteStream* out_;
    Crc32 checksum_; // of type and data
};

} // namespace VORN::Migration::PNG
