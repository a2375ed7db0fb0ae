#pragma once

#include "core/Stream.h"
#include "migration/ImageMetadata.h"

#include <array>
#include <cstddef>

namespace VORN::Migration::PNG {

/// The image header (PNG, clause 11.2.2). Its fields stand in the order of the file and are 0 at
/// first.
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

    /// Reads the fields. A method other than 0 is a `SupportException`; data that ends early is the
    /// stream's own exception.
    static IHDR read(ReadStream& in);
    /// The header for a picture; one that cannot be written as PNG is a `SupportException`.
    /// Deliberately, only grey is checked for the number of bits; the field keeps its low eight
    /// bits.
    static IHDR of(const ImageMetadata& metadata);

    /// The fields as the data of a chunk.
    std::array<std::uint8_t, kBytes> bytes() const;
    /// The metadata of the decoded picture, in which palette indices are replaced by their colours.
    /// Samples of more than 8 bits are big endian. An unknown colour type is a `SupportException`.
    ImageMetadata metadata() const;
};

} // namespace VORN::Migration::PNG
