#include "migration/deflate/HuffmanCode.h"

namespace VORN::Migration {

HuffmanCode::HuffmanCode(std::span<const std::uint8_t> lengths) {
    for (const std::uint8_t length : lengths)
        ++count_[length];
    count_[0] = 0;
    for (unsigned bits = 1; bits <= kMaximumBits; ++bits) {
        firstCode_[bits] = (firstCode_[bits - 1] + count_[bits - 1]) << 1;
        firstIndex_[bits] = static_cast<std::uint16_t>(firstIndex_[bits - 1] + count_[bits - 1]);
    }
    auto index = firstIndex_;
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol)
        if (lengths[symbol] != 0)
            symbols_[index[lengths[symbol]]++] = static_cast<std::uint16_t>(symbol);
}

HuffmanCode::Match HuffmanCode::resolve(std::uint32_t window, unsigned maximumBits) const {
    std::uint32_t code = 0;
    for (unsigned bits = 1; bits <= maximumBits; ++bits, window >>= 1) {
        code = code << 1 | (window & 1);
        if (code >= firstCode_[bits] && code - firstCode_[bits] < count_[bits])
            return {symbols_[firstIndex_[bits] + (code - firstCode_[bits])],
                    static_cast<std::uint8_t>(bits)};
    }
    return {};
}

} // namespace VORN::Migration
