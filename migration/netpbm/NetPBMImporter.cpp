#include "migration/netpbm/NetPBMImporter.h"

#include "core/Conversion.h"
#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace VORN::Migration {

namespace {

constexpr std::uint32_t kLargestByte = 255;

[[noreturn]] void refuse(const char* detail) { throw FormatException{kNoOrigin, "NetPBM", detail}; }

bool isSeparator(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r' || byte == '\0';
}

/// Reads the numbers of a header, which stand between separators and comments.
///
/// The byte that ends a number is consumed with it, and so is the comment if it starts one.
class TokenReader {
public:
    explicit TokenReader(ReadStream& in) : in_{&in} {}

    char readByte() {
        std::uint8_t byte = 0;
        in_->read({&byte, 1});
        return static_cast<char>(byte);
    }

    std::uint32_t readNumber() {
        std::string token;
        while (token.empty())
            token = readToken();
        return Text::toUnsigned(token);
    }

private:
    /// The bytes before the next separator or comment; there may be none.
    std::string readToken() {
        std::string token;
        char byte = readByte();
        for (; !isSeparator(byte) && byte != '#'; byte = readByte())
            token += byte;
        if (byte == '#')
            skipComment();
        return token;
    }

    void skipComment() {
        while (readByte() != '\n') {
        }
    }

    ReadStream* in_;
};

/// Reads the magic number and the byte after it; returns 4, 5 or 6.
std::uint32_t readMagic(TokenReader& in) {
    const std::string magic{in.readByte(), in.readByte()};
    const char end = in.readByte();
    if (magic[0] != 'P')
        refuse("Data is not recognized as NetPBM.");
    if (!isSeparator(end))
        refuse("Expected NetPBM magic number to end with whitespace.");
    const std::uint32_t type = Text::toUnsigned(magic.substr(1));
    if (1 <= type && type <= 3)
        throw SupportException{kNoOrigin, "plain ASCII"};
    if (type == 7)
        throw SupportException{kNoOrigin, "NetPBM PAM"};
    if (type < 4 || type > 6)
        throw SupportException{kNoOrigin, "PGM type " + magic};
    return type;
}

ImageMetadata readHeader(TokenReader in) {
    const std::uint32_t type = readMagic(in);
    ImageMetadata metadata;
    metadata.width = in.readNumber();
    metadata.height = in.readNumber();
    metadata.channels = type == 6 ? 3 : 1;
    metadata.format = type == 6 ? ImageMetadata::Format::Rgba : ImageMetadata::Format::Intensity;
    if (type == 4)
        metadata.type.bits = 1;
    else
        metadata.type.bits = in.readNumber() > kLargestByte ? 16 : 8;
    return metadata;
}

/// Holds for every header that is accepted; the loops that follow rely on it.
void checkChannels(const ImageMetadata& metadata) {
    if (metadata.type.bits == 1 && metadata.channels > 1)
        refuse("Bitmap must be one channel. ");
    if (metadata.channels != 1 && metadata.channels != 3)
        refuse("Image must have 1 or 3 channels. ");
}

/// Exchanges the first line with the last one, the second with the last but one and so on.
void flipLines(std::span<std::uint8_t> lines, std::size_t lineBytes) {
    if (lineBytes == 0)
        return;
    for (; lines.size() > lineBytes;
         lines = lines.subspan(lineBytes, lines.size() - 2 * lineBytes)) {
        const std::span<std::uint8_t> first = lines.first(lineBytes);
        // The form with one end only is the one that the compiler vectorises.
        std::swap_ranges(first.begin(), first.end(), lines.last(lineBytes).begin());
    }
}

/// The bits of each byte as one byte each, the most significant bit first.
consteval auto bitsOfAllBytes() {
    std::array<std::array<std::uint8_t, 8>, 256> bits{};
    for (std::size_t byte = 0; byte < bits.size(); ++byte)
        for (std::size_t i = 0; i < 8; ++i)
            bits[byte][i] = static_cast<std::uint8_t>(byte >> (7 - i) & 1);
    return bits;
}

constexpr auto kBits = bitsOfAllBytes();

/// Unpacks one row; `packed` holds the bits of `line`, and padding up to a whole byte.
void unpackRow(std::span<const std::uint8_t> packed, std::span<std::uint8_t> line) {
    for (; line.size() >= 8; line = line.subspan(8), packed = packed.subspan(1))
        std::ranges::copy(kBits[packed[0]], line.begin());
    if (!line.empty())
        std::copy_n(kBits[packed[0]].begin(), line.size(), line.begin());
}

void readBitmap(ReadStream& in, const SampleLayout& layout, DynamicBuffer& buffer) {
    const std::uint64_t rowBytes = (std::uint64_t{layout.width} + 7) / 8;
    IncrementalBuffer packed;
    readSamples(in, rowBytes * layout.height, packed);
    buffer.resize(layout.bytes());
    // All rows are there, so each of the sizes below fits memory.
    std::span<const std::uint8_t> rows = packed.data();
    std::span<std::uint8_t> lines = buffer.writableData();
    while (!lines.empty()) {
        unpackRow(rows.first(rowBytes), lines.last(layout.width));
        rows = rows.subspan(rowBytes);
        lines = lines.first(lines.size() - layout.width);
    }
}

/// The samples of a map stand in the file as they do in the buffer, but for the order of lines.
void readMap(ReadStream& in, const SampleLayout& layout, DynamicBuffer& buffer) {
    readSamples(in, layout.bytes(), buffer);
    flipLines(buffer.writableData(), static_cast<std::size_t>(layout.lineStride));
}

} // namespace

void NetPBMImporter::parseMetadata(Metadata& metadata) {
    metadata_ = readHeader(TokenReader{stream()});
    metadata.assign(metadata_);
}

void NetPBMImporter::parseData(std::uint64_t, DynamicBuffer& buffer) {
    checkChannels(metadata_);
    const SampleLayout layout{metadata_};
    if (metadata_.type.bits == 1)
        readBitmap(stream(), layout, buffer);
    else
        readMap(stream(), layout, buffer);
}

} // namespace VORN::Migration
