#pragma once

#include "core/Stream.h"

#include <vector>

namespace VORN {

/// Copies bytes from a source to a sink in chunks of a fixed size.
class StreamPump {
public:
    /// `chunkBytes` is at least 1.
    explicit StreamPump(std::size_t chunkBytes) : chunkBytes_{chunkBytes} {}

    /// The streams are borrowed and must outlive every call of `pump`.
    void setSource(ReadStream* source) { source_ = source; }
    void setSink(WriteStream* sink) { sink_ = sink; }

    /// Copies `count` bytes; a source or sink that is not set is an `UninitializedException`.
    /// The sink is not flushed.
    void pump(std::uint64_t count);

private:
    std::size_t chunkBytes_;
    std::vector<std::uint8_t> chunk_;
    ReadStream* source_ = nullptr;
    WriteStream* sink_ = nullptr;
};

} // namespace VORN
