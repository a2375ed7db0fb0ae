#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace VORN::Text {

/// The number that decimal digits stand for, 0 to 4294967295, without sign.
///
/// Anything else is a `ConversionException` with the target "unsigned int".
std::uint32_t toUnsigned(std::string_view text);

/// The nearest single-precision number to a decimal with optional sign, fraction and exponent.
///
/// Anything else, and what is too large to be finite, is a `ConversionException` with the target
/// "float".
float toFloat(std::string_view text);

/// `value` with six significant digits and without trailing zeros, as a standard output stream
/// writes it by default.
std::string toText(float value);

} // namespace VORN::Text
