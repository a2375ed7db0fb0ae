#include "migration/netpbm/NetPBMExporter.h"

#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"

#include <algorithm>
#include <string>
#include <vector>

namespace VORN::Migration {

namespace {

void checkSamples(const ImageMetadata& metadata) {
    const std::uint64_t bits = metadata.type.bits;
    const std::uint64_t bitsPerPixel = bits * metadata.channels;
    if (bits > 16)
        throw FormatException{kNoOrigin, "NetPBM",
                              "NetPBM does not allow more than 16 bits per pixel component. "};
    // Cannot be true of a product; a guard for the day when the bits come from elsewhere.
    if (metadata.channels != 0 && bitsPerPixel % metadata.channels != 0)
        throw FormatException{kNoOrigin, "NetPBM", "Channels is not a factor of BPP. "};
    if (metadata.channels != 1 && metadata.channels != 3)
        throw SupportException{kNoOrigin, "NetPBM PAM"};
    if (bits == 0)
        throw SupportException{kNoOrigin, "samples of 0 bits"};
}

void checkSize(const Buffer& buffer, const SampleLayout& layout) {
    if (layout.bytes() > buffer.size())
        throw SpaceException<std::uint64_t>{kNoOrigin, layout.bytes(), buffer.size()};
}

bool isBitmap(const ImageMetadata& metadata) {
    return metadata.channels == 1 && metadata.type.bits == 1;
}

void writeHeader(WriteStream& out, const ImageMetadata& metadata) {
    const char* magic = metadata.channels == 3 ? "P6\n" : isBitmap(metadata) ? "P4\n" : "P5\n";
    std::string header =
        magic + std::to_string(metadata.width) + '\n' + std::to_string(metadata.height) + '\n';
    if (!isBitmap(metadata))
        header += std::to_string((1U << metadata.type.bits) - 1) + '\n';
    out.write({reinterpret_cast<const std::uint8_t*>(header.data()), header.size()});
}

/// Packs a line of bits, one per pixel, most significant first; the padding is 0.
void packBits(std::span<const std::uint8_t> line, const SampleLayout& layout,
              std::span<std::uint8_t> row) {
    std::ranges::fill(row, std::uint8_t{0});
    for (std::size_t x = 0; x < layout.width; ++x)
        if (line[x * layout.pixelStride] != 0)
            row[x / 8] = static_cast<std::uint8_t>(row[x / 8] | 0x80U >> x % 8);
}

/// Collects the samples of a line in channel order.
void packSamples(std::span<const std::uint8_t> line, const SampleLayout& layout,
                 std::span<std::uint8_t> row) {
    auto out = row.begin();
    for (std::size_t x = 0; x < layout.width; ++x)
        for (const std::size_t offset : layout.offsets)
            out = std::copy_n(line.begin() +
                                  static_cast<std::ptrdiff_t>(x * layout.pixelStride + offset),
                              layout.sampleBytes, out);
}

/// Calls `write` with each line of the buffer, from the last, the picture's top, to the first.
template <class Write>
void forEachLine(const Buffer& buffer, const SampleLayout& layout, Write write) {
    for (std::uint64_t y = layout.height; y-- > 0;)
        write(buffer.data().subspan(y * layout.lineStride, layout.lineStride));
}

void writeRaster(WriteStream& out, const Buffer& buffer, const SampleLayout& layout, bool bitmap) {
    if (layout.width == 0 || layout.height == 0)
        return; // no memory for a row, however long, where there is none
    if (layout.isPacked() && !bitmap)
        return forEachLine(buffer, layout, [&](std::span<const std::uint8_t> line) {
            out.write(line.first(layout.rowBytes()));
        });
    std::vector<std::uint8_t> row(bitmap ? (std::size_t{layout.width} + 7) / 8 : layout.rowBytes());
    forEachLine(buffer, layout, [&](std::span<const std::uint8_t> line) {
        if (bitmap)
            packBits(line, layout, row);
        else
            packSamples(line, layout, row);
        out.write(row);
    });
}

} // namespace

void NetPBMExporter::exportImage(const Buffer& buffer, const Metadata& metadata) {
    ImageMetadata image;
    image.assign(metadata);
    checkSamples(image);
    const SampleLayout layout{image};
    checkSize(buffer, layout);
    writeHeader(stream(), image);
    writeRaster(stream(), buffer, layout, isBitmap(image));
}

} // namespace VORN::Migration
