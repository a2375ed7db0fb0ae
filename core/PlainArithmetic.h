#pragma once

#include <cfloat>
#include <limits>

// Outputs are the same to the byte on every machine because each operation on floats is rounded as
// IEEE 754 says. This header refuses to compile where that does not hold; code that depends on it
// includes this. Fused multiply-add cannot be detected here; CMakeLists.txt switches it off.

#if defined(__FAST_MATH__) || defined(__ASSOCIATIVE_MATH__) || defined(__RECIPROCAL_MATH__) ||     \
    (defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__)
#error "Outputs would differ from those of other machines: build without -ffast-math and its parts."
#endif

static_assert(FLT_EVAL_METHOD == 0,
              "Outputs would differ from those of other machines: float arithmetic keeps extra "
              "digits here. On 32-bit x86 build with -msse2 -mfpmath=sse.");
static_assert(
    std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559,
    "Outputs would differ from those of other machines: floats are not those of IEEE 754.");
