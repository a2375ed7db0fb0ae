#include "core/Conversion.h"

#include "core/Exception.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace VORN::Text {

namespace {

/// Removes the digits at the front of `text`; returns whether there were any.
bool takeDigits(std::string_view& text) {
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count > 0;
}

/// Removes the first character of `text` if it is one of `choices`; returns whether it was.
bool takeOneOf(std::string_view& text, std::string_view choices) {
    if (text.empty() || choices.find(text.front()) == std::string_view::npos)
        return false;
    text.remove_prefix(1);
    return true;
}

/// Whether `text` is a decimal number: sign, digits with a point, exponent.
bool isDecimal(std::string_view text) {
    takeOneOf(text, "+-");
    bool hasDigits = takeDigits(text);
    if (takeOneOf(text, "."))
        hasDigits = takeDigits(text) || hasDigits;
    if (!hasDigits)
        return false;
    if (!takeOneOf(text, "eE"))
        return text.empty();
    takeOneOf(text, "+-");
    return takeDigits(text) && text.empty();
}

} // namespace

std::uint32_t toUnsigned(std::string_view text) {
    std::uint32_t value = 0;
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (error != std::errc{} || stop != end)
        throw ConversionException{kNoOrigin, std::string{text}, "unsigned int"};
    return value;
}

float toFloat(std::string_view text) {
    std::string copy{text};
    // The program never leaves the "C" locale, so the decimal point is a full stop.
    const float value = isDecimal(text) ? std::strtof(copy.c_str(), nullptr) : INFINITY;
    if (!std::isfinite(value))
        throw ConversionException{kNoOrigin, std::move(copy), "float"};
    return value;
}

std::string toText(float value) {
    constexpr int kSignificantDigits = 6;
    std::array<char, 32> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value,
                                      std::chars_format::general, kSignificantDigits);
    return {text.data(), result.ptr};
}

} // namespace VORN::Text
