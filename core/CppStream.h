#pragma once

#include "core/Stream.h"

#include <istream>
#include <ostream>

namespace VORN {

/// Reads from a standard input stream, which is borrowed and must outlive this one.
///
/// Every failure of the standard stream is a `StreamException`. Counts and positions above the
/// largest signed 64-bit value are a `BoundException`.
class CppInStream : public RandomReadStream {
public:
    /// Throws `StreamException` if `in` is in an error state.
    explicit CppInStream(std::istream& in);

    void read(std::span<std::uint8_t> destination) override;
    std::size_t readSome(std::span<std::uint8_t> destination) override;
    bool atEnd() override;

    /// Clears the error state first, so that one can also seek away from the end.
    void seek(std::uint64_t position) override;
    std::uint64_t tell() override;
    std::uint64_t size() override;

private:
    std::istream* in_;
};

/// Writes to a standard output stream, which is borrowed and must outlive this one.
///
/// Every failure of the standard stream is a `StreamException`. Counts and positions above the
/// largest signed 64-bit value are a `BoundException`. As the standard stream is buffered, a full
/// disk may show only in `flush`.
class CppOutStream : public RandomWriteStream {
public:
    /// Throws `StreamException` if `out` is in an error state.
    explicit CppOutStream(std::ostream& out);

    void write(std::span<const std::uint8_t> source) override;
    void flush() override;

    void seek(std::uint64_t position) override;
    std::uint64_t tell() override;
    std::uint64_t size() override;

private:
    std::ostream* out_;
};

} // namespace VORN
