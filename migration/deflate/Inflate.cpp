#include "migration/deflate/Inflate.h"

#include "migration/deflate/BitReader.h"
#include "migration/deflate/DeflateTables.h"
#include "migration/deflate/InflateTable.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace VORN::Migration {

namespace {

[[noreturn]] void refuse(const char* detail) {
    throw FormatException{kNoOrigin, "deflate", detail};
}

constexpr std::size_t kLongestMatch = kLengthCodes.back().base;
constexpr std::size_t kCopyBytes = 16;

/// Repeats the `length` bytes that begin `distance` before `to`, which may be fewer than `length`.
///
/// What is written may end up to `2 * kCopyBytes` further on.
inline void copyMatch(std::uint8_t* to, std::size_t distance, std::size_t length) {
    const std::uint8_t* const end = to + length;
    if (distance == 1) {
        std::memset(to, to[-1], length);
        return;
    }
    if (distance < kCopyBytes) {
        // What repeats every `distance` bytes also repeats every multiple of it.
        const std::size_t period = (kCopyBytes + distance - 1) / distance * distance;
        for (std::size_t i = 0; i < period; ++i, ++to)
            *to = *(to - distance);
        distance = period;
    }
    for (; to < end; to += kCopyBytes)
        std::memcpy(to, to - distance, kCopyBytes);
}

/// Writes two bytes in any case; returns how many of them count.
inline std::size_t putLiterals(std::uint8_t* to, InflateEntry entry) {
    to[0] = static_cast<std::uint8_t>(entry.value);
    to[1] = static_cast<std::uint8_t>(entry.value >> 8);
    return entry.literals();
}

/// The codes of a block's compressed data, as tables.
struct Codes {
    Codes(std::span<const std::uint8_t> literalLengths,
          std::span<const std::uint8_t> distanceLengths)
        : literals{literalLengths},
          distances{distanceLengths} {}

    LiteralTable literals;
    DistanceTable distances;
};

/// The fixed codes (RFC 1951, section 3.2.6), built once: a stream may have millions of such
/// blocks.
const Codes& fixedCodes() {
    static const Codes codes = [] {
        Codes fixed{kFixedLiteralLengths, kFixedDistanceLengths};
        fixed.literals.pairLiterals();
        return fixed;
    }();
    return codes;
}

class Inflater {
public:
    Inflater(std::span<const std::uint8_t> input, WriteStream& out) : bits_{input}, out_{&out} {}

    /// Returns the bytes behind the stream.
    std::span<const std::uint8_t> run() {
        while (!inflateBlock())
            ;
        handOn();
        bits_.alignToByte();
        return bits_.rest();
    }

private:
    static constexpr std::size_t kHistoryBytes = 32768; // the largest distance
    static constexpr std::size_t kWindowBytes = 8 * kHistoryBytes;
    static constexpr unsigned kLookUpsPerRefill = 56 / LiteralTable::kBits;
    // What one turn of a decoding loop may write.
    static constexpr std::size_t kTurnBytes =
        2 * kLookUpsPerRefill + kLongestMatch + 2 * kCopyBytes;
    static constexpr unsigned kWordsPerTurn = 2;          // of `BitReader::refillWhole`
    static constexpr std::size_t kShortBlockBytes = 4096; // decoded without paired literals
    static constexpr std::size_t kUnlimited = SIZE_MAX;
    static constexpr std::size_t kMostLengths = 288 + 32;   // of both codes
    static constexpr std::size_t kLongestRepeat = 11 + 127; // of one code length

    bool inflateBlock();
    void inflateStored();
    Codes readCodes();
    void readLengths(const HuffmanCode& code, std::size_t count);
    unsigned readLengthSymbol(const HuffmanCode& code);
    void inflateDynamic();
    bool inflateCompressed(const Codes& codes, std::size_t most);
    void inflateWhileRoomy(const Codes& codes, std::size_t end);
    bool inflateSymbol(const Codes& codes);
    void copyBack(std::size_t length, const DistanceTable& distances);
    void makeRoom();
    void handOn();

