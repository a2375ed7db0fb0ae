#include "core/StreamPump.h"

#include "core/Exception.h"

#include <algorithm>

namespace VORN {

void StreamPump::pump(std::uint64_t count) {
    if (source_ == nullptr)
        throw UninitializedException{kNoOrigin, "Stream pump source"};
    if (sink_ == nullptr)
        throw UninitializedException{kNoOrigin, "Stream pump sink"};
    chunk_.resize(chunkBytes_);
    while (count > 0) {
        const auto piece = static_cast<std::size_t>(std::min<std::uint64_t>(count, chunkBytes_));
        const std::span part = std::span{chunk_}.first(piece);
        source_->read(part);
        sink_->write(part);
        count -= piece;
    }
}

} // namespace VORN
