#include "core/Stream.h"

#include "core/Exception.h"

#include <algorithm>

namespace VORN {

void ReadStream::skip(std::uint64_t count) {
    std::uint8_t byte = 0;
    for (; count > 0; --count)
        read({&byte, 1});
}

void ReadStream::skip(std::uint64_t count, std::size_t chunk) {
    std::vector<std::uint8_t> scratch(
        static_cast<std::size_t>(std::min<std::uint64_t>(count, chunk)));
    while (count > 0) {
        const auto piece = static_cast<std::size_t>(std::min<std::uint64_t>(count, chunk));
        read(std::span{scratch}.first(piece));
        count -= piece;
    }
}

std::size_t ReadStream::readSome(std::span<std::uint8_t> destination) {
    if (destination.empty() || atEnd())
        return 0;
    read(destination.first(1));
    return 1;
}

void WriteStream::flush() {}

void BufferedWriteStream::write(std::span<const std::uint8_t> source) {
    while (!source.empty()) {
        const std::size_t piece = std::min(source.size(), kPieceBytes - pending_.size());
        pending_.insert(pending_.end(), source.begin(),
                        source.begin() + static_cast<std::ptrdiff_t>(piece));
        source = source.subspan(piece);
        if (pending_.size() == kPieceBytes)
            handOn();
    }
}

void BufferedWriteStream::flush() {
    handOn();
    out_->flush();
}

void BufferedWriteStream::handOn() {
    out_->write(pending_);
    pending_.clear();
}

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
