#include "migration/png/IHDR.h"

#include "core/Exception.h"
#include "core/Serialization.h"

#include <algorithm>

namespace VORN::Migration::PNG {

namespace {

using Format = ImageMetadata::Format;

/// What a colour type means (PNG, clause 6.1).
struct ColorType {
    std::uint8_t code;
    Format format;
    std::uint32_t channels;
    bool isWritten;
};

constexpr std::array<ColorType, 5> kColorTypes{{
    {IHDR::kGrey, Format::Intensity, 1, true},
    {IHDR::kTrueColor, Format::Rgba, 3, true},
    {IHDR::kIndexed, Format::Rgba, 3, false},
    {IHDR::kGreyAlpha, Format::Intensity, 2, false},
    {IHDR::kTrueColorAlpha, Format::Rgba, 4, true},
}};

constexpr std::array<std::uint32_t, 5> kGreyBitDepths{1, 2, 4, 8, 16};

void requireMethodZero(std::uint8_t method, const char* name) {
    if (method != 0)
        throw SupportException{kNoOrigin,
                               std::string{"PNG "} + name + " method " + std::to_string(method)};
}

std::uint8_t writtenColorType(const ImageMetadata& metadata) {
    const std::string format = toText(metadata.format);
    if (metadata.format == Format::Bgra)
        throw SupportException{kNoOrigin, format};
    const auto found = std::ranges::find_if(kColorTypes, [&](const ColorType& type) {
        return type.isWritten && type.format == metadata.format &&
               type.channels == metadata.channels;
    });
    if (found == kColorTypes.end())
        throw SupportException{kNoOrigin,
                               format + " with " + std::to_string(metadata.channels) + " channels"};
    return found->code;
}

} // namespace

IHDR IHDR::read(ReadStream& in) {
    std::array<std::uint8_t, kBytes> bytes{};
    in.read(bytes);
    const IHDR header{
        .width = fromBigEndian(std::span{bytes}.first<4>()),
        .height = fromBigEndian(std::span{bytes}.subspan<4, 4>()),
        .bitDepth = bytes[8],
        .colorType = bytes[9],
        .compressionMethod = bytes[10],
        .filterMethod = bytes[11],
        .interlaceMethod = bytes[12],
    };
    requireMethodZero(header.compressionMethod, "compression");
    requireMethodZero(header.filterMethod, "filter");
    requireMethodZero(header.interlaceMethod, "interlace");
    return header;
}

IHDR IHDR::of(const ImageMetadata& metadata) {
    if (metadata.lineAlignment != 0)
        throw SupportException{kNoOrigin, "non-zero image line alignment"};
    if (metadata.pixelAlignment != 0)
        throw SupportException{kNoOrigin, "non-zero image pixel alignment"};
    const std::uint8_t type = writtenColorType(metadata);
    if (type == kGrey && !std::ranges::count(kGreyBitDepths, metadata.type.bits))
        throw SupportException{kNoOrigin, "combination of bith depth and color type"};
    return {.width = metadata.width,
            .height = metadata.height,
            .bitDepth = static_cast<std::uint8_t>(metadata.type.bits),
            .colorType = type};
}

std::array<std::uint8_t, IHDR::kBytes> IHDR::bytes() const {
    std::array<std::uint8_t, kBytes> bytes{};
    std::ranges::copy(toBigEndian(width), bytes.begin());
    std::ranges::copy(toBigEndian(height), bytes.begin() + 4);
    std::ranges::copy(
        std::array{bitDepth, colorType, compressionMethod, filterMethod, interlaceMethod},
        bytes.begin() + 8);
    return bytes;
}

ImageMetadata IHDR::metadata() const {
    const auto type = std::ranges::find(kColorTypes, colorType, &ColorType::code);
    if (type == kColorTypes.end())
        throw SupportException{kNoOrigin, "PNG color type " + std::to_string(colorType)};
    ImageMetadata metadata;
    metadata.width = width;
    metadata.height = height;
    metadata.channels = type->channels;
    metadata.format = type->format;
    metadata.type.bits = std::max<std::uint32_t>(bitDepth, 8);
    metadata.type.bigEndian = metadata.type.bits > 8;
    return metadata;
}

} // namespace VORN::Migration::PNG
