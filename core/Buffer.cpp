#include "core/Buffer.h"

#include "core/Exception.h"
#include "core/Platform.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace VORN {

namespace {

constexpr std::uint64_t kLargeBytes = std::uint64_t{1} << 22; // worth large pages
constexpr std::uint64_t kLargeGrowth = 8;                     // times the memory there was

} // namespace

std::span<std::uint8_t> BorrowConstBuffer::writableData() {
    throw AccessException{kNoOrigin, "buffer fully", "it is const"};
}

void IncrementalBuffer::resize(std::uint64_t size) {
    if (size > capacity_)
        reserve(std::max(size, std::uint64_t{capacity_} + capacity_ / 2));
    size_ = static_cast<std::size_t>(size);
}

void IncrementalBuffer::reserve(std::uint64_t capacity) {
    if (capacity <= capacity_)
        return;
    // realloc moves large blocks by remapping their pages where the system can do that.
    void* grown = nullptr;
    if (capacity <= static_cast<std::uint64_t>(PTRDIFF_MAX))
        grown = std::realloc(bytes_.get(), static_cast<std::size_t>(capacity));
    if (grown == nullptr)
        throw AllocateException{kNoOrigin, std::to_string(capacity) + " bytes"};
    static_cast<void>(bytes_.release()); // realloc has freed or kept it
    bytes_.reset(static_cast<std::uint8_t*>(grown));
    // Large pages halve the time that a picture of 36 MB takes to arrive. But a block that grows
    // step by step is moved faster without them.
    if (capacity >= kLargeBytes && capacity / kLargeGrowth >= capacity_)
        preferLargePages({bytes_.get(), static_cast<std::size_t>(capacity)});
    capacity_ = static_cast<std::size_t>(capacity);
}

} // namespace VORN
