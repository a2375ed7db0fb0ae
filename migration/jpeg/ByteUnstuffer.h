#pragma once

#include "migration/jpeg/Segment.h"

#include <cstdint>
#include <span>

namespace VORN::Migration::JPEG {

/// Hands out the bits of entropy-coded data, most significant first, without stuffed bytes
/// (ITU-T T.81, clause F.1.2.3).
///
/// The bytes are borrowed and must outlive it. It is a small value: a decoding loop works on a copy
/// of its own, which the compiler keeps in registers. Where the data ends, bits that are 0 follow,
/// so that only `requireData`, called once a block, has to look whether too many were taken.
///
/// Up to the next 0xFF bytes need no look each: eight are loaded at a time, wherever the bits left
/// end, without a branch that could go either way. Benchmark JPEGEntropy: 3.2 ns a coefficient,
/// against 3.6 ns when loads wait until bits run short and look for 0xFF themselves.
class ByteUnstuffer {
public:
    explicit ByteUnstuffer(std::span<const std::uint8_t> bytes)
        : begin_{bytes.data()},
          next_{begin_},
          end_{begin_ + bytes.size()},
          plainEnd_{findPlainEnd(next_, end_)} {}

    /// Makes at least 32 bits ready.
    void refill() {
        if (next_ < plainEnd_)
            fillAtOnce();
        else if (filled_ < 32)
            *this = filledByteByByte(*this);
    }

    /// The next `count` bits, 1 to 32, which stay; `refill` must have made them ready.
    std::uint32_t peek(unsigned count) const {
        return static_cast<std::uint32_t>(window_ >> (64 - count));
    }
    /// Takes `count` bits that are ready.
    void drop(unsigned count) {
        window_ <<= count;
        filled_ -= count;
    }
    /// The next `count` bits, 0 to 16, which must be ready.
    std::uint32_t take(unsigned count) {
        const auto bits = static_cast<std::uint32_t>(window_ >> 1 >> (63 - count));
        drop(count);
        return bits;
    }
    /// The next bit, made ready if need be.
    bool takeBit() {
        if (filled_ == 0)
            refill();
        const bool bit = window_ >> 63 != 0;
        drop(1);
        return bit;
    }

    /// Refuses the file if more bits were taken than it has; a byte after 0xFF that is no stuff
    /// byte ends the data too.
    void requireData() const {
        if (padding_ > filled_)
            refuseMissingData(*this);
    }
    /// Refuses the file for `detail`; if more bits were taken than it has, for that.
    [[noreturn]] void refuse(const char* detail) const { refuse(*this, detail); }

    /// Drops the bits up to the next marker and takes it; one that is not the reset marker
    /// `expected`, 0 to 7, is a `FormatException` (ITU-T T.81, clause E.2.4).
    void readResetMarker(unsigned expected);
    /// The bytes that no bit was taken of.
    std::span<const std::uint8_t> rest() const;

private:
    void fillAtOnce() {
        std::uint64_t bytes = 0;
        for (unsigned i = 0; i < 8; ++i) // one load; written so that any byte order will do
            bytes |= std::uint64_t{next_[i]} << (56 - 8 * i);
        // The byte that does not fit as a whole is put in again by the next fill.
        window_ |= bytes >> filled_;
        next_ += (63 - filled_) / 8;
        filled_ |= 56; // 8 more for each byte, as they are from 0 to 63
    }
    static const std::uint8_t* findPlainEnd(const std::uint8_t* next, const std::uint8_t* end);
    // These are not inlined and so get a copy: a reference would keep the original out of
    // registers.
    static ByteUnstuffer filledByteByByte(ByteUnstuffer bits);
    [[noreturn]] static void refuseMissingData(ByteUnstuffer bits);
    [[noreturn]] static void refuse(ByteUnstuffer bits, const char* detail);

    const std::uint8_t* begin_;
    const std::uint8_t* next_; // the first byte not yet in the window, from `begin_` to `end_`
    const std::uint8_t* end_;
    const std::uint8_t* plainEnd_; // from all places before it 8 bytes without 0xFF can be loaded
    std::uint64_t window_ = 0;     // the next bit is the highest; below the upper `filled_` bits is
                                   // nothing but, at most, the beginning of `next_`
    unsigned filled_ = 0;          // 0 to 63
    std::uint64_t padding_ = 0;    // how many bits were put in after the data's end
};

} // namespace VORN::Migration::JPEG
