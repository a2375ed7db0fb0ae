#pragma once

#include "migration/jpeg/ByteUnstuffer.h"
#include "migration/jpeg/Segment.h"

#include <array>
#include <cstdint>
#include <vector>

namespace VORN::Migration::JPEG {

/// Turns `size` bits, 0 to 16, into the signed number they stand for (ITU-T T.81, figure F.12).
constexpr int extend(unsigned bits, unsigned size) {
    const bool isNegative = size > 0 && bits >> (size - 1) == 0;
    return static_cast<int>(bits) - (isNegative ? (1 << size) - 1 : 0);
}

/// A canonical Huffman code (ITU-T T.81, clause B.2.4.2 and annex C).
///
/// Codes of up to `kLookUpBits` bits are found by one look-up, together with the signed number of
/// extra bits behind them if all fits; longer ones by the first code of each length. Benchmark
/// JPEGEntropy: 3.2 ns a coefficient, against 18 ns bit by bit.
class HuffmanTable {
public:
    enum class Class : std::uint8_t { Dc = 0, Ac = 1 };

    static constexpr unsigned kLookUpBits = 10;

    struct RunAndValue {
        unsigned run; // 0 to 15
        int value;
    };

    /// Reads one of the tables of a segment. One without codes is a `FormatException`; one with
    /// more codes than their lengths allow has `isCode` false and must not be decoded with.
    explicit HuffmanTable(Segment& segment);

    Class tableClass() const { return class_; }
    std::uint8_t destination() const { return destination_; }
    /// Whether no code is the beginning of another one.
    bool isCode() const { return isCode_; }

    // The following make the bits ready that they need. Bits that are no code, and sizes that 8-bit
    // samples do not have (ITU-T T.81, tables F.1 and F.2), are a `FormatException`.

    /// The difference of two DC coefficients.
    std::int16_t takeDifference(ByteUnstuffer& bits) const {
        const Entry entry = takeEntry(bits);
        if (entry.value != 0)
            return entry.value;
        if (entry.symbol > kMostDcBits)
            bits.refuse("More than 11 DC extend bits encountered. ");
        return static_cast<std::int16_t>(extend(bits.take(entry.symbol), entry.symbol));
    }
    /// A run of zeros and the coefficient behind it. It is 0 only if its size is 0; then 16 bits or
    /// more stay ready.
    RunAndValue takeCoefficient(ByteUnstuffer& bits) const {
        const Entry entry = takeEntry(bits);
        const unsigned size = entry.symbol & 15U;
        if (entry.value != 0 || size == 0)
            return {.run = entry.symbol / 16U, .value = entry.value};
        if (size > kMostAcBits)
            bits.refuse("More than 10 AC extend bits encountered. ");
        return {.run = entry.symbol / 16U, .value = extend(bits.take(size), size)};
    }
    /// A symbol alone. 16 bits or more stay ready.
    std::uint8_t takeSymbol(ByteUnstuffer& bits) const {
        bits.refill();
        const Entry entry = lookUp_[bits.peek(kLookUpBits)];
        if (entry.codeBits == 0)
            return takeLongCode(bits);
        bits.drop(entry.codeBits);
        return entry.symbol;
    }

private:
    static constexpr unsigned kLongestCode = 16;
    static constexpr unsigned kMostDcBits = 11;
    static constexpr unsigned kMostAcBits = 10;

    /// What the next bits mean.
    struct Entry {
        std::int16_t value = 0;        // the number of the extra bits; 0: they are still to be read
        std::uint8_t symbol = 0;       // AC: run of zeros and size of the number; DC: size only
        std::uint8_t codeBits : 4 = 0; // length of the code alone; 0: it is longer than the table
        std::uint8_t bits : 4 = 0;     // length of what `symbol` and `value` stand for
    };
    static_assert(sizeof(Entry) == 4); // one load

    struct LongCode {
        std::uint8_t symbol;
        std::uint8_t length; // 0: there is no such code
    };

    Entry takeEntry(ByteUnstuffer& bits) const {
        bits.refill();
        const Entry entry = lookUp_[bits.peek(kLookUpBits)];
        if (entry.codeBits == 0)
            return Entry{.symbol = takeLongCode(bits)};
        bits.drop(entry.bits);
        return entry;
    }
    std::uint8_t takeLongCode(ByteUnstuffer& bits) const {
        const LongCode code = findLongCode(bits.peek(kLongestCode));
        if (code.length == 0)
            refuseCode(bits);
        bits.drop(code.length);
        return code.symbol;
    }

    /// The code longer than the look-up that `next`, 16 bits, begins with.
    LongCode findLongCode(std::uint32_t next) const;
    [[noreturn]] static void refuseCode(ByteUnstuffer bits);
    bool assignCodes();
    void fillLookUp();
    void addNumber(std::uint32_t index);

    Class class_ = Class::Dc;
    std::uint8_t destination_ = 0; // 0 to 3
    bool isCode_ = false;
    std::array<std::uint8_t, kLongestCode> counts_{}; // of codes by length, 1 to 16 bits
    std::vector<std::uint8_t> symbols_;               // in the order of their codes
    // By length: the first 16-bit string beyond its codes, and what turns a code of that length
    // into the index of its symbol.
    std::array<std::uint32_t, kLongestCode + 1> limits_{};
    std::array<std::int32_t, kLongestCode + 1> offsets_{};
    std::array<Entry, 1U << kLookUpBits> lookUp_{}; // by the next bits
};

} // namespace VORN::Migration::JPEG
