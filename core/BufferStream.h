#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"

namespace VORN {

/// Reads a buffer, which is borrowed and must outlive the stream.
///
/// A read past the end throws `StreamException` and leaves the position unchanged.
class ConstBufferStream : public RandomReadStream {
public:
    explicit ConstBufferStream(const Buffer& buffer) : buffer_{&buffer} {}

    void read(std::span<std::uint8_t> destination) override;
    std::size_t readSome(std::span<std::uint8_t> destination) override;
    bool atEnd() override { return position_ == buffer_->size(); }

    /// The end is a valid position; any further one is a `StreamException`.
    void seek(std::uint64_t position) override;
    std::uint64_t tell() override { return position_; }
    std::uint64_t size() override { return buffer_->size(); }

    /// The bytes from the position on, without copying them.
    std::span<const std::uint8_t> rest() const { return buffer_->data().subspan(position_); }

private:
    const Buffer* buffer_;
    std::size_t position_ = 0; // at most the buffer's size
};

/// Reads and writes a buffer, which is borrowed, must outlive the stream and grows when written.
class BufferStream : public RandomReadWriteStream {
public:
    explicit BufferStream(DynamicBuffer& buffer) : buffer_{&buffer} {}

    void read(std::span<std::uint8_t> destination) override;
    bool atEnd() override { return position_ == buffer_->size(); }
    void write(std::span<const std::uint8_t> source) override;

    void seek(std::uint64_t position) override;
    std::uint64_t tell() override { return position_; }
    std::uint64_t size() override { return buffer_->size(); }

private:
    DynamicBuffer* buffer_;
    std::size_t position_ = 0; // at most the buffer's size
};

/// Appends everything up to the end of `source`; memory grows with what arrives.
void readAll(ReadStream& source, IncrementalBuffer& destination);

} // namespace VORN
