#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration {

/// A canonical Huffman code, given by the length of each symbol's code (RFC 1951, section 3.2.2).
///
/// Codes are 1 to 15 bits long; length 0 means that the symbol has none. Any set of lengths is
/// taken: codes that an incomplete set leaves over resolve to nothing, and those beyond the last
/// code of an oversubscribed length are never met.
class HuffmanCode {
public:
    static constexpr unsigned kMaximumBits = 15;
    static constexpr std::size_t kMaximumSymbols = 288;

    /// A symbol and the length of its code; 0 bits: there is no such code.
    struct Match {
        std::uint16_t symbol = 0;
        std::uint8_t bits = 0;
    };

    /// The code length of each symbol, at most `kMaximumSymbols` of 0 to `kMaximumBits` bits.
    explicit HuffmanCode(std::span<const std::uint8_t> lengths);

    /// The symbol whose code `window` begins with, bit 0 being the code's first bit. Goes bit by
    /// bit; `maximumBits` is the longest code that is looked for.
    Match resolve(std::uint32_t window, unsigned maximumBits = kMaximumBits) const;

    /// Calls `visit(code, match)` for every code that is `bits` long, bit 0 of `code` being its
    /// first bit.
    template <class Visit>
    void forEachCode(unsigned bits, Visit visit) const;

private:
    std::array<std::uint32_t, kMaximumBits + 1> firstCode_{};  // by length
    std::array<std::uint16_t, kMaximumBits + 1> firstIndex_{}; // by length, into `symbols_`
    std::array<std::uint16_t, kMaximumBits + 1> count_{};      // by length
    std::array<std::uint16_t, kMaximumSymbols> symbols_{};     // ordered by length, then value
};

/// Every byte with its bits in reverse order.
consteval std::array<std::uint8_t, 256> makeReversedBytes() {
    std::array<std::uint8_t, 256> reversed{};
    for (unsigned byte = 1; byte < reversed.size(); ++byte)
        reversed[byte] = static_cast<std::uint8_t>(reversed[byte / 2] / 2 + (byte & 1) * 128);
    return reversed;
}

/// `code`, `bits` long and at most 16, with its first bit made its last.
constexpr std::uint32_t reverseBits(std::uint32_t code, unsigned bits) {
    constexpr auto kReversed = makeReversedBytes();
    return (std::uint32_t{kReversed[code & 255]} << 8 | kReversed[code >> 8]) >> (16 - bits);
}

template <class Visit>
void HuffmanCode::forEachCode(unsigned bits, Visit visit) const {
    for (std::uint32_t i = 0; i < count_[bits] && firstCode_[bits] + i < 1U << bits; ++i)
        visit(reverseBits(firstCode_[bits] + i, bits),
              Match{symbols_[firstIndex_[bits] + i], static_cast<std::uint8_t>(bits)});
}

} // namespace VORN::Migration
