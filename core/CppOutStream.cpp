#include "core/CppOutStream.h"

#include "core/Exception.h"
#include "core/SignedBound.h"

#include <string>

namespace VORN {

CppOutStream::CppOutStream(std::ostream& out) : out_{&out} {
    if (!out)
        throw StreamException{kNoOrigin, "Wrapping bad output stream. "};
}

void CppOutStream::write(std::span<const std::uint8_t> source) {
    const auto count = static_cast<std::streamsize>(checkSigned(source.size()));
    if (!out_->write(reinterpret_cast<const char*>(source.data()), count))
        throw StreamException{kNoOrigin, "Failed to write to output stream. "};
}

void CppOutStream::flush() {
    if (!out_->flush())
        throw StreamException{kNoOrigin, "Failed to flush output stream. "};
}

void CppOutStream::seek(std::uint64_t position) {
    if (!out_->seekp(static_cast<std::streamoff>(checkSigned(position))))
        throw StreamException{kNoOrigin, "Failed to seek to position " + std::to_string(position) +
                                             " in output stream. "};
}

std::uint64_t CppOutStream::tell() {
    const std::streamoff position = out_->tellp();
    if (position < 0)
        throw StreamException{kNoOrigin, "Failed to tell current position in output stream. "};
    return static_cast<std::uint64_t>(position);
}

std::uint64_t CppOutStream::size() {
    const std::uint64_t remembered = tell();
    if (!out_->seekp(0, std::ios::end))
        throw StreamException{kNoOrigin, "Failed to seek to position end in output stream. "};
    const std::uint64_t end = tell();
    seek(remembered);
    return end;
}

} // namespace VORN
