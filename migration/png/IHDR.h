#pragma once

#include "core/Stream.h"
#include "migration/ImageMetadata.h"

#include <array>
#include <cstddef>

namespace VORN::Migration::PNG {

/// The image header (PNG, clause 11.2.2), its fields in file order; all 0 until one is read.
struct IHDR {
    static constexpr std::size_t kBytes = 13;
    static constexpr std::uint8_t kGrey = 0;
    static constexpr std::uint8_t kTrueColor = 2;
    static constexpr std::uint8_t kIndexed = 3;
    static constexpr std::uint8_t kGreyAlpha = 4;
    static constexpr std::uint8_t kTrueColorAlpha = 6;

    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint8_t bitDepth = 0;
    std::uint8_t colorType = kGrey;
    std::uint8_t compressionMethod = 0;
    std::uint8_t filterMethod = 0;
    std::uint8_t interlaceMethod = 0;

    /// Reads the fields; a method other than 0 is a `SupportException`, and an end before the last
    /// field the stream's own exception.
    static IHDR read(ReadStream& in);
    /// The header of a picture; what cannot be written is a `SupportException`. Colour types other
    /// than grey deliberately take any number of bits, of which the field keeps the low eight.
    static IHDR of(const ImageMetadata& metadata);

    /// The data of the header's chunk.
    std::array<std::uint8_t, kBytes> bytes() const;
    /// The metadata of the decoded picture, palette indices replaced by their colours. Samples of
    /// more than 8 bits are big endian. An unknown colour type is a `SupportException`.
    ImageMetadata metadata() const;
};

} // namespace VORN::Migration::PNG
