#include "migration/SampleType.h"

#include "core/Conversion.h"
#include "core/Exception.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace VORN::Migration {

namespace {

constexpr std::string_view kAfterBits = "-bit ";
constexpr std::string_view kKindExpectation =
    "unsigned | two complement | floating point | fixed point | boolean";
// Names "small endian" although only "little endian" is accepted, deliberately.
constexpr std::string_view kByteOrderExpectation = "big endian | small endian";

/// In the order of `SampleType::Kind`.
constexpr std::array<std::string_view, 5> kKinds{
    "unsigned", "two complement", "floating point", "boolean", "fixed point",
};

[[noreturn]] void refuse(const std::string& text, std::string_view expectation) {
    throw ParseException{kNoOrigin, text, std::string{expectation}};
}

} // namespace

std::string toText(const SampleType& type) {
    const auto kind = static_cast<std::size_t>(type.kind);
    std::string text = std::to_string(type.bits);
    text += kAfterBits;
    text += kind < kKinds.size() ? kKinds[kind] : "custom";
    text += type.bigEndian ? " big endian" : " little endian";
    return text;
}

SampleType parseSampleType(const std::string& text) {
    const std::size_t bitsEnd = text.find(kAfterBits);
    if (bitsEnd == std::string::npos)
        refuse(text, kKindExpectation);
    SampleType type;
    type.bits = Text::toUnsigned(std::string_view{text}.substr(0, bitsEnd));
    std::string_view rest = std::string_view{text}.substr(bitsEnd + kAfterBits.size());

    const auto kind = std::ranges::find_if(
        kKinds, [&](std::string_view name) { return rest.starts_with(std::string{name} + ' '); });
    if (kind == kKinds.end())
        refuse(text, kKindExpectation);
    type.kind = static_cast<SampleType::Kind>(kind - kKinds.begin());
    rest.remove_prefix(kind->size() + 1);

    type.bigEndian = rest == "big endian";
    if (!type.bigEndian && rest != "little endian")
        refuse(text, kByteOrderExpectation);
    return type;
}

} // namespace VORN::Migration
