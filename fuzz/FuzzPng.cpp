#include "core/Crc32.h"
#include "core/Serialization.h"
#include "fuzz/FuzzedImport.h"
#include "migration/deflate/Adler32.h"
#include "migration/deflate/Inflate.h"
#include "migration/png/Chunk.h"
#include "migration/png/PNGExporter.h"
#include "migration/png/PNGImporter.h"

using namespace VORN;
using namespace VORN::Fuzz;
using namespace VORN::Migration;

namespace {

constexpr std::size_t kChunkOverhead = 12; // length, type and checksum

/// A chunk of `file`, as far as it is complete.
struct Chunk {
    std::size_t data;
    std::size_t length;
};

std::vector<Chunk> chunksOf(const Bytes& file) {
    std::vector<Chunk> chunks;
    std::size_t at = PNG::kSignature.size();
    while (at + kChunkOverhead <= file.size()) {
        const std::size_t length = fromBigEndian(std::span{file}.subspan(at).first<4>());
        if (length > file.size() - at - kChunkOverhead)
            break;
        chunks.push_back({at + 8, length});
        at += kChunkOverhead + length;
    }
    return chunks;
}

void put(std::uint32_t value, Bytes& file, std::size_t at) {
    std::ranges::copy(toBigEndian(value), file.begin() + static_cast<std::ptrdiff_t>(at));
}

/// The inflated data of all IDAT chunks; nothing when it cannot be inflated. `end` becomes the
/// number of bytes up to the checksum.
Bytes inflatedData(const Bytes& compressed, std::size_t& end) {
    Bytes inflated;
    if (compressed.size() < 2)
        return inflated;
    const BorrowConstBuffer source{std::span{compressed}.subspan(2)};
    ConstBufferStream in{source};
    const std::string complaint =
        complaintOf([&] { inflated = written([&](WriteStream& out) { inflate(in, out); }); });
    end = 2 + static_cast<std::size_t>(in.tell());
    return complaint.empty() ? inflated : Bytes{};
}

/// Sets the Adler-32 where the data of all IDAT chunks can be inflated, and the CRC of every chunk,
/// so that what lies behind those checks is reached.
Bytes repaired(Bytes file) {
    Bytes compressed;
    std::vector<std::size_t> places; // of its bytes in the file
    for (const Chunk& chunk : chunksOf(file))
        if (std::ranges::equal(std::span{file}.subspan(chunk.data - 4, 4), PNG::kData))
            for (std::size_t i = 0; i < chunk.length; ++i) {
                compressed.push_back(file[chunk.data + i]);
                places.push_back(chunk.data + i);
            }
    std::size_t end = 0;
    const Bytes inflated = inflatedData(compressed, end);
    if (!inflated.empty() && end + 4 <= compressed.size()) {
        Adler32 checksum;
        checksum.update(inflated);
        const auto bytes = toBigEndian(checksum.value());
        for (std::size_t i = 0; i < bytes.size(); ++i)
            file[places[end + i]] = bytes[i];
    }
    for (const Chunk& chunk : chunksOf(file)) {
        Crc32 checksum;
        checksum.update(std::span{file}.subspan(chunk.data - 4, chunk.length + 4));
        put(checksum.value(), file, chunk.data + chunk.length);
    }
    return file;
}

/// Whether indices of more than 8 bits were replaced by colours of one byte a channel, which is
/// less than the metadata tells; who reads the picture refuses it then.
bool isShortened(const Import& found) {
    const ImageMetadata& metadata = found.metadata;
    return metadata.type.bits > 8 && metadata.channels == 3 &&
           found.samples.size() == std::uint64_t{3} * metadata.width * metadata.height;
}

void run(std::span<const std::uint8_t> file) {
    const Import found = importPicture<PNGImporter>(file);
    if (!found.complaint.empty() || isShortened(found))
        return;
    requireWholePicture(found);
    Bytes again;
    if (exportPicture<PNGExporter>(found, again).empty() && !found.samples.empty())
        requireSame<PNGImporter>(found, again);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Bytes file(data, data + size);
    run(file);
    const Bytes better = repaired(file);
    if (better != file)
        run(better);
    return 0;
}
