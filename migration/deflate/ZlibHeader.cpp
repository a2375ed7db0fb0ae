#include "migration/deflate/ZlibHeader.h"

#include "core/Exception.h"
#include "core/Serialization.h"

namespace VORN::Migration {

namespace {

constexpr unsigned kDeflate = 8;             // compression method
constexpr unsigned kMaximumInfo = 7;         // compression info: a window of 32 KiB
constexpr unsigned kPresetDictionary = 0x20; // FDICT

[[noreturn]] void refuse(const char* detail) { throw FormatException{kNoOrigin, "png", detail}; }

} // namespace

ZlibHeader ZlibHeader::read(ReadStream& in) {
    std::array<std::uint8_t, kBytes> bytes{};
    in.read(bytes);
    return {bytes[0], bytes[1]};
}

void ZlibHeader::write(WriteStream& out) const { out.write(std::array{cmf, flg}); }

void ZlibHeader::check() const {
    if ((cmf * 256U + flg) % 31 != 0)
        refuse("invalid zlib header");
    if ((cmf & 15U) != kDeflate)
        refuse("unexpected zlib header compression method");
    if (cmf >> 4U > kMaximumInfo)
        refuse("unexpected zlib header compression info");
    if ((flg & kPresetDictionary) != 0)
        refuse("zlib header indicates preset dictionary");
}

ZlibChecksum ZlibChecksum::read(ReadStream& in) {
    std::array<std::uint8_t, kBytes> bytes{};
    in.read(bytes);
    return {fromBigEndian(bytes)};
}

void ZlibChecksum::write(WriteStream& out) const { out.write(toBigEndian(value)); }

} // namespace VORN::Migration
