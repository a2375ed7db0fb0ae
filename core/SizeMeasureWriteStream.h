#pragma once

#include "core/Stream.h"

namespace VORN {

/// Counts the bytes written to it and keeps none of them.
class SizeMeasureWriteStream : public WriteStream {
public:
    void write(std::span<const std::uint8_t> source) override { size_ += source.size(); }
    std::uint64_t size() const { return size_; }

private:
    std::uint64_t size_ = 0;
};

} // namespace VORN
