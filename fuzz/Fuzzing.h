#pragma once

#include "core/BufferStream.h"
#include "tests/Complaint.h"

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

namespace VORN::Fuzz {

using Bytes = std::vector<std::uint8_t>;

/// Ends the process, which is a finding, unless what is named holds.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

inline Bytes bytesOf(const Buffer& buffer) { return {buffer.data().begin(), buffer.data().end()}; }

/// What `write`, called with a stream, writes to it.
template <class Write>
Bytes written(Write write) {
    IncrementalBuffer bytes;
    BufferStream out{bytes};
    write(out);
    return bytesOf(bytes);
}

} // namespace VORN::Fuzz

/// What libFuzzer and the replay call with one input; returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
