#pragma once

#include "migration/jpeg/ByteUnstuffer.h"
#include "migration/jpeg/Segment.h"

#include <array>
#include <cstdint>
#include <vector>

namespace VORN::Migration::JPEG {

/// The signed number that `size` bits, 0 to 16, stand for (ITU-T T.81, figure F.12).
constexpr int extend(unsigned bits, unsigned size) {
    const bool isNegative = size > 0 && bits >> (size - 1) == 0;
    return static_cast<int>(bits) - (isNegative ? (1 << size) - 1 : 0);
}

/// A canonical Huffman code (ITU-T T.81, clause B.2.4.2 and annex C).
///
/// Codes of up to `kLookUpBits` bits take one look-up, which also gives the signed number in the
/// bits behind the code if these fit the look-up, too. Longer codes are compared with the codes of
/// each length. Benchmark JPEGEntropy: 3.2 ns a coefficient, against 18 ns bit by bit.
class HuffmanTable {
public:
    /// What the table's symbols are for.
    enum class Class : std::uint8_t { Dc = 0, Ac = 1 };

    static constexpr unsigned kLookUpBits = 10;

    /// A run of zeros in zigzag order and the coefficient behind it.
    struct RunAndValue {
        unsigned run; // 0 to 15
        int value;
    };

    /// Reads one of the tables of a segment. A table without codes is a `FormatException`. One with
    /// more codes than their lengths have room for is read, but `isCode` is false then and it must
    /// not be used.
    explicit HuffmanTable(Segment& segment);

    Class tableClass() const { return class_; }
    std::uint8_t destination() const { return destination_; }
    /// Whether there is room for all codes, so that none is the beginning of another one.
    bool isCode() const { return isCode_; }

    // The following refill `bits` as they need. Bits that are no code, and sizes that do not exist
    // for 8-bit samples (ITU-T T.81, tables F.1 and F.2), are a `FormatException`.

    /// Takes a code and the number behind it: the difference of two DC coefficients.
    std::int16_t takeDifference(ByteUnstuffer& bits) const {
        const Entry entry = takeEntry(bits);
        if (entry.value != 0)
            return entry.value;
        if (entry.symbol > kMostDcBits)
            bits.refuse("More than 11 DC extend bits encountered. ");
        return static_cast<std::int16_t>(extend(bits.take(entry.symbol), entry.symbol));
    }
    /// Takes a code and the number behind it: a run of zeros and an AC coefficient. The coefficient
    /// is 0 only if its size is 0; then at least 16 bits are still ready.
    RunAndValue takeCoefficient(ByteUnstuffer& bits) const {
        const Entry entry = takeEntry(bits);
        const unsigned size = entry.symbol & 15U;
        if (entry.value != 0 || size == 0)
            return {.run = entry.symbol / 16U, .value = entry.value};
        if (size > kMostAcBits)
            bits.refuse("More than 10 AC extend bits encountered. ");
        return {.run = entry.symbol / 16U, .value = extend(bits.take(size), size)};
    }
    /// Takes a code and returns its symbol. At least 16 bits are still ready then.
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
        std::int16_t value = 0;        // the number behind the code; 0: it is still to be read
        std::uint8_t symbol = 0;       // AC: run of zeros and size of the number; DC: size only
        std::uint8_t codeBits : 4 = 0; // length of the code; 0: it is too long for the look-up
        std::uint8_t bits : 4 = 0;     // length of the code and, if `value` has it, the number
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

    /// The code longer than a look-up at the beginning of the 16 bits `next`.
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
    // By length: the first 16 bits that are above all codes of that length, and the number that is
    // added to a code for the index of its symbol.
    std::array<std::uint32_t, kLongestCode + 1> limits_{};
    std::array<std::int32_t, kLongestCode + 1> offsets_{};
    std::array<Entry, 1U << kLookUpBits> lookUp_{}; // by the next bits
};

} // namespace VORN::Migration::JPEG
