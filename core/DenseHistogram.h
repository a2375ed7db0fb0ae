#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace VORN {

/// Counts how often each value of T, a type of one byte, occurs.
template <class T>
    requires(sizeof(T) == 1)
class DenseHistogram {
public:
    /// Adds one occurrence of `value`.
    void count(T value) { ++counts_[indexOf(value)]; }
    /// How often `value` was counted.
    std::uint64_t operator[](T value) const { return counts_[indexOf(value)]; }

    /// Adds the counts of `other` to these.
    DenseHistogram& operator+=(const DenseHistogram& other) {
        for (std::size_t i = 0; i < counts_.size(); ++i)
            counts_[i] += other.counts_[i];
        return *this;
    }

private:
    static std::size_t indexOf(T value) { return static_cast<unsigned char>(value); }

    std::array<std::uint64_t, 256> counts_{};
};

} // namespace VORN
