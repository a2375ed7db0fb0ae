#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"

namespace VORN::Migration {

/// Writes what is written to it as a DEFLATE stream of stored blocks (RFC 1951, section 3.2.4).
///
/// Every block but the last holds `kBlockBytes`. No bytes at all give no block, not even a final
/// one, deliberately.
class DeflateStored : public WriteStream {
public:
    static constexpr std::uint64_t kBlockBytes = 65535;

    /// Exactly `bytes` bytes have to be written. `out` is borrowed and must outlive the writer.
    DeflateStored(WriteStream& out, std::uint64_t bytes) : out_{&out}, left_{bytes} {}

    void write(std::span<const std::uint8_t> source) override;

    /// The size of the stream that holds `bytes` bytes, which are less than 2^63.
    static std::uint64_t streamBytes(std::uint64_t bytes);

private:
    void beginBlock();

    WriteStream* out_;
    std::uint64_t left_;          // of all bytes
    std::uint64_t blockLeft_ = 0; // of the block that was begun
};

/// Writes all of `input` as a DEFLATE stream of stored blocks; an empty one writes nothing at all.
void deflateStored(const Buffer& input, WriteStream& out);

} // namespace VORN::Migration
