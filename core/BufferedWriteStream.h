#pragma once

#include "core/Stream.h"

#include <vector>

namespace VORN {

/// Hands bytes on to another stream in large pieces of equal size.
///
/// A system takes a file in pieces of 256 KiB for a third of what it asks for the lines of a
/// picture one by one. The other stream is borrowed and must outlive this one. What is not flushed
/// is lost.
class BufferedWriteStream : public WriteStream {
public:
    explicit BufferedWriteStream(WriteStream& out) : out_{&out} { pending_.reserve(kPieceBytes); }

    void write(std::span<const std::uint8_t> source) override;
    void flush() override;

private:
    static constexpr std::size_t kPieceBytes = std::size_t{1} << 18;

    void handOn();

    WriteStream* out_;
    std::vector<std::uint8_t> pending_; // fewer than `kPieceBytes`
};

} // namespace VORN
