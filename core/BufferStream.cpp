#include "core/BufferStream.h"

#include "core/Exception.h"

#include <algorithm>

namespace VORN {

namespace {

void copyFrom(std::span<const std::uint8_t> bytes, std::size_t& position,
              std::span<std::uint8_t> destination) {
    const std::span<const std::uint8_t> rest = bytes.subspan(std::min(position, bytes.size()));
    if (destination.size() > rest.size())
        throw StreamException{kNoOrigin, "Attempted to read over end of buffer. "};
    std::ranges::copy(rest.first(destination.size()), destination.begin());
    position += destination.size();
}

std::size_t checkPosition(std::uint64_t position, std::size_t size) {
    if (position > size)
        throw StreamException{kNoOrigin, "Could not seek to position " + std::to_string(position) +
                                             " in buffer. "};
    return static_cast<std::size_t>(position);
}

} // namespace

void ConstBufferStream::read(std::span<std::uint8_t> destination) {
    copyFrom(buffer_->data(), position_, destination);
}

std::size_t ConstBufferStream::readSome(std::span<std::uint8_t> destination) {
    const std::size_t count = std::min(destination.size(), rest().size());
    read(destination.first(count));
    return count;
}

void ConstBufferStream::seek(std::uint64_t position) {
    position_ = checkPosition(position, buffer_->size());
}

void BufferStream::read(std::span<std::uint8_t> destination) {
    copyFrom(buffer_->data(), position_, destination);
}

void BufferStream::write(std::span<const std::uint8_t> source) {
    const std::uint64_t end = std::uint64_t{position_} + source.size();
    if (end > buffer_->size())
        buffer_->resize(end);
    std::ranges::copy(source,
                      buffer_->writableData().begin() + static_cast<std::ptrdiff_t>(position_));
    position_ = static_cast<std::size_t>(end);
}

void BufferStream::seek(std::uint64_t position) {
    position_ = checkPosition(position, buffer_->size());
}

void readAll(ReadStream& source, IncrementalBuffer& destination) {
    constexpr std::size_t kPieceBytes = std::size_t{1} << 16;
    while (true) {
        const std::size_t filled = destination.size();
        destination.resize(std::uint64_t{filled} + kPieceBytes);
        const std::size_t arrived = source.readSome(destination.writableData().subspan(filled));
        destination.resize(std::uint64_t{filled} + arrived);
        if (arrived == 0)
            return;
    }
}

} // namespace VORN
