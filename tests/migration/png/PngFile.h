#pragma once

#include "core/Crc32.h"
#include "core/Serialization.h"
#include "tests/Bytes.h"

#include <string>

namespace VORN::Migration {

inline Bytes chunk(const std::string& type, const Bytes& data) {
    Bytes bytes = bytesOf(type);
    append(bytes, data);
    Crc32 checksum;
    checksum.update(bytes);
    Bytes whole;
    append(whole, toBigEndian(static_cast<std::uint32_t>(data.size())));
    append(whole, bytes);
    append(whole, toBigEndian(checksum.value()));
    return whole;
}

inline Bytes header(std::uint32_t width, std::uint32_t height, std::uint8_t depth,
                    std::uint8_t type, std::uint8_t compression = 0, std::uint8_t filter = 0,
                    std::uint8_t interlace = 0) {
    Bytes data;
    append(data, toBigEndian(width));
    append(data, toBigEndian(height));
    append(data, std::array{depth, type, compression, filter, interlace});
    return chunk("IHDR", data);
}

inline Bytes png(const std::vector<Bytes>& chunks) {
    Bytes file = bytesOf("\x89PNG\r\n\x1A\n");
    for (const Bytes& bytes : chunks)
        append(file, bytes);
    return file;
}

/// Packs the digits in the order in which DEFLATE reads them, behind `bytes`; blanks only separate.
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

} // namespace VORN::Migration
