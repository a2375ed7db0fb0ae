#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace VORN {

/// How often each value of T, a type of one byte, occurred.
template <class T>
    requires(sizeof(T) == 1)
class DenseHistogram {
public:
    void count(T value) { ++counts_[indexOf(value)]; }
    std::uint64_t operator[](T value) const { return counts_[indexOf(value)]; }

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
