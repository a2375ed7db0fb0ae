#pragma once

#include "core/Crc32.h"
#include "core/Stream.h"
#include "migration/png/PNG.h"

namespace VORN::Migration::PNG {

/// Writes one chunk (PNG, clause 5.3), its data as it comes.
class ChunkWriter : public WriteStream {
public:
    /// Begins the chunk: exactly `length` bytes of data have to
    /// be written before `finish`. `out` is borrowed and must outlive the writer.
    ChunkWriter(WriteStream& out, const ChunkType& type, std::uint32_t length);

    void write(std::span<const std::uint8_t> data) override;
    void finish();

private:
    WriteStream* out_;
    Crc32 checksum_; // of type and data
};

} // namespace VORN::Migration::PNG
