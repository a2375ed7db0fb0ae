#include "migration/jpeg/HuffmanTable.h"

#include "migration/jpeg/Headers.h"

#include <algorithm>
#include <numeric>
#include <span>

namespace VORN::Migration::JPEG {

HuffmanTable::HuffmanTable(Segment& segment) {
    const std::uint8_t classAndDestination = segment.byte();
    if (classAndDestination >> 4 > 1)
        refuse("Huffman table class out of range. ");
    class_ = static_cast<Class>(classAndDestination >> 4);
    destination_ = classAndDestination & 15;
    if (destination_ >= kTableDestinations)
        refuse("Huffman table destination out of range. ");
    std::ranges::copy(segment.bytes(counts_.size()), counts_.begin());
    const unsigned codes = std::accumulate(counts_.begin(), counts_.end(), 0U);
    if (codes == 0)
        refuse("Empty huffman table. ");
    const std::span<const std::uint8_t> symbols = segment.bytes(codes);
    symbols_.assign(symbols.begin(), symbols.end());
    isCode_ = assignCodes();
    if (isCode_)
        fillLookUp();
}

/// Gives each length its codes; returns whether there are enough of that length.
bool HuffmanTable::assignCodes() {
    std::uint32_t code = 0; // the next one of its length
    std::int32_t symbol = 0;
    for (unsigned length = 1; length <= kLongestCode; ++length) {
        code <<= 1;
        offsets_[length] = symbol - static_cast<std::int32_t>(code);
        code += counts_[length - 1];
        symbol += counts_[length - 1];
        if (code > 1U << length)
            return false;
        limits_[length] = code << (kLongestCode - length);
    }
    return true;
}

void HuffmanTable::fillLookUp() {
    std::uint32_t index = 0;
    unsigned symbol = 0;
    for (unsigned length = 1; length <= kLookUpBits; ++length)
        for (unsigned i = 0; i < counts_[length - 1]; ++i, ++symbol)
            for (unsigned rest = 0; rest < 1U << (kLookUpBits - length); ++rest, ++index) {
                lookUp_[index].symbol = symbols_[symbol];
                lookUp_[index].codeBits = length & 15;
                lookUp_[index].bits = length & 15;
                addNumber(index);
            }
}

/// Adds the number behind the code if all its bits are among those looked up.
void HuffmanTable::addNumber(std::uint32_t index) {
    Entry& entry = lookUp_[index];
    const unsigned size = class_ == Class::Dc ? entry.symbol : entry.symbol & 15U;
    const unsigned bits = entry.codeBits + size;
    if (size == 0 || bits > kLookUpBits)
        return;
    const unsigned number = index >> (kLookUpBits - bits) & ((1U << size) - 1);
    entry.value = static_cast<std::int16_t>(extend(number, size));
    entry.bits = bits & 15;
}

HuffmanTable::LongCode HuffmanTable::findLongCode(std::uint32_t next) const {
    for (unsigned length = kLookUpBits + 1; length <= kLongestCode; ++length) {
        if (next >= limits_[length])
            continue;
        const auto code = static_cast<std::int32_t>(next >> (kLongestCode - length));
        const std::int32_t index = code + offsets_[length];
        return {.symbol = symbols_[static_cast<std::size_t>(index)],
                .length = static_cast<std::uint8_t>(length)};
    }
    return {.symbol = 0, .length = 0};
}

void HuffmanTable::refuseCode(ByteUnstuffer bits) {
    bits.drop(kLongestCode);
    bits.refuse("Bits that are no huffman code. ");
}

} // namespace VORN::Migration::JPEG
