#include "migration/png/PNGImporter.h"

#include "core/BufferStream.h"
#include "core/Crc32.h"
#include "core/Serialization.h"
#include "migration/ImageFormatDescriptor.h"
#include "migration/deflate/Inflate.h"
#include "migration/deflate/ZlibHeader.h"
#include "migration/png/Chunk.h"
#include "migration/png/IHDR.h"
#include "migration/png/LineSink.h"

#include <algorithm>
#include <optional>

namespace VORN::Migration {

namespace {

using namespace PNG;

constexpr std::size_t kPieceBytes = std::size_t{1} << 18; // read at once, arrived or not
constexpr std::uint8_t kAncillary = 0x20;                 // in a chunk type's first letter
constexpr std::uint64_t kKeptBytes = 3 * 256;     // of a chunk other than IDAT: the largest palette
constexpr std::uint64_t kLargestExpansion = 1032; // 2 bits of DEFLATE repeat 258 bytes at most

/// Red, green and blue of each index; black where the file gives none.
using Palette = std::array<std::uint8_t, 3 * 256>;

/// What the chunks of a file say.
struct Contents {
    IHDR header; // the last one
    std::optional<Palette> palette;
    IncrementalBuffer compressed; // the data of all IDAT chunks
};

/// Goes through the chunks of a file (PNG, clause 5.3). Stream and contents are borrowed.
class ChunkLoop {
public:
    ChunkLoop(ReadStream& in, Contents& contents) : in_{&in}, contents_{&contents} {}

    /// Reads from the signature up to the end chunk.
    void read();

private:
    struct Chunk {
        ChunkType type{};
        std::uint32_t length = 0;
    };

    void readSignature();
    Chunk readChunk();
    void readData(IncrementalBuffer& into, std::uint64_t kept, std::uint32_t length);
    std::uint32_t readNumber();

    void takeChunk(const Chunk& chunk);
    void takeHeader();
    void takePalette(const Chunk& chunk);
    void checkEnd(const Chunk& chunk) const;

