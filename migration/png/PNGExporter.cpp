#include "migration/png/PNGExporter.h"

#include "core/CheckedSize.h"
#include "migration/deflate/Adler32.h"
#include "migration/deflate/DeflateStored.h"
#include "migration/deflate/ZlibHeader.h"
#include "migration/png/Chunk.h"
#include "migration/png/IHDR.h"

#include <limits>

namespace VORN::Migration {

namespace {

constexpr std::uint8_t kNoFilter = 0;
constexpr std::uint64_t kLargestChunk = std::numeric_limits<std::uint32_t>::max();

/// `bytes` itself; what does not fit a chunk is refused.
std::uint64_t checkFits(std::uint64_t bytes) {
    if (bytes > kLargestChunk)
        throw BoundException<std::uint64_t>{kNoOrigin, bytes, kLargestChunk};
    return bytes;
}

/// What is written of a picture, in bytes.
struct Layout {
    std::uint64_t lines;
    std::uint64_t lineBytes; // bits that make no whole byte are dropped
    std::uint64_t rawBytes;  // of all lines, with a filter byte before each
    std::uint64_t dataBytes; // of the IDAT chunk

    explicit Layout(const ImageMetadata& metadata)
        : lines{metadata.height},
          lineBytes{
              (CheckedSize{metadata.width} * metadata.channels * metadata.type.bits).saturated() /
              8},
          rawBytes{checkFits(checkFits(lineBytes + 1) * lines)},
          dataBytes{checkFits(ZlibHeader::kBytes + DeflateStored::streamBytes(rawBytes) +
                              ZlibChecksum::kBytes)} {}
};

void checkSize(const Layout& layout, const Buffer& buffer) {
    const std::uint64_t bytes = layout.lines * layout.lineBytes;
    if (bytes > buffer.size())
        throw SpaceException<std::uint64_t>{kNoOrigin, bytes, buffer.size()};
}

void writeHeader(WriteStream& out, const PNG::IHDR& header) {
    PNG::ChunkWriter chunk{out, PNG::kHeader, PNG::IHDR::kBytes};
    chunk.write(header.bytes());
    chunk.finish();
}

/// Writes the lines from the last one, the top row, to the first.
void writeLines(WriteStream& out, const Layout& layout, std::span<const std::uint8_t> picture) {
    ZlibHeader{}.write(out);
    DeflateStored blocks{out, layout.rawBytes};
    Adler32 checksum;
    const auto write = [&](std::span<const std::uint8_t> bytes) {
        checksum.update(bytes);
        blocks.write(bytes);
    };
    for (std::uint64_t y = layout.lines; y-- > 0;) {
        write(std::array{kNoFilter});
        write(picture.subspan(y * layout.lineBytes, layout.lineBytes));
    }
    ZlibChecksum{checksum.value()}.write(out);
}

} // namespace

void PNGExporter::exportImage(const Buffer& buffer, const Metadata& metadata) {
    WriteStream& out = stream();
    out.write(PNG::kSignature);
    ImageMetadata image;
    image.assign(metadata);
    const PNG::IHDR header = PNG::IHDR::of(image);
    const Layout layout{image};
    checkSize(layout, buffer);

    writeHeader(out, header);
    PNG::ChunkWriter data{out, PNG::kData, static_cast<std::uint32_t>(layout.dataBytes)};
    writeLines(data, layout, buffer.data());
    data.finish();
    PNG::ChunkWriter{out, PNG::kEnd, 0}.finish();
}

} // namespace VORN::Migration
