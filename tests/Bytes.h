#pragma once

#include "core/BufferStream.h"

#include <span>
#include <string_view>
#include <vector>

namespace VORN {

using Bytes = std::vector<std::uint8_t>;

inline Bytes bytesOf(const Buffer& buffer) { return {buffer.data().begin(), buffer.data().end()}; }
inline Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

inline void append(Bytes& bytes, std::span<const std::uint8_t> more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

/// What `write`, called with a stream, writes to it.
template <class Write>
Bytes written(Write write) {
    IncrementalBuffer bytes;
    BufferStream out{bytes};
    write(out);
    return bytesOf(bytes);
}

} // namespace VORN
