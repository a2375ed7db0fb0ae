#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration {

/// A canonical Huffman code, given by the length of each symbol's code (RFC 1951, section 3.2.2).
///
/// Codes are 1 to 15 bits long; length 0 means that a symbol has no code. Any set of lengths is
/// accepted. In an incomplete set some codes stand for no symbol; in one with more codes than their
/// length has room for, the surplus codes cannot occur in the data.
class HuffmanCode {
public:
    static constexpr unsigned kMaximumBits = 15;
    static constexpr std::size_t kMaximumSymbols = 288;

    /// A symbol and the length of its code; 0 bits mean that there is no such code.
    struct Match {
        std::uint16_t symbol = 0;
        std::uint8_t bits = 0;
    };

    /// `lengths` has the code length of each symbol: at most `kMaximumSymbols` of them, each 0 to
    /// `kMaximumBits`.
    explicit HuffmanCode(std::span<const std::uint8_t> lengths);

    /// The symbol whose code stands at the beginning of `window`; bit 0 is the code's first bit.
    /// Goes bit by bit. Codes longer than `maximumBits` are not found.
    Match resolve(std::uint32_t window, unsigned maximumBits = kMaximumBits) const;

    /// Calls `visit(code, match)` for every code of `bits` bits; bit 0 of `code` is its first bit.
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

/// `code`, which is `bits` long and at most 16, with its bits in reverse order.
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
