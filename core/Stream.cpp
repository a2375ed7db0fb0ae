#include "core/Stream.h"

#include <algorithm>
#include <vector>

namespace VORN {

void ReadStream::skip(std::uint64_t count) {
    std::uint8_t byte = 0;
    for (; count > 0; --count)
        read({&byte, 1});
}

void ReadStream::skip(std::uint64_t count, std::size_t chunk) {
    std::vector<std::uint8_t> scratch(
        static_cast<std::size_t>(std::min<std::uint64_t>(count, chunk)));
    while (count > 0) {
        const auto piece = static_cast<std::size_t>(std::min<std::uint64_t>(count, chunk));
        read(std::span{scratch}.first(piece));
        count -= piece;
    }
}

std::size_t ReadStream::readSome(std::span<std::uint8_t> destination) {
    if (destination.empty() || atEnd())
        return 0;
    read(destination.first(1));
    return 1;
}

void WriteStream::flush() {}

} // namespace VORN
