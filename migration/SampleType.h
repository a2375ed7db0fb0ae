#pragma once

#include <cstdint>
#include <string>

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

} // namespace VORN::Migration
