#pragma once

#include "core/Exception.h"

#include <cstdint>
#include <limits>

namespace VORN {

/// `value` itself; above the largest signed 64-bit value it is a `BoundException`.
inline std::uint64_t checkSigned(std::uint64_t value) {
    constexpr std::uint64_t kBound = std::numeric_limits<std::int64_t>::max();
    if (value > kBound)
        throw BoundException<std::uint64_t>{kNoOrigin, value, kBound};
    return value;
}

} // namespace VORN
