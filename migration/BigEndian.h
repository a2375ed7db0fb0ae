#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace VORN::Migration {

/// The number that four bytes, most significant first, stand for.
constexpr std::uint32_t fromBigEndian(std::span<const std::uint8_t, 4> bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
}

constexpr std::array<std::uint8_t, 4> toBigEndian(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
            static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

} // namespace VORN::Migration
