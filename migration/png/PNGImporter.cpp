#include "migration/png/PNGImporter.h"

#include "core/BufferStream.h"
#include "core/Exception.h"
#include "migration/BigEndian.h"
#include "migration/ImageFormatDescriptor.h"
#include "migration/deflate/Inflate.h"
#include "migration/deflate/ZlibHeader.h"
#include "migration/png/LineSink.h"

#include <algorithm>

namespace VORN::Migration {

namespace {

constexpr std::size_t kPieceBytes = std::size_t{1} << 18; // read at once, arrived or not
constexpr std::uint8_t kAncillary = 0x20;                 // in a chunk type's first letter
constexpr std::uint64_t kKeptBytes = 3 * 256;     // of a chunk other than IDAT: the largest palette
constexpr std::uint64_t kLargestExpansion = 1032; // 2 bits of DEFLATE repeat 258 bytes at most

} // namespace

void PNGImporter::importImage(DynamicBuffer& buffer, Metadata& metadata) {
    readSignature();
    while (takeChunk(readChunk()))
        ;
    const ImageMetadata imageMetadata = header_.metadata();
    metadata.assign(imageMetadata);
    decode(buffer, imageMetadata);
}

void PNGImporter::readSignature() {
    std::array<std::uint8_t, PNG::kSignature.size()> signature{};
    stream().read(signature);
    if (signature != PNG::kSignature)
        PNG::refuse("signature missmatch");
}

PNGImporter::Chunk PNGImporter::readChunk() {
    if (stream().atEnd())
        PNG::refuse("unexpected end of file");
    Chunk chunk;
    chunk.length = readNumber();
    stream().read(chunk.type);
    checksum_ = {};
    checksum_.update(chunk.type);
    if (chunk.type == PNG::kData)
        readData(compressed_, chunk.length, chunk.length);
    else {
        data_.resize(0);
        readData(data_, kKeptBytes, chunk.length);
    }
    if (readNumber() != checksum_.value())
        PNG::refuse("chunk crc missmatch");
    return chunk;
}

/// Appends the first `kept` of the `length` bytes that follow.
void PNGImporter::readData(IncrementalBuffer& into, std::uint64_t kept, std::uint32_t length) {
    const std::uint64_t end = into.size() + kept;
    while (length > 0) {
        const std::size_t at = into.size();
        const std::size_t piece = std::min<std::size_t>(length, kPieceBytes);
        into.resize(std::uint64_t{at} + piece);
        const std::span<std::uint8_t> bytes = into.writableData().subspan(at);
        stream().read(bytes);
        checksum_.update(bytes);
        length -= static_cast<std::uint32_t>(piece);
        if (into.size() > end)
            into.resize(end);
    }
}

std::uint32_t PNGImporter::readNumber() {
    std::array<std::uint8_t, 4> bytes{};
    stream().read(bytes);
    return fromBigEndian(bytes);
}

/// Returns whether more chunks follow.
bool PNGImporter::takeChunk(const Chunk& chunk) {
    if (chunk.type == PNG::kHeader)
        takeHeader();
    else if (chunk.type == PNG::kPalette)
        takePalette(chunk);
    else if (chunk.type == PNG::kEnd)
        checkEnd(chunk);
    else if (chunk.type != PNG::kData && (chunk.type.front() & kAncillary) == 0)
        PNG::refuse("unsuppored critical chunk");
    return chunk.type != PNG::kEnd;
}

void PNGImporter::takeHeader() {
    ConstBufferStream fields{data_};
    header_ = PNG::IHDR::read(fields);
}

void PNGImporter::takePalette(const Chunk& chunk) {
    if (palette_)
        PNG::refuse("palette chunk has already appeared");
    if (chunk.length % 3 != 0)
        PNG::refuse("palette size not a multiple of 3");
    // From 32 on any length will do.
    if (chunk.length > std::uint64_t{3} << std::min<unsigned>(header_.bitDepth, 32))
        PNG::refuse("palette size larger than bit depth support");
    if (chunk.length == 0)
        PNG::refuse("empty palette");
    palette_.emplace(); // black
    std::ranges::copy(data_.data(), palette_->begin());
}

void PNGImporter::checkEnd(const Chunk& chunk) const {
    if (chunk.length != 0)
        PNG::refuse("end chunk is not empty");
    if (header_.colorType == PNG::IHDR::kIndexed && !palette_)
        PNG::refuse("missing palette indicated by header");
}

void PNGImporter::decode(DynamicBuffer& buffer, const ImageMetadata& metadata) {
    const ImageFormatDescriptor format{metadata};
    if (header_.colorType != PNG::IHDR::kIndexed) {
        decodeLines(buffer, format.lineStride, format.pixelStride, "image data size missmatch");
        return;
    }
    decodeLines(buffer, format.width, 1, "palette image data size missmatch");
    expandPalette(buffer);
}

/// Resizes `buffer` to the lines of the picture and decodes them into it.
void PNGImporter::decodeLines(DynamicBuffer& buffer, std::uint64_t lineBytes,
                              std::size_t pixelBytes, const char* sizeMismatch) {
    ConstBufferStream compressed{compressed_};
    ZlibHeader::read(compressed).check();
    // No memory for a picture that the data cannot fill; it is inflated all the same, to find out
    // what is wrong with it first.
    const std::uint64_t bytes = lineBytes * header_.height;
    buffer.resize(bytes <= kLargestExpansion * compressed_.size() ? bytes : 0);
    PNG::LineSink lines{buffer.writableData(), lineBytes, header_.height, pixelBytes, sizeMismatch};
    inflate(compressed, lines);
    if (ZlibChecksum::read(compressed).value != lines.checksum())
        PNG::refuse("zlib checksum missmatch");
    lines.checkComplete();
    compressed_ = {};
}

/// Replaces indices by colours, from the last on so that none is overwritten before it is read.
void PNGImporter::expandPalette(DynamicBuffer& buffer) const {
    const std::size_t count = buffer.size();
    buffer.resize(std::uint64_t{3} * count);
    const std::span<std::uint8_t> bytes = buffer.writableData();
    for (std::size_t i = count; i-- > 0;) {
        const std::size_t index = bytes[i];
        for (std::size_t k = 0; k < 3; ++k)
            bytes[3 * i + k] = (*palette_)[3 * index + k];
    }
}

} // namespace VORN::Migration
