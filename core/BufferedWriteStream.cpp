#include "core/BufferedWriteStream.h"

#include <algorithm>

namespace VORN {

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

} // namespace VORN
