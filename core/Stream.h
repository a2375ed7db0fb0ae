#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace VORN {

/// Common base of all byte streams. Counts and positions are in bytes and have 64 bits.
///
/// An operation does all of what was asked or throws `StreamException`; streams over streams pass
/// on what those throw. Where a failed operation leaves the position, and how many bytes it took or
/// wrote, is not defined unless a class says so.
class Stream {
public:
    virtual ~Stream() = default;
};

/// A source of bytes.
class ReadStream : public virtual Stream {
public:
    /// Fills all of `destination`. If fewer bytes are left, that is a failure and not a short read;
    /// reading 0 bytes always succeeds, at the end too.
    virtual void read(std::span<std::uint8_t> destination) = 0;
    /// Reads and discards `count` bytes, one at a time. If fewer are left, that is a failure.
    virtual void skip(std::uint64_t count);
    /// Reads and discards `count` bytes through a scratch buffer of `chunk` bytes, at least 1. If
    /// fewer are left, that is a failure.
    virtual void skip(std::uint64_t count, std::size_t chunk);
    /// Whether no byte is left; it can be asked before anything was read. On a pipe or terminal
    /// this waits until a byte or the end has come.
    virtual bool atEnd() = 0;
    /// Reads at least one byte and at most all of `destination`; returns how many. Unlike `read` it
    /// may stop short. It returns 0 only at the end, or if `destination` is empty.
    virtual std::size_t readSome(std::span<std::uint8_t> destination);
};

/// A sink of bytes.
///
/// No stream flushes by itself, not even when it goes: whoever writes the last byte calls `flush`,
/// and only when that has returned are all bytes known to have been taken.
class WriteStream : public virtual Stream {
public:
    /// Takes all of `source`; the stream may keep it until `flush`.
    virtual void write(std::span<const std::uint8_t> source) = 0;
    /// Hands on the bytes that the stream keeps, to the very end of a chain of streams. By default
    /// nothing is kept and nothing is done.
    virtual void flush();
};

/// A stream with a position that can be moved.
class RandomStream : public virtual Stream {
public:
    /// Moves to `position`, counted from the first byte. The end is a position, too; what happens
    /// beyond it is up to the class.
    virtual void seek(std::uint64_t position) = 0;
    /// The position: where the next operation starts.
    virtual std::uint64_t tell() = 0;
    /// The position of the end; the stream stays where it is.
    virtual std::uint64_t size() = 0;
};

/// A source with a position, such as a file.
class RandomReadStream : public ReadStream, public RandomStream {};
/// A sink with a position.
class RandomWriteStream : public WriteStream, public RandomStream {};
/// A source and sink with one position for both.
class RandomReadWriteStream : public RandomReadStream, public RandomWriteStream {};

/// Counts the bytes written to it and keeps none of them.
class SizeMeasureWriteStream : public WriteStream {
public:
    void write(std::span<const std::uint8_t> source) override { size_ += source.size(); }
    /// The number of bytes written so far.
    std::uint64_t size() const { return size_; }

private:
    std::uint64_t size_ = 0;
};

/// Hands bytes on to another stream in large pieces of equal size.
///
/// Writing a picture's file in pieces of 256 KiB takes a third of the time that it takes line by
/// line. The other stream is borrowed and must outlive this one.
class BufferedWriteStream : public WriteStream {
public:
    /// A stream that hands on to `out`.
    explicit BufferedWriteStream(WriteStream& out) : out_{&out} { pending_.reserve(kPieceBytes); }

    void write(std::span<const std::uint8_t> source) override;
    void flush() override;

private:
    static constexpr std::size_t kPieceBytes = std::size_t{1} << 18;

    void handOn();

    WriteStream* out_;
    std::vector<std::uint8_t> pending_; // fewer than `kPieceBytes`
};

/// Copies bytes from a source to a sink in chunks of a fixed size.
class StreamPump {
public:
    /// `chunkBytes` is at least 1.
    explicit StreamPump(std::size_t chunkBytes) : chunkBytes_{chunkBytes} {}

    /// Sets where bytes come from. The stream is borrowed and must outlive every call of `pump`.
    void setSource(ReadStream* source) { source_ = source; }
    /// Sets where bytes go to. The stream is borrowed and must outlive every call of `pump`.
    void setSink(WriteStream* sink) { sink_ = sink; }

    /// Copies `count` bytes; the sink is not flushed. A source or sink that is not set is an
    /// `UninitializedException`; what the streams throw passes through.
    void pump(std::uint64_t count);

private:
    std::size_t chunkBytes_;
    std::vector<std::uint8_t> chunk_;
    ReadStream* source_ = nullptr;
    WriteStream* sink_ = nullptr;
};

} // namespace VORN
