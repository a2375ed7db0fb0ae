#pragma once

#include "migration/deflate/DeflateTables.h"
#include "migration/deflate/HuffmanCode.h"

#include <algorithm>

namespace VORN::Migration {

/// What the next bits of compressed data stand for.
struct InflateEntry {
    enum Kind : std::uint8_t {
        LongCode, // not in the table: the code is longer than the look-up, or there is none
        OneLiteral,
        TwoLiterals,
        EndOfBlock,
        NoSymbol,   // a code that is none, or that of a reserved symbol
        Range = 16, // plus the bits of the code alone, which are followed by those of the offset
    };

    std::uint16_t value = 0;      // literals, the first in the low byte; or the begin of the range
    std::uint8_t bits = 0;        // what to drop, offset included
    std::uint8_t kind = LongCode; // of `Kind`

    bool isLiteral() const { return kind - 1U < 2U; }
    unsigned literals() const { return kind; }
    bool isRange() const { return kind >= Range; }
    /// The member of the range that the first `bits` bits of the data, `low`, select.
    std::size_t member(std::uint32_t low) const { return value + (low >> (kind - Range)); }
};

InflateEntry literalEntry(HuffmanCode::Match match);
InflateEntry distanceEntry(HuffmanCode::Match match);

/// Resolves codes of up to `Bits` bits by one look-up, longer ones bit by bit.
template <unsigned Bits, InflateEntry (*entryOf)(HuffmanCode::Match)>
class InflateTable {
public:
    static constexpr unsigned kBits = Bits;

    /// `lengths` are those of the symbols' codes.
    ///
    /// The table for one bit more is the table before it, twice, but for the codes that end there.
    /// So each code is put into one place only, and a table for few symbols costs little more than
    /// a copy of it: a stream may have millions of blocks.
    explicit InflateTable(std::span<const std::uint8_t> lengths) : code_{lengths} {
        entries_[0] = {};
        for (unsigned bits = 1; bits <= Bits; ++bits) {
            const std::size_t half = std::size_t{1} << (bits - 1);
            std::copy_n(entries_.begin(), half, entries_.begin() + half);
            code_.forEachCode(bits, [this](std::uint32_t code, HuffmanCode::Match match) {
                entries_[code] = entryOf(match);
            });
        }
    }

    /// The look-up alone; what lies beyond the low `Bits` bits of `window` does not matter.
    InflateEntry lookUp(std::uint32_t window) const { return entries_[window % entries_.size()]; }
    /// Never a `LongCode`; `window` holds at least `HuffmanCode::kMaximumBits` bits.
    InflateEntry find(std::uint32_t window) const {
        const InflateEntry entry = lookUp(window);
        return entry.kind != InflateEntry::LongCode ? entry : entryOf(code_.resolve(window));
    }

protected:
    HuffmanCode code_;
    std::array<InflateEntry, std::size_t{1} << Bits> entries_; // by the next bits, bit 0 first
};

class LiteralTable : public InflateTable<11, literalEntry> {
public:
    using InflateTable::InflateTable;

    /// From now on two literals are handed out at once where both codes fit the look-up. That costs
    /// as much as some hundred symbols save, so it is nothing for short blocks.
    void pairLiterals();
};

using DistanceTable = InflateTable<9, distanceEntry>;

} // namespace VORN::Migration
