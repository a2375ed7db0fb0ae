#pragma once

#include "core/Exception.h"

#include <cstdint>
#include <limits>

namespace VORN {

/// A size that is computed from numbers nobody has checked: it remembers when 64 bits could not
/// hold a step, so that a whole formula needs one check at its end.
class CheckedSize {
public:
    constexpr CheckedSize(std::uint64_t size) : size_{size} {}

    constexpr CheckedSize operator*(CheckedSize other) const {
        CheckedSize product{0};
        product.isTooLarge_ = __builtin_mul_overflow(size_, other.size_, &product.size_);
        product.isTooLarge_ |= isTooLarge_ || other.isTooLarge_;
        return product;
    }
    constexpr CheckedSize operator+(CheckedSize other) const {
        CheckedSize sum{0};
        sum.isTooLarge_ = __builtin_add_overflow(size_, other.size_, &sum.size_);
        sum.isTooLarge_ |= isTooLarge_ || other.isTooLarge_;
        return sum;
    }

    /// The size, or the largest number when it is larger than that.
    constexpr std::uint64_t saturated() const {
        return isTooLarge_ ? std::numeric_limits<std::uint64_t>::max() : size_;
    }
    /// The size; when it is too large it is an `AllocateException` of `subject`.
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
