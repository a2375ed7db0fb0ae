#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace VORN::Migration::JPEG {

/// Throws the `FormatException` of a malformed JPEG file; `detail` says what is wrong.
[[noreturn]] void refuse(std::string detail);

/// Throws the `FormatException` of a file that ends too early.
[[noreturn]] void refuseEnd();

/// `value` in upper case hexadecimal digits without padding.
std::string toHexadecimal(unsigned value);

/// The parameters of one marker segment, without its length field (ITU-T T.81, clause B.1.1.4).
///
/// The bytes are borrowed and must outlive the segment. Taking more bytes than are left is a
/// `FormatException`.
class Segment {
public:
    /// A segment of which nothing has been taken yet.
    explicit Segment(std::span<const std::uint8_t> parameters) : rest_{parameters} {}

    /// Takes a byte.
    std::uint8_t byte();
    /// Takes two bytes, the more significant one first.
    std::uint16_t word();
    /// Takes `count` bytes, without copying them.
    std::span<const std::uint8_t> bytes(std::size_t count);
    /// How many bytes are left.
    std::size_t left() const { return rest_.size(); }
    bool atEnd() const { return rest_.empty(); }

private:
    std::span<const std::uint8_t> rest_;
};

} // namespace VORN::Migration::JPEG
