#pragma once

#include "core/Stream.h"

#include <ostream>

namespace VORN {

/// Writes to a standard output stream, which is borrowed and must outlive this one.
///
/// Every failure of it is a `StreamException`; counts and positions above the largest signed 64-bit
/// value are a `BoundException`. What a full disk refuses may show only in `flush`.
class CppOutStream : public RandomWriteStream {
public:
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
