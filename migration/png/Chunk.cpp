#include "migration/png/Chunk.h"

#include "core/Exception.h"
#include "core/Serialization.h"

namespace VORN::Migration::PNG {

void refuse(std::string detail) { throw FormatException{kNoOrigin, "png", std::move(detail)}; }

ChunkWriter::ChunkWriter(WriteStream& out, const ChunkType& type, std::uint32_t length)
    : out_{&out} {
    out.write(toBigEndian(length));
    out.write(type);
    checksum_.update(type);
}

void ChunkWriter::write(std::span<const std::uint8_t> data) {
    checksum_.update(data);
    out_->write(data);
}

void ChunkWriter::finish() { out_->write(toBigEndian(checksum_.value())); }

} // namespace VORN::Migration::PNG