    ReadStream* in_;
    Contents* contents_;
    Crc32 checksum_;         // of the chunk that is being read
    IncrementalBuffer data_; // of the chunk read last, as far as it can matter
};

void ChunkLoop::read() {
    readSignature();
    for (Chunk chunk; chunk.type != kEnd; takeChunk(chunk))
        chunk = readChunk();
}

void ChunkLoop::readSignature() {
    std::array<std::uint8_t, kSignature.size()> signature{};
    in_->read(signature);
    if (signature != kSignature)
        refuse("signature missmatch");
}

ChunkLoop::Chunk ChunkLoop::readChunk() {
    if (in_->atEnd())
        refuse("unexpected end of file");
    Chunk chunk;
    chunk.length = readNumber();
    in_->read(chunk.type);
    checksum_ = {};
    checksum_.update(chunk.type);
    if (chunk.type == kData)
        readData(contents_->compressed, chunk.length, chunk.length);
    else {
        data_.resize(0);
        readData(data_, kKeptBytes, chunk.length);
    }
    if (readNumber() != checksum_.value())
        refuse("chunk crc missmatch");
    return chunk;
}

/// Appends the first `kept` of the `length` bytes that follow.
void ChunkLoop::readData(IncrementalBuffer& into, std::uint64_t kept, std::uint32_t length) {
    const std::uint64_t end = into.size() + kept;
    while (length > 0) {
        const std::size_t at = into.size();
        const std::size_t piece = std::min<std::size_t>(length, kPieceBytes);
        into.resize(std::uint64_t{at} + piece);
        const std::span<std::uint8_t> bytes = into.writableData().subspan(at);
        in_->read(bytes);
        checksum_.update(bytes);
        length -= static_cast<std::uint32_t>(piece);
        if (into.size() > end)
            into.resize(end);
    }
}

std::uint32_t ChunkLoop::readNumber() {
    std::array<std::uint8_t, 4> bytes{};
    in_->read(bytes);
    return fromBigEndian(bytes);
}

void ChunkLoop::takeChunk(const Chunk& chunk) {
    if (chunk.type == kHeader)
        takeHeader();
    else if (chunk.type == kPalette)
        takePalette(chunk);
    else if (chunk.type == kEnd)
        checkEnd(chunk);
    else if (chunk.type != kData && (chunk.type.front() & kAncillary) == 0)
        refuse("unsuppored critical chunk");
}

void ChunkLoop::takeHeader() {
    ConstBufferStream fields{data_};
    contents_->header = IHDR::read(fields);
}

void ChunkLoop::takePalette(const Chunk& chunk) {
    if (contents_->palette)
        refuse("palette chunk has already appeared");
    if (chunk.length % 3 != 0)
        refuse("palette size not a multiple of 3");
    // From 32 on any length will do.
    if (chunk.length > std::uint64_t{3} << std::min<unsigned>(contents_->header.bitDepth, 32))
        refuse("palette size larger than bit depth support");
    if (chunk.length == 0)
        refuse("empty palette");
    contents_->palette.emplace(); // black
    std::ranges::copy(data_.data(), contents_->palette->begin());
}

void ChunkLoop::checkEnd(const Chunk& chunk) const {
    if (chunk.length != 0)
        refuse("end chunk is not empty");
    if (contents_->header.colorType == IHDR::kIndexed && !contents_->palette)
        refuse("missing palette indicated by header");
}

/// Resizes `buffer` to the lines of the picture and decodes them into it.
void decodeLines(const Contents& contents, DynamicBuffer& buffer, std::uint64_t lineBytes,
                 std::size_t pixelBytes, const char* sizeMismatch) {
    ConstBufferStream compressed{contents.compressed};
    ZlibHeader::read(compressed).check();
    // No memory for a picture that the data cannot fill; it is inflated all the same, to find out
    // what is wrong with it first.
    const std::uint32_t lineCount = contents.header.height;
    const std::uint64_t bytes = lineBytes * lineCount;
    buffer.resize(bytes <= kLargestExpansion * contents.compressed.size() ? bytes : 0);
    LineSink lines{buffer.writableData(), lineBytes, lineCount, pixelBytes, sizeMismatch};
    inflate(compressed, lines);
    if (ZlibChecksum::read(compressed).value != lines.checksum())
        refuse("zlib checksum missmatch");
    lines.checkComplete();
}

/// Replaces indices by colours, from the last on so that none is overwritten before it is read.
void expandPalette(const Palette& palette, DynamicBuffer& buffer) {
    const std::size_t count = buffer.size();
    buffer.resize(std::uint64_t{3} * count);
    const std::span<std::uint8_t> bytes = buffer.writableData();
    for (std::size_t i = count; i-- > 0;) {
        const std::size_t index = bytes[i];
        for (std::size_t k = 0; k < 3; ++k)
            bytes[3 * i + k] = palette[3 * index + k];
    }
}

void decode(Contents& contents, const ImageMetadata& metadata, DynamicBuffer& buffer) {
    const ImageFormatDescriptor format{metadata};
    if (contents.header.colorType != IHDR::kIndexed)
        return decodeLines(contents, buffer, format.lineStride, format.pixelStride,
                           "image data size missmatch");
    decodeLines(contents, buffer, format.width, 1, "palette image data size missmatch");
    contents.compressed = {}; // makes room for the colours
    expandPalette(*contents.palette, buffer);
}

} // namespace

void PNGImporter::importImage(DynamicBuffer& buffer, Metadata& metadata) {
    Contents contents;
    ChunkLoop{stream(), contents}.read();
    const ImageMetadata imageMetadata = contents.header.metadata();
    metadata.assign(imageMetadata);
    decode(contents, imageMetadata, buffer);
}

} // namespace VORN::Migration
