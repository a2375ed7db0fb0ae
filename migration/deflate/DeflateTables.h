#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration {

/// What one symbol stands for: `base` plus the value of the `extraBits` that follow it.
struct ExtraBitsCode {
    std::uint16_t base;
    std::uint8_t extraBits;
};

/// Whether each range of `codes` starts where the one before it ends.
constexpr bool isContiguous(std::span<const ExtraBitsCode> codes) {
    for (std::size_t i = 1; i < codes.size(); ++i)
        if (codes[i].base != codes[i - 1].base + (1U << codes[i - 1].extraBits))
            return false;
    return true;
}

constexpr unsigned kEndOfBlock = 256;
constexpr unsigned kFirstLength = 257;

/// Match lengths of the symbols 257 to 285 (RFC 1951, section 3.2.5).
// clang-format off
constexpr std::array<ExtraBitsCode, 29> kLengthCodes{{
    {3, 0},   {4, 0},   {5, 0},   {6, 0},   {7, 0},   {8, 0},   {9, 0},   {10, 0},
    {11, 1},  {13, 1},  {15, 1},  {17, 1},  {19, 2},  {23, 2},  {27, 2},  {31, 2},
    {35, 3},  {43, 3},  {51, 3},  {59, 3},  {67, 4},  {83, 4},  {99, 4},  {115, 4},
    {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0},
}};

/// Distances of the symbols 0 to 29 (RFC 1951, section 3.2.5).
constexpr std::array<ExtraBitsCode, 30> kDistanceCodes{{
    {1, 0},      {2, 0},      {3, 0},      {4, 0},      {5, 1},      {7, 1},
    {9, 2},      {13, 2},     {17, 3},     {25, 3},     {33, 4},     {49, 4},
    {65, 5},     {97, 5},     {129, 6},    {193, 6},    {257, 7},    {385, 7},
    {513, 8},    {769, 8},    {1025, 9},   {1537, 9},   {2049, 10},  {3073, 10},
    {4097, 11},  {6145, 11},  {8193, 12},  {12289, 12}, {16385, 13}, {24577, 13},
}};
// clang-format on

// The last symbol is an exception: it stands for the length 258, which the one before could hold,
// too.
static_assert(isContiguous(std::span{kLengthCodes}.first<28>()));
static_assert(isContiguous(kDistanceCodes));
static_assert(kDistanceCodes.back().base + (1U << kDistanceCodes.back().extraBits) - 1 == 32768);

/// The symbols of the code length code in the order in which their lengths are stored (RFC 1951,
/// section 3.2.7).
constexpr std::array<std::uint8_t, 19> kCodeLengthOrder{
    16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15,
};

/// The lengths of the fixed literal/length code (RFC 1951, section 3.2.6).
consteval std::array<std::uint8_t, 288> makeFixedLiteralLengths() {
    std::array<std::uint8_t, 288> lengths{};
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol)
        lengths[symbol] = symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
    return lengths;
}

/// The lengths of the fixed distance code: 32 codes of 5 bits, of which 30 are used.
consteval std::array<std::uint8_t, 32> makeFixedDistanceLengths() {
    std::array<std::uint8_t, 32> lengths{};
    lengths.fill(5);
    return lengths;
}

/// The length of each symbol of the fixed literal and length code.
constexpr auto kFixedLiteralLengths = makeFixedLiteralLengths();
/// The length of each symbol of the fixed distance code.
constexpr auto kFixedDistanceLengths = makeFixedDistanceLengths();

} // namespace VORN::Migration
