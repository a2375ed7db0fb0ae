#include "migration/jpeg/ByteUnstuffer.h"

#include <cstring>
#include <string>

namespace VORN::Migration::JPEG {

const std::uint8_t* ByteUnstuffer::findPlainEnd(const std::uint8_t* next, const std::uint8_t* end) {
    const void* const found = std::memchr(next, 0xFF, static_cast<std::size_t>(end - next));
    const std::uint8_t* const stop =
        found == nullptr ? end : static_cast<const std::uint8_t*>(found);
    return stop - next < 8 ? next : stop - 7;
}

ByteUnstuffer ByteUnstuffer::filledByteByByte(ByteUnstuffer bits) {
    while (bits.filled_ < 56) {
        std::uint64_t byte = 0;
        if (bits.next_ != bits.end_ && *bits.next_ != 0xFF) {
            byte = *bits.next_++;
        } else if (bits.end_ - bits.next_ >= 2 && bits.next_[1] == 0x00) {
            byte = 0xFF;
            bits.next_ += 2;
        } else {
            bits.padding_ += 8;
        }
        bits.window_ |= byte << (56 - bits.filled_);
        bits.filled_ += 8;
    }
    bits.plainEnd_ = findPlainEnd(bits.next_, bits.end_);
    return bits;
}

void ByteUnstuffer::refuseMissingData(ByteUnstuffer bits) {
    if (bits.end_ - bits.next_ < 2)
        refuseEnd();
    JPEG::refuse("Expected stuff byte (0x00), got 0x" + toHexadecimal(bits.next_[1]));
}

void ByteUnstuffer::refuse(ByteUnstuffer bits, const char* detail) {
    bits.requireData();
    JPEG::refuse(detail);
}

void ByteUnstuffer::readResetMarker(unsigned expected) {
    std::span<const std::uint8_t> bytes = rest();
    if (bytes.empty())
        refuseEnd();
    if (bytes[0] != 0xFF)
        JPEG::refuse("Expected marker. ");
    while (!bytes.empty() && bytes[0] == 0xFF)
        bytes = bytes.subspan(1);
    if (bytes.empty())
        refuseEnd();
    const unsigned code = bytes[0];
    if (code < 0xD0 || code > 0xD7)
        JPEG::refuse("Expected reset marker, got 0x" + toHexadecimal(code));
    if (code - 0xD0 != expected)
        JPEG::refuse("Expected reset count " + std::to_string(expected) + ", got " +
                     std::to_string(code - 0xD0));
    *this = ByteUnstuffer{bytes.subspan(1)};
}

std::span<const std::uint8_t> ByteUnstuffer::rest() const {
    requireData();
    const std::uint8_t* unread = next_;
    for (std::uint64_t bytes = (filled_ - padding_) / 8; bytes > 0; --bytes) {
        --unread;
        // Within entropy-coded data a 0 behind 0xFF is a stuff byte.
        if (*unread == 0x00 && unread != begin_ && unread[-1] == 0xFF)
            --unread;
    }
    return {unread, end_};
}

} // namespace VORN::Migration::JPEG
