#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace VORN {

/// Common base of all byte streams. Counts and positions are 64-bit and in bytes.
class Stream {
public:
    virtual ~Stream() = default;
};

/// A source of bytes.
///
/// Every operation does all of what was asked or throws `StreamException`; what a failed one has
/// consumed is not defined, save where a class says so.
class ReadStream : public virtual Stream {
public:
    /// Fills `destination`. Fewer bytes up to the end are a failure; none are always to be had.
    virtual void read(std::span<std::uint8_t> destination) = 0;
    /// Reads and discards `count` bytes, one at a time.
    virtual void skip(std::uint64_t count);
    /// Reads and discards `count` bytes through a scratch buffer of `chunk` bytes, at least 1.
    virtual void skip(std::uint64_t count, std::size_t chunk);
    /// Whether no byte is left. On a pipe or terminal this waits for one, or for the end.
    virtual bool atEnd() = 0;
    /// Reads what can be had, at most `destination`, and returns the count. Unlike `read` it may
    /// stop short; 0 comes only at the end, or when nothing was asked for.
    virtual std::size_t readSome(std::span<std::uint8_t> destination);
};

/// A sink of bytes. Every operation does all of what was asked or throws `StreamException`.
class WriteStream : public virtual Stream {
public:
    /// Takes all of `source`, which it may hold back.
    virtual void write(std::span<const std::uint8_t> source) = 0;
    /// Hands on what is held back; does nothing by default. Nothing flushes by itself: who writes
    /// the last byte flushes, and only then knows that all were taken.
    virtual void flush();
};

/// A stream with a position that can be moved; what cannot be done throws `StreamException`.
class RandomStream : public virtual Stream {
public:
    /// Moves to `position`, which may be the end.
    virtual void seek(std::uint64_t position) = 0;
    /// The position, which is where the next operation starts.
    virtual std::uint64_t tell() = 0;
    /// The position of the end; the stream stays where it is.
    virtual std::uint64_t size() = 0;
};

class RandomReadStream : public ReadStream, public RandomStream {};
class RandomWriteStream : public WriteStream, public RandomStream {};
class RandomReadWriteStream : public RandomReadStream, public RandomWriteStream {};

/// Counts the bytes written to it and keeps none of them.
class SizeMeasureWriteStream : public WriteStream {
public:
    void write(std::span<const std::uint8_t> source) override { size_ += source.size(); }
    std::uint64_t size() const { return size_; }

private:
    std::uint64_t size_ = 0;
};

} // namespace VORN
