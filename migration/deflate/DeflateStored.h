#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"

namespace VORN::Migration {

/// Packs the bytes written to it into a DEFLATE stream of stored blocks, that is, uncompressed (RFC
/// 1951, section 3.2.4).
///
/// Every block but the last holds `kBlockBytes` bytes. Deliberately, no bytes at all make no block,
/// not even a final one.
class DeflateStored : public WriteStream {
public:
    static constexpr std::uint64_t kBlockBytes = 65535;

    /// A writer of a stream of exactly `bytes` bytes. `out` is borrowed and must outlive the
    /// writer.
    DeflateStored(WriteStream& out, std::uint64_t bytes) : out_{&out}, left_{bytes} {}

    /// No more bytes may be written in all than were announced.
    void write(std::span<const std::uint8_t> source) override;

    /// The size of the DEFLATE stream of `bytes` bytes, which are fewer than 2^63.
    static std::uint64_t streamBytes(std::uint64_t bytes);

private:
    void beginBlock();

    WriteStream* out_;
    std::uint64_t left_;          // bytes still to be written
    std::uint64_t blockLeft_ = 0; // how many of them belong to the present block
};

/// Writes all of `input` as a DEFLATE stream of stored blocks; empty input writes nothing at all.
void deflateStored(const Buffer& input, WriteStream& out);

} // namespace VORN::Migration
