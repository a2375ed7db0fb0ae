#pragma once

#include "core/Stream.h"

namespace VORN::Migration {

/// The two bytes before a zlib stream's data (RFC 1950, section 2.2), in their order.
struct ZlibHeader {
    static constexpr std::size_t kBytes = 2;

    std::uint8_t cmf = 0x78; // DEFLATE with a window of 32 KiB
    std::uint8_t flg = 0x01; // no preset dictionary, fastest compression

    /// Takes the next two bytes, whatever they are.
    static ZlibHeader read(ReadStream& in);
    /// Writes the two bytes.
    void write(WriteStream& out) const;
    /// What is wrong with it is a `FormatException` of the format "png", the only one that has one.
    void check() const;
};

/// The Adler-32 of what a zlib stream holds, which stands behind its data, most significant byte
/// first (RFC 1950, section 2.2).
struct ZlibChecksum {
    static constexpr std::size_t kBytes = 4;

    std::uint32_t value = 0;

    /// Takes the next four bytes; comparing is up to the caller.
    static ZlibChecksum read(ReadStream& in);
    /// Writes the four bytes.
    void write(WriteStream& out) const;
};

} // namespace VORN::Migration
