#pragma once

#include "core/Stream.h"

namespace VORN::Migration {

/// The two bytes before a zlib stream's data (RFC 1950, section 2.2), in their order.
struct ZlibHeader {
    static constexpr std::size_t kBytes = 2;

    std::uint8_t cmf = 0x78; // DEFLATE with a window of 32 KiB
    std::uint8_t flg = 0x01; // no preset dictionary, fastest compression

    /// Reads the next two bytes without checking them.
    static ZlibHeader read(ReadStream& in);
    /// Writes the two bytes.
    void write(WriteStream& out) const;
    /// Throws `FormatException` if a field is wrong; its format is "png", the only one with zlib
    /// streams.
    void check() const;
};

/// The Adler-32 of a zlib stream's decoded bytes, which stands behind the compressed data, most
/// significant byte first (RFC 1950, section 2.2).
struct ZlibChecksum {
    static constexpr std::size_t kBytes = 4;

    std::uint32_t value = 0;

    /// Reads the next four bytes; comparing is up to the caller.
    static ZlibChecksum read(ReadStream& in);
    /// Writes the four bytes.
    void write(WriteStream& out) const;
};

} // namespace VORN::Migration
