#pragma once

#include "core/Exception.h"

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace VORN {

using Bytes = std::vector<std::uint8_t>;

/// The bytes of a file below `tests/data`.
inline Bytes fixture(const std::string& name) {
    std::ifstream in{KAVRIN_TEST_DATA "/" + name, std::ios::binary};
    if (!in)
        throw AccessException{kNoOrigin, name, "it is not there"};
    return Bytes(std::istreambuf_iterator<char>{in}, {});
}

} // namespace VORN
