#pragma once

#include "tests/Bytes.h"
#include "tests/Complaint.h"

#include <cstdio>
#include <cstdlib>

namespace VORN::Fuzz {

/// Ends the process, which is a finding, unless what is named holds.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

} // namespace VORN::Fuzz

/// What libFuzzer and the replay call with one input; returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
