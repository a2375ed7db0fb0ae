#include "core/CppStream.h"

#include "core/Exception.h"

#include <limits>
#include <string>

namespace VORN {

namespace {

/// `value` itself; above the largest signed 64-bit value it is a `BoundException`.
std::uint64_t checkSigned(std::uint64_t value) {
    constexpr std::uint64_t kBound = std::numeric_limits<std::int64_t>::max();
    if (value > kBound)
        throw BoundException<std::uint64_t>{kNoOrigin, value, kBound};
    return value;
}

} // namespace

CppInStream::CppInStream(std::istream& in) : in_{&in} {
    if (!in)
        throw StreamException{kNoOrigin, "Wrapping bad input stream. "};
}

void CppInStream::read(std::span<std::uint8_t> destination) {
    if (readSome(destination) != destination.size())
        throw StreamException{kNoOrigin, "Failed to read from input stream. "};
}

std::size_t CppInStream::readSome(std::span<std::uint8_t> destination) {
    const auto count = static_cast<std::streamsize>(checkSigned(destination.size()));
    if (count == 0)
        return 0;
    in_->read(reinterpret_cast<char*>(destination.data()), count);
    if (in_->bad())
        throw StreamException{kNoOrigin, "Failed to read from input stream. "};
    return static_cast<std::size_t>(in_->gcount());
}

bool CppInStream::atEnd() {
    static_cast<void>(in_->peek());
    if (in_->bad())
        throw StreamException{kNoOrigin, "Failed to read from input stream. "};
    return in_->eof();
}

void CppInStream::seek(std::uint64_t position) {
    const auto target = static_cast<std::streamoff>(checkSigned(position));
    in_->clear();
    if (!in_->seekg(target))
        throw StreamException{kNoOrigin, "Could not seek to position " + std::to_string(position) +
                                             " in input stream. "};
}

std::uint64_t CppInStream::tell() {
    const std::streamoff position = in_->tellg();
    if (position < 0)
        throw StreamException{kNoOrigin, "Failed to tell current position in input stream. "};
    return static_cast<std::uint64_t>(position);
}

std::uint64_t CppInStream::size() {
    const std::uint64_t remembered = tell();
    if (!in_->seekg(0, std::ios::end))
        throw StreamException{kNoOrigin, "Could not seek to position end in input stream. "};
    const std::uint64_t end = tell();
    seek(remembered);
    return end;
}

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
