#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace VORN::Migration::JPEG {

/// The `FormatException` of everything that is malformed in a JPEG file.
[[noreturn]] void refuse(std::string detail);

/// The refusal of a file that ends too early, wherever that is noticed.
[[noreturn]] void refuseEnd();

/// Upper case hexadecimal digits without padding.
std::string toHexadecimal(unsigned value);

/// The parameters of one marker segment, without its length field (ITU-T T.81, clause B.1.1.4).
///
/// The bytes are borrowed and must outlive the segment. Taking more than there is left is a
/// `FormatException`.
class Segment {
public:
    explicit Segment(std::span<const std::uint8_t> parameters) : rest_{parameters} {}

    std::uint8_t byte();
    /// Two bytes, the more significant one first.
    std::uint16_t word();
    std::span<const std::uint8_t> bytes(std::size_t count);
    /// How many bytes have not been taken.
    std::size_t left() const { return rest_.size(); }
    bool atEnd() const { return rest_.empty(); }

private:
    std::span<const std::uint8_t> rest_;
};

} // namespace VORN::Migration::JPEG
