#pragma once

#include <cstdint>
#include <span>

namespace VORN {

/// The running CRC of ISO 3309 with the reflected polynomial 0xEDB88320 (PNG, annex D).
class Crc32 {
public:
    /// Takes the bytes that follow.
    void update(std::span<const std::uint8_t> bytes);
    /// The CRC of all bytes so far.
    std::uint32_t value() const { return ~state_; }

private:
    std::uint32_t state_ = 0xFFFFFFFF;
};

} // namespace VORN
