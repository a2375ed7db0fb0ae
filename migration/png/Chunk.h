#pragma once

#include "core/Crc32.h"
#include "core/Stream.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// What reading and writing PNG share (ISO/IEC 15948).
namespace VORN::Migration::PNG {

/// How every file begins (PNG, clause 5.2).
inline constexpr std::array<std::uint8_t, 8> kSignature{
    0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
};

/// The four letters that say what a chunk holds.
using ChunkType = std::array<std::uint8_t, 4>;

/// The chunk types that matter.
inline constexpr std::string_view kChunkTypes = "IHDRPLTEIDATIEND";

/// The `index`th of them.
consteval ChunkType chunkType(std::size_t index) {
    ChunkType type{};
    std::copy_n(kChunkTypes.begin() + 4 * index, type.size(), type.begin());
    return type;
}

inline constexpr ChunkType kHeader = chunkType(0);
inline constexpr ChunkType kPalette = chunkType(1);
inline constexpr ChunkType kData = chunkType(2);
inline constexpr ChunkType kEnd = chunkType(3);

/// Throws the `FormatException` of the format "png".
[[noreturn]] void refuse(std::string detail);

/// Writes one chunk (PNG, clause 5.3), its data as it comes.
class ChunkWriter : public WriteStream {
public:
    /// Begins the chunk: exactly `length` bytes of data have to be written before `finish`. `out`
    /// is borrowed and must outlive the writer.
    ChunkWriter(WriteStream& out, const ChunkType& type, std::uint32_t length);

    void write(std::span<const std::uint8_t> data) override;
    /// Ends the chunk with its checksum.
    void finish();

private:
    WriteStream* out_;
    Crc32 checksum_; // of type and data
};

} // namespace VORN::Migration::PNG
