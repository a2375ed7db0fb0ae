#include "migration/deflate/DeflateStored.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace VORN::Migration {

namespace {

constexpr std::size_t kBlockHeaderBytes = 5; // three bits, padded to a byte, and both lengths

} // namespace

void DeflateStored::write(std::span<const std::uint8_t> source) {
    assert(source.size() <= left_);
    while (!source.empty()) {
        if (blockLeft_ == 0)
            beginBlock();
        const auto piece =
            static_cast<std::size_t>(std::min<std::uint64_t>(source.size(), blockLeft_));
        out_->write(source.first(piece));
        source = source.subspan(piece);
        blockLeft_ -= piece;
        left_ -= piece;
    }
}

void DeflateStored::beginBlock() {
    blockLeft_ = std::min(left_, kBlockBytes);
    const bool isLast = blockLeft_ == left_;
    const auto length = static_cast<std::uint16_t>(blockLeft_);
    const auto complement = static_cast<std::uint16_t>(~length);
    out_->write(std::array<std::uint8_t, kBlockHeaderBytes>{
        isLast, // block type 0 above it
        static_cast<std::uint8_t>(length), static_cast<std::uint8_t>(length >> 8),
        static_cast<std::uint8_t>(complement), static_cast<std::uint8_t>(complement >> 8)});
}

std::uint64_t DeflateStored::streamBytes(std::uint64_t bytes) {
    return bytes + (bytes + kBlockBytes - 1) / kBlockBytes * kBlockHeaderBytes;
}

void deflateStored(const Buffer& input, WriteStream& out) {
    DeflateStored{out, input.size()}.write(input.data());
}

} // namespace VORN::Migration
