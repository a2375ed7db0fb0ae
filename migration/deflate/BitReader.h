#pragma once

#include "core/Exception.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration {

/// Hands out bits least significant first, as DEFLATE packs them (RFC 1951, section 3.1.1).
///
/// The bytes are borrowed and must outlive the reader. `count` is always 0 to 32. Dropping more
/// bits than there are throws `StreamException`. Peeking past the end sees zeros, so that a table
/// look-up may ask for more bits than the last code has.
class BitReader {
public:
    /// A reader at the first bit of `bytes`.
    explicit BitReader(std::span<const std::uint8_t> bytes) : bytes_{bytes} {}

    /// The next `count` bits, which stay.
    std::uint32_t peek(unsigned count) {
        if (filled_ < count)
            refill();
        return low(count);
    }
    /// Drops the next `count` bits.
    void drop(unsigned count) {
        if (filled_ < count)
            refill();
        if (filled_ < count)
            throwAtEnd();
        dropFilled(count);
    }
    /// Drops the next `count` bits and returns them.
    std::uint32_t take(unsigned count) {
        const std::uint32_t bits = peek(count);
        drop(count);
        return bits;
    }
    /// Drops the bits up to the next whole byte.
    void alignToByte() { dropFilled(filled_ % 8); }

    /// The bytes from the next whole byte on; they stay.
    std::span<const std::uint8_t> rest() const { return bytes_.subspan(next_ - filled_ / 8); }
    /// Takes bytes from the next whole byte on and fills `destination` with them.
    void read(std::span<std::uint8_t> destination) {
        const std::span<const std::uint8_t> source = rest();
        if (source.size() < destination.size())
            throwAtEnd();
        std::ranges::copy(source.first(destination.size()), destination.begin());
        next_ = bytes_.size() - source.size() + destination.size();
        window_ = 0;
        filled_ = 0;
    }

    /// Whether there are enough bytes to call `refillWhole` `times` times.
    bool holdsWords(unsigned times) const { return bytes_.size() - next_ >= times * kWordBytes; }
    /// Makes at least 56 bits ready, without a branch. Ask `holdsWords` first.
    void refillWhole() {
        window_ |= word(bytes_.data() + next_) << filled_;
        next_ += (63 - filled_) / 8;
        filled_ |= 56;
    }
    /// As `peek`, for bits that `refillWhole` has made ready.
    std::uint32_t low(unsigned count) const {
        return static_cast<std::uint32_t>(window_ & ((std::uint64_t{1} << count) - 1));
    }
    /// As `drop`, for bits that `refillWhole` has made ready.
    void dropFilled(unsigned count) {
        window_ >>= count;
        filled_ -= count;
    }

private:
    static constexpr std::size_t kWordBytes = 8;

    [[noreturn]] static void throwAtEnd() {
        throw VORN::StreamException{kNoOrigin, "Attempted to read over end of buffer. "};
    }
    /// Written out, as g++ compiles this to a single load, but not a loop.
    static std::uint64_t word(const std::uint8_t* bytes) {
        return std::uint64_t{bytes[0]} | std::uint64_t{bytes[1]} << 8 |
               std::uint64_t{bytes[2]} << 16 | std::uint64_t{bytes[3]} << 24 |
               std::uint64_t{bytes[4]} << 32 | std::uint64_t{bytes[5]} << 40 |
               std::uint64_t{bytes[6]} << 48 | std::uint64_t{bytes[7]} << 56;
    }
    void refill() { // to at least 57 bits, or to the end of the bytes
        for (; filled_ <= 56 && next_ < bytes_.size(); filled_ += 8)
            window_ |= std::uint64_t{bytes_[next_++]} << filled_;
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t next_ = 0;     // the first byte that is not counted in `filled_`
    std::uint64_t window_ = 0; // the next bit is bit 0; from bit `filled_` on zeros or what follows
    unsigned filled_ = 0;      // at most 63
};

} // namespace VORN::Migration
