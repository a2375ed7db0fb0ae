#include "migration/jpeg/Segment.h"

#include "core/Exception.h"

#include <sstream>
#include <utility>

namespace VORN::Migration::JPEG {

void refuse(std::string detail) { throw FormatException{kNoOrigin, "jpeg", std::move(detail)}; }

void refuseEnd() { refuse("Unexpected end of stream, no end of image segment detected. "); }

std::string toHexadecimal(unsigned value) {
    std::ostringstream text;
    text << std::hex << std::uppercase << value;
    return text.str();
}

std::uint8_t Segment::byte() { return bytes(1)[0]; }

std::uint16_t Segment::word() {
    const std::span<const std::uint8_t> pair = bytes(2);
    return static_cast<std::uint16_t>(pair[0] << 8 | pair[1]);
}

std::span<const std::uint8_t> Segment::bytes(std::size_t count) {
    if (count > rest_.size())
        refuse("Marker segment smaller than expected. ");
    const std::span<const std::uint8_t> taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
}

} // namespace VORN::Migration::JPEG
