#pragma once

#include <cstdint>
#include <span>

namespace VORN {

/// The running CRC-32 of ISO 3309, whose reflected polynomial is 0xEDB88320 (PNG, annex D).
class Crc32 {
public:
    /// Adds the next bytes; in what pieces they come makes no difference.
    void update(std::span<const std::uint8_t> bytes);
    /// The CRC of all bytes so far.
    std::uint32_t value() const { return ~state_; }

private:
    std::uint32_t state_ = 0xFFFFFFFF;
};

} // namespace VORN