    BitReader bits_;
    WriteStream* out_;
    // Bytes from before `handedOn_` are kept for back references: all that there were, or at least
    // `kHistoryBytes`.
    std::unique_ptr<std::uint8_t[]> window_ =
        std::make_unique_for_overwrite<std::uint8_t[]>(kWindowBytes + kTurnBytes);
    std::size_t size_ = 0; // at most `kWindowBytes` at the begin of a turn
    std::size_t handedOn_ = 0;
    // The code lengths of a dynamic block; the last repeat may reach beyond their number.
    std::array<std::uint8_t, kMostLengths + kLongestRepeat> lengths_{};
};

/// Returns whether it was the last block.
bool Inflater::inflateBlock() {
    const bool isLast = bits_.take(1) != 0;
    switch (bits_.take(2)) {
    case 0:
        inflateStored();
        break;
    case 1:
        inflateCompressed(fixedCodes(), kUnlimited);
        break;
    case 2:
        inflateDynamic();
        break;
    default:
        refuse("Reserved block type detected. ");
    }
    return isLast;
}

void Inflater::inflateStored() {
    bits_.alignToByte();
    std::size_t length = bits_.take(16);
    const std::uint32_t complement = bits_.take(16);
    if ((length ^ complement) != 0xFFFF)
        refuse("Missmatching length and length complement in no compression block. ");
    while (length > 0) {
        makeRoom();
        const std::size_t piece = std::min(length, kWindowBytes - size_);
        bits_.read({window_.get() + size_, piece});
        size_ += piece;
        length -= piece;
    }
}

/// The codes of a dynamic block (RFC 1951, section 3.2.7).
Codes Inflater::readCodes() {
    const std::size_t literalCount = bits_.take(5) + 257;
    const std::size_t distanceCount = bits_.take(5) + 1;
    const std::size_t codeLengthCount = bits_.take(4) + 4;
    std::array<std::uint8_t, kCodeLengthOrder.size()> codeLengths{};
    for (std::size_t i = 0; i < codeLengthCount; ++i)
        codeLengths[kCodeLengthOrder[i]] = static_cast<std::uint8_t>(bits_.take(3));

    readLengths(HuffmanCode{codeLengths}, literalCount + distanceCount);
    return {std::span{lengths_}.first(literalCount),
            std::span{lengths_}.subspan(literalCount, distanceCount)};
}

/// Makes `count` code lengths, those of both codes, the first of `lengths_`.
void Inflater::readLengths(const HuffmanCode& code, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const unsigned symbol = readLengthSymbol(code);
        std::uint8_t length = 0;
        std::size_t times = 1;
        if (symbol < 16)
            length = static_cast<std::uint8_t>(symbol);
        else if (symbol > 16)
            times = symbol == 17 ? 3 + bits_.take(3) : 11 + bits_.take(7);
        else if (done == 0)
            refuse("Repeated code length without a previous one. ");
        else {
            length = lengths_[done - 1];
            times = 3 + bits_.take(2);
        }
        std::fill_n(lengths_.begin() + done, times, length);
        done += times;
    }
    if (done != count)
        refuse("Invalid number of code length symbols unpacked. ");
}

unsigned Inflater::readLengthSymbol(const HuffmanCode& code) {
    constexpr unsigned kMaximumBits = 7;
    const HuffmanCode::Match match = code.resolve(bits_.peek(kMaximumBits), kMaximumBits);
    bits_.drop(match.bits != 0 ? match.bits : kMaximumBits);
    if (match.bits == 0)
        refuse("Invalid code word in code length code. ");
    return match.symbol;
}

void Inflater::inflateDynamic() {
    Codes codes = readCodes();
    if (inflateCompressed(codes, kShortBlockBytes))
        return;
    codes.literals.pairLiterals();
    inflateCompressed(codes, kUnlimited);
}

