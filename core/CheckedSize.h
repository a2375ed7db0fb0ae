#pragma once

#include "core/Exception.h"

#include <cstdint>
#include <limits>

namespace VORN {

/// A size that is computed from unchecked numbers, such as those of a file's header.
///
/// Sums and products remember when 64 bits could not hold a result, so that a whole formula needs
/// only one check, at its end.
class CheckedSize {
public:
    /// A size that is not too large. Not explicit, so that formulas can have plain numbers in them.
    constexpr CheckedSize(std::uint64_t size) : size_{size} {}

    /// The product; too large if a factor is, or if 64 bits cannot hold it.
    constexpr CheckedSize operator*(CheckedSize other) const {
        CheckedSize product{0};
        product.isTooLarge_ = __builtin_mul_overflow(size_, other.size_, &product.size_);
        product.isTooLarge_ |= isTooLarge_ || other.isTooLarge_;
        return product;
    }
    /// The sum; too large if a summand is, or if 64 bits cannot hold it.
    constexpr CheckedSize operator+(CheckedSize other) const {
        CheckedSize sum{0};
        sum.isTooLarge_ = __builtin_add_overflow(size_, other.size_, &sum.size_);
        sum.isTooLarge_ |= isTooLarge_ || other.isTooLarge_;
        return sum;
    }

    /// The size, or 2^64 - 1 if it is too large.
    constexpr std::uint64_t saturated() const {
        return isTooLarge_ ? std::numeric_limits<std::uint64_t>::max() : size_;
    }
    /// The size; throws `AllocateException` with `subject` if it is too large.
    std::uint64_t sizeOf(const char* subject) const {
        if (isTooLarge_)
            throw AllocateException{kNoOrigin, subject};
        return size_;
    }

private:
    std::uint64_t size_;
    bool isTooLarge_ = false;
};

} // namespace VORN
