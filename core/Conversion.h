#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace VORN::Text {

/// Converts decimal digits without sign to a number from 0 to 4294967295.
///
/// Any other text is a `ConversionException` with the target "unsigned int".
std::uint32_t toUnsigned(std::string_view text);

/// Converts a decimal number, with or without sign, fraction and exponent, to the nearest number of
/// single precision.
///
/// Any other text, and a number too large to be finite, is a `ConversionException` with the target
/// "float".
float toFloat(std::string_view text);

/// Writes `value` with six significant digits and without trailing zeros, as a standard output
/// stream does by default.
std::string toText(float value);

} // namespace VORN::Text
