#pragma once

#include "migration/deflate/DeflateTables.h"
#include "migration/deflate/HuffmanCode.h"

#include <algorithm>

namespace VORN::Migration {

/// What the next bits of compressed data stand for: a symbol or, as `kind` says, something else.
struct InflateEntry {
    /// What kind of symbol it is.
    enum Kind : std::uint8_t {
        LongCode, // not in the table: the code is too long for a look-up, or there is no such code
        OneLiteral,
        TwoLiterals,
        EndOfBlock,
        NoSymbol,   // bits that are no code, or the code of a reserved symbol
        Range = 16, // a length or distance; plus the length of the code, without the extra bits
    };

    std::uint16_t value = 0; // literals, the first in the low byte; or the range's first member
    std::uint8_t bits = 0;   // how many to drop, extra bits included
    std::uint8_t kind = LongCode; // a `Kind`

    /// Whether it is one or two literals.
    bool isLiteral() const { return kind - 1U < 2U; }
    /// The number of literals, if `isLiteral`.
    unsigned literals() const { return kind; }
    /// Whether it is a length or distance with extra bits.
    bool isRange() const { return kind >= Range; }
    /// The length or distance itself; `low` is the next `bits` bits of the data.
    std::size_t member(std::uint32_t low) const { return value + (low >> (kind - Range)); }
};

/// The entry of a symbol of the literal and length code, or of bits that are no code.
InflateEntry literalEntry(HuffmanCode::Match match);
/// The entry of a symbol of the distance code, or of bits that are no code.
InflateEntry distanceEntry(HuffmanCode::Match match);

/// Resolves codes of up to `Bits` bits by one look-up, longer ones bit by bit.
template <unsigned Bits, InflateEntry (*entryOf)(HuffmanCode::Match)>
class InflateTable {
public:
    static constexpr unsigned kBits = Bits;

    /// Builds the table from the length of each symbol's code.
    ///
    /// The table for look-ups of one more bit is twice the table before it, one copy behind the
    /// other, plus the codes of exactly that length. So each code is entered only once, and a table
    /// of few symbols costs little more than copying it. That matters as a stream may have millions
    /// of blocks.
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

    /// The entry in the table; only the low `Bits` bits of `window` are used.
    InflateEntry lookUp(std::uint32_t window) const { return entries_[window % entries_.size()]; }
    /// The entry, never a `LongCode`; `window` has at least `HuffmanCode::kMaximumBits` bits.
    InflateEntry find(std::uint32_t window) const {
        const InflateEntry entry = lookUp(window);
        return entry.kind != InflateEntry::LongCode ? entry : entryOf(code_.resolve(window));
    }

protected:
    HuffmanCode code_;
    std::array<InflateEntry, std::size_t{1} << Bits> entries_; // by the next bits, bit 0 first
};

/// The table of the literal and length code.
class LiteralTable : public InflateTable<11, literalEntry> {
public:
    using InflateTable::InflateTable;

    /// Joins entries: from now on a look-up gives two literals at once if both codes fit it. This
    /// takes as long as it saves in some hundred symbols, so it does not pay off for short blocks.
    void pairLiterals();
};

/// The table of the distance code.
using DistanceTable = InflateTable<9, distanceEntry>;

} // namespace VORN::Migration
