#include "core/Crc32.h"
#include "fuzz/Fuzzing.h"
#include "fuzz/PlainInflate.h"
#include "migration/deflate/Adler32.h"
#include "migration/deflate/DeflateStored.h"
#include "migration/deflate/Inflate.h"

#include <algorithm>

using namespace VORN;
using namespace VORN::Fuzz;
using namespace VORN::Migration;

namespace {

/// What came of inflating, by whichever decoder.
struct Inflated {
    std::string complaint;
    Bytes bytes;
    std::size_t bytesRead = 0;
};

Inflated inflatedFast(std::span<const std::uint8_t> deflated) {
    Inflated result;
    const BorrowConstBuffer source{deflated};
    ConstBufferStream in{source};
    const auto inflateAll = [&](WriteStream& out) { inflate(in, out); };
    result.complaint = complaintOf([&] { result.bytes = written(inflateAll); });
    result.bytesRead = static_cast<std::size_t>(in.tell());
    return result;
}

Inflated inflatedPlainly(std::span<const std::uint8_t> deflated) {
    Inflated result;
    PlainInflate plain{deflated};
    result.complaint = complaintOf([&] { result.bytes = plain.run(); });
    result.bytesRead = plain.bytesRead();
    return result;
}

void compareDecoders(std::span<const std::uint8_t> deflated) {
    const Inflated fast = inflatedFast(deflated);
    const Inflated plain = inflatedPlainly(deflated);
    require(fast.complaint == plain.complaint, "both decoders say the same");
    if (!fast.complaint.empty())
        return;
    require(fast.bytes == plain.bytes, "both decoders give the same bytes");
    require(fast.bytesRead == plain.bytesRead, "both decoders end at the same byte");
}

void storeAndInflate(std::span<const std::uint8_t> bytes) {
    const Bytes stored =
        written([&](WriteStream& out) { DeflateStored{out, bytes.size()}.write(bytes); });
    require(stored.size() == DeflateStored::streamBytes(bytes.size()),
            "stored blocks have the size that is foretold");
    if (!bytes.empty())
        require(std::ranges::equal(inflatedFast(stored).bytes, bytes),
                "stored blocks hold what was written");
}

/// Byte by byte, as the definitions have it.
void compareChecksums(std::span<const std::uint8_t> bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (unsigned bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc % 2 != 0 ? 0xEDB88320 : 0);
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    Crc32 fastCrc;
    Adler32 fastAdler;
    const std::size_t first = bytes.size() / 3; // in two pieces, which may be empty
    for (const auto& piece : {bytes.first(first), bytes.subspan(first)}) {
        fastCrc.update(piece);
        fastAdler.update(piece);
    }
    require(fastCrc.value() == ~crc, "the CRC is that of the definition");
    require(fastAdler.value() == (b << 16 | a), "the Adler-32 is that of the definition");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    compareDecoders({data, size});
    storeAndInflate({data, size});
    compareChecksums({data, size});
    return 0;
}
