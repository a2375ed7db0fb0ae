#include "core/ReadAll.h"

namespace VORN {

namespace {

constexpr std::size_t kPieceBytes = std::size_t{1} << 16;

} // namespace

void readAll(ReadStream& source, IncrementalBuffer& destination) {
    std::size_t filled = destination.size();
    std::size_t arrived = 0;
    do {
        destination.resize(std::uint64_t{filled} + kPieceBytes);
        arrived = source.readSome(destination.writableData().subspan(filled));
        filled += arrived;
    } while (arrived > 0);
    destination.resize(filled);
}

} // namespace VORN
