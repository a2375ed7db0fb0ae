#include "migration/deflate/InflateTable.h"

namespace VORN::Migration {

namespace {

/// A code that is none is noticed when it is longer than any.
InflateEntry noSymbolEntry(HuffmanCode::Match match) {
    constexpr std::uint8_t kLongest = HuffmanCode::kMaximumBits;
    return {0, match.bits != 0 ? match.bits : kLongest, InflateEntry::NoSymbol};
}

InflateEntry rangeEntry(const ExtraBitsCode& code, unsigned codeBits) {
    return {code.base, static_cast<std::uint8_t>(codeBits + code.extraBits),
            static_cast<std::uint8_t>(InflateEntry::Range + codeBits)};
}

} // namespace

InflateEntry literalEntry(HuffmanCode::Match match) {
    if (match.bits == 0 || match.symbol >= kFirstLength + kLengthCodes.size())
        return noSymbolEntry(match);
    if (match.symbol >= kFirstLength)
        return rangeEntry(kLengthCodes[match.symbol - kFirstLength], match.bits);
    return {match.symbol, match.bits,
            match.symbol == kEndOfBlock ? InflateEntry::EndOfBlock : InflateEntry::OneLiteral};
}

InflateEntry distanceEntry(HuffmanCode::Match match) {
    if (match.bits == 0 || match.symbol >= kDistanceCodes.size())
        return noSymbolEntry(match);
    return rangeEntry(kDistanceCodes[match.symbol], match.bits);
}

void LiteralTable::pairLiterals() {
    // Downwards: what an entry is combined with stands below it and is still a single one.
    for (std::size_t i = entries_.size(); i-- > 0;) {
        InflateEntry& first = entries_[i];
        if (first.kind != InflateEntry::OneLiteral)
            continue;
        const InflateEntry second = entries_[i >> first.bits];
        if (second.kind == InflateEntry::OneLiteral && first.bits + second.bits <= int{kBits})
            first = {static_cast<std::uint16_t>(first.value | second.value << 8),
                     static_cast<std::uint8_t>(first.bits + second.bits),
                     InflateEntry::TwoLiterals};
    }
}

} // namespace VORN::Migration
