#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN::Migration {

/// The running Adler-32 checksum (RFC 1950, section 8).
class Adler32 {
public:
    /// Takes the next bytes; in what pieces they come does not matter.
    void update(std::span<const std::uint8_t> bytes);
    /// The checksum of all bytes so far.
    std::uint32_t value() const { return b_ << 16 | a_; }

private:
    std::size_t addLanes(std::span<const std::uint8_t> run);

    std::uint32_t a_ = 1; // both below 65521 between calls
    std::uint32_t b_ = 0;
};

} // namespace VORN::Migration
