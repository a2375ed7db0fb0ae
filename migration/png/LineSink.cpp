#include "migration/png/LineSink.h"

#include "core/Exception.h"
#include "migration/png/Chunk.h"
#include "migration/png/Unfilter.h"

#include <algorithm>

namespace VORN::Migration::PNG {

LineSink::LineSink(std::span<std::uint8_t> picture, std::uint64_t lineBytes, std::uint32_t lines,
                   std::size_t pixelBytes, const char* sizeMismatch)
    : picture_{picture},
      lineBytes_{lineBytes},
      linesLeft_{lines},
      pixelBytes_{pixelBytes},
      sizeMismatch_{sizeMismatch} {}

void LineSink::write(std::span<const std::uint8_t> data) {
    checksum_.update(data);
    if (linesLeft_ * lineBytes_ > picture_.size())
        return; // it cannot become complete
    while (!data.empty() && linesLeft_ > 0)
        data = fillLine(data);
    surplus_ += data.size();
    if (surplus_ > kLargestSurplus)
        refuse(sizeMismatch_);
}

/// Takes what the current line lacks; returns what is left of `data`, which is not empty.
std::span<const std::uint8_t> LineSink::fillLine(std::span<const std::uint8_t> data) {
    if (filled_ == 0) {
        filter_ = data.front();
        data = data.subspan(1);
        filled_ = 1;
    }
    const auto at = static_cast<std::size_t>(filled_ - 1);
    const std::span<std::uint8_t> missing = currentLine().subspan(at);
    const std::size_t piece = std::min(data.size(), missing.size());
    std::ranges::copy(data.first(piece), missing.begin());
    filled_ += piece;
    if (filled_ - 1 == lineBytes_)
        finishLine();
    return data.subspan(piece);
}

void LineSink::checkComplete() const {
    if (linesLeft_ != 0 || surplus_ != 0)
        refuse(sizeMismatch_);
    if (badFilter_)
        throw BoundException<unsigned>{kNoOrigin, *badFilter_, kFilterTypes};
}

std::span<std::uint8_t> LineSink::currentLine() const {
    const auto lineBytes = static_cast<std::size_t>(lineBytes_); // the picture has been allocated
    return picture_.subspan(static_cast<std::size_t>(linesLeft_ - 1) * lineBytes, lineBytes);
}

void LineSink::finishLine() {
    if (prior_.empty()) {
        zeros_.resize(currentLine().size());
        prior_ = zeros_;
    }
    if (filter_ >= kFilterTypes && !badFilter_)
        badFilter_ = filter_;
    const std::span<std::uint8_t> line = currentLine();
    if (!badFilter_)
        unfilterLine(filter_, line, prior_, pixelBytes_);
    prior_ = line;
    --linesLeft_;
    filled_ = 0;
}

} // namespace VORN::Migration::PNG
