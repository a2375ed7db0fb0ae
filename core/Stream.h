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

/// A source of bytes. A call does all of what was asked or throws `StreamException`.
class ReadStream : public virtual Stream {
public:
    /// Fills `destination`.
    virtual void read(std::span<std::uint8_t> destination) = 0;
    /// Reads and discards `count` bytes, one at a time.
    virtual void skip(std::uint64_t count);
    /// Reads and discards `count` bytes through a scratch buffer of `chunk` bytes, at least 1.
    virtual void skip(std::uint64_t count, std::size_t chunk);
    virtual bool atEnd() = 0;
    /// Reads what is there, at most `destination`; returns the count, 0 only at the end.
    virtual std::size_t readSome(std::span<std::uint8_t> destination);
};

/// A sink of bytes. A call does all of what was asked or throws `StreamException`.
class WriteStream : public virtual Stream {
public:
    virtual void write(std::span<const std::uint8_t> source) = 0;
    /// Hands on what the stream holds back; does nothing by default.
    virtual void flush();
};

/// A stream with a position that can be moved.
class RandomStream : public virtual Stream {
public:
    virtual void seek(std::uint64_t position) = 0;
    virtual std::uint64_t tell() = 0;
    virtual std::uint64_t size() = 0;
};

class RandomReadStream : public ReadStream, public RandomStream {};
class RandomWriteStream : public WriteStream, public RandomStream {};
class RandomReadWriteStream : public RandomReadStream, public RandomWriteStream {};

} // namespace VORN
