#pragma once

#include "migration/Metadata.h"

#include <cstdint>
#include <string>
#include <vector>

namespace VORN::Migration {

/// How one sample is stored.
struct SampleType {
    enum class Kind { Unsigned, TwoComplement, FloatingPoint, Boolean, FixedPoint };

    std::uint32_t bits = 8;
    Kind kind = Kind::Unsigned;
    bool bigEndian = false;

    bool operator==(const SampleType&) const = default;
};

/// Such as "8-bit unsigned little endian"; a kind that has no name is "custom".
std::string toText(const SampleType& type);

/// Reads what `toText` writes, except for "custom".
///
/// An unknown kind or byte order is a `ParseException`, a bit count that is no number a
/// `ConversionException`.
SampleType parseSampleType(const std::string& text);

/// How the bytes of a picture are laid out, as typed fields.
///
/// The keys "Width", "Height", "Channels", "Type", "Pixel alignment", "Line alignment" and "Format"
/// are served from the fields; every other key is kept as text. Line 0 of a picture buffer is the
/// bottom row of the picture.
class ImageMetadata : public Metadata {
public:
    /// What the channels mean.
    enum class Format {
        Intensity, // grey
        Rgba,      // red, green, blue, and alpha if there are four
        Bgra,      // blue, green, red, and alpha if there are four
    };

    std::uint32_t width = 0;  // pixels per line
    std::uint32_t height = 0; // lines
    std::uint32_t channels = 0;
    SampleType type;
    std::uint32_t pixelAlignment = 0; // bits; 0: pixels are not padded
    std::uint32_t lineAlignment = 0;  // bits; 0: lines are not padded
    Format format = Format::Intensity;

    /// A number that does not convert is a `ConversionException`, a type or format that is none a
    /// `ParseException`.
    void set(const std::string& key, const std::string& value) override;
    bool has(const std::string& key) const override;
    std::string get(const std::string& key) const override;
    std::vector<std::string> keys() const override;
};

/// "INTENSITY", "RGBA" or "BGRA"; any other value is an `UnexpectedValueException`.
std::string toText(ImageMetadata::Format format);

} // namespace VORN::Migration
