#include "migration/ReadSamples.h"

#include <algorithm>

namespace VORN::Migration {

void readSamples(ReadStream& in, std::uint64_t count, DynamicBuffer& buffer) {
    constexpr std::uint64_t kFirstPieceBytes = std::uint64_t{1} << 20;
    std::uint64_t size = 0;
    buffer.resize(0);
    while (size < count) {
        // At most as much again as there is already.
        const std::uint64_t piece = std::min(count - size, std::max(size, kFirstPieceBytes));
        buffer.resize(size + piece);
        in.read(buffer.writableData().subspan(static_cast<std::size_t>(size)));
        size += piece;
    }
}

} // namespace VORN::Migration