/// Decodes up to the end of the block, or until there are `most` bytes of it or more; returns
/// whether the block has ended.
bool Inflater::inflateCompressed(const Codes& codes, std::size_t most) {
    while (most > 0) {
        makeRoom();
        const std::size_t begin = size_;
        inflateWhileRoomy(codes, begin + std::min(most, kWindowBytes - begin));
        most -= std::min(most, size_ - begin);
        makeRoom();
        if (inflateSymbol(codes))
            return true;
    }
    return false;
}

/// One turn with every check; returns whether the block has ended.
bool Inflater::inflateSymbol(const Codes& codes) {
    const InflateEntry entry = codes.literals.find(bits_.peek(HuffmanCode::kMaximumBits));
    const std::uint32_t low = bits_.take(entry.bits);
    if (entry.isLiteral())
        size_ += putLiterals(window_.get() + size_, entry);
    else if (entry.isRange())
        copyBack(entry.member(low), codes.distances);
    else if (entry.kind == InflateEntry::NoSymbol)
        refuse("Invalid code word in literal and length code. ");
    return entry.kind == InflateEntry::EndOfBlock;
}

void Inflater::copyBack(std::size_t length, const DistanceTable& distances) {
    const InflateEntry entry = distances.find(bits_.peek(HuffmanCode::kMaximumBits));
    const std::uint32_t low = bits_.take(entry.bits);
    if (!entry.isRange())
        refuse("Invalid code word in distance code. ");
    const std::size_t distance = entry.member(low);
    if (distance > size_)
        refuse("Back reference refer beyond beginning of buffer. ");
    copyMatch(window_.get() + size_, distance, length);
    size_ += length;
}

/// Decodes without checking each access, as long as the input holds the words of a turn and the
/// window less than `end` bytes, which is at most `kWindowBytes`. Ends before what is neither
/// literal nor match, and before what is wrong.
void Inflater::inflateWhileRoomy(const Codes& codes, std::size_t end) {
    BitReader bits = bits_;
    std::uint8_t* const out = window_.get();
    std::size_t size = size_;
    while (bits.holdsWords(kWordsPerTurn) && size < end) {
        bits.refillWhole();
        InflateEntry entry = codes.literals.lookUp(bits.low(LiteralTable::kBits));
        // Behind the last turn the look-up may lack bits; it is made again after the refill.
        for (unsigned left = kLookUpsPerRefill; entry.isLiteral() && left > 0; --left) {
            bits.dropFilled(entry.bits);
            size += putLiterals(out + size, entry);
            entry = codes.literals.lookUp(bits.low(LiteralTable::kBits));
        }
        if (entry.isLiteral())
            continue;
        bits.refillWhole(); // at most 20 bits for the length, and 28 for the distance
        entry = codes.literals.find(bits.low(HuffmanCode::kMaximumBits));
        if (entry.isLiteral()) {
            bits.dropFilled(entry.bits);
            size += putLiterals(out + size, entry);
            continue;
        }
        if (!entry.isRange())
            break;
        BitReader afterwards = bits;
        const std::size_t length = entry.member(afterwards.low(entry.bits));
        afterwards.dropFilled(entry.bits);
        const InflateEntry second = codes.distances.find(afterwards.low(HuffmanCode::kMaximumBits));
        if (!second.isRange())
            break;
        const std::size_t distance = second.member(afterwards.low(second.bits));
        if (distance > size)
            break;
        afterwards.dropFilled(second.bits);
        bits = afterwards;
        copyMatch(out + size, distance, length);
        size += length;
    }
    bits_ = bits;
    size_ = size;
}

/// Makes room for one turn.
void Inflater::makeRoom() {
    if (size_ < kWindowBytes)
        return;
    handOn();
    std::memmove(window_.get(), window_.get() + size_ - kHistoryBytes, kHistoryBytes);
    size_ = kHistoryBytes;
    handedOn_ = kHistoryBytes;
}

void Inflater::handOn() {
    out_->write({window_.get() + handedOn_, size_ - handedOn_});
    handedOn_ = size_;
}

} // namespace

void inflate(ConstBufferStream& in, WriteStream& out) {
    Inflater inflater{in.rest(), out};
    in.seek(in.size() - inflater.run().size());
}

} // namespace VORN::Migration
