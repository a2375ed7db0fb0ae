#pragma once

#include "core/Stream.h"

#include <istream>

namespace VORN {

/// Reads from a standard input stream, which is borrowed and must outlive this one.
///
/// Every failure of it is a `StreamException`; counts and positions above the largest signed 64-bit
/// value are a `BoundException`.
class CppInStream : public RandomReadStream {
public:
    explicit CppInStream(std::istream& in);

    void read(std::span<std::uint8_t> destination) override;
    std::size_t readSome(std::span<std::uint8_t> destination) override;
    bool atEnd() override;

    /// Clears the error state first, so that a stream at its end can be repositioned.
    void seek(std::uint64_t position) override;
    std::uint64_t tell() override;
    std::uint64_t size() override;

private:
    std::istream* in_;
};

} // namespace VORN
