#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"

#include <algorithm>

namespace VORN {

/// Reads a buffer, which is borrowed and must outlive the stream.
///
/// A read past the end throws `StreamException` and leaves the position unchanged.
class ConstBufferStream : public RandomReadStream {
public:
    /// A stream at the first byte of `buffer`.
    explicit ConstBufferStream(const Buffer& buffer) : buffer_{&buffer} {}

    void read(std::span<std::uint8_t> destination) override;
    std::size_t readSome(std::span<std::uint8_t> destination) override;
    bool atEnd() override { return position_ >= buffer_->size(); }

    /// A position beyond the end is a `StreamException`.
    void seek(std::uint64_t position) override;
    std::uint64_t tell() override { return position_; }
    std::uint64_t size() override { return buffer_->size(); }

    /// A view of the bytes from the position on; the position stays.
    std::span<const std::uint8_t> rest() const {
        return buffer_->data().subspan(std::min(position_, buffer_->size()));
    }

private:
    const Buffer* buffer_;
    std::size_t position_ = 0; // beyond the end once the buffer has been made shorter
};

/// Reads and writes a buffer at one common position.
///
/// The buffer is borrowed and must outlive the stream. Writing replaces the bytes at the position
/// and makes the buffer longer where it ends; running out of memory is an `AllocateException`.
/// Reading past the end and seeking beyond it are a `StreamException`, as in `ConstBufferStream`.
class BufferStream : public RandomReadWriteStream {
public:
    /// A stream at the first byte of `buffer`.
    explicit BufferStream(DynamicBuffer& buffer) : buffer_{&buffer} {}

    void read(std::span<std::uint8_t> destination) override;
    bool atEnd() override { return position_ >= buffer_->size(); }
    void write(std::span<const std::uint8_t> source) override;

    void seek(std::uint64_t position) override;
    std::uint64_t tell() override { return position_; }
    std::uint64_t size() override { return buffer_->size(); }

private:
    DynamicBuffer* buffer_;
    std::size_t position_ = 0; // beyond the end once the buffer has been made shorter
};

/// Appends to `destination` everything up to the end of `source`. Memory grows with the bytes that
/// arrive; throws what the stream and the buffer throw.
void readAll(ReadStream& source, IncrementalBuffer& destination);

} // namespace VORN
