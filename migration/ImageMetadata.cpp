#include "migration/ImageMetadata.h"

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
// Deliberately says "small endian", although only "little endian" is accepted.
constexpr std::string_view kByteOrderExpectation = "big endian | small endian";

/// In the order of `SampleType::Kind`.
constexpr std::array<std::string_view, 5> kKinds{
    "unsigned", "two complement", "floating point", "boolean", "fixed point",
};

[[noreturn]] void refuse(const std::string& text, std::string_view expectation) {
    throw ParseException{kNoOrigin, text, std::string{expectation}};
}

constexpr std::array<std::string_view, 3> kFormats{"INTENSITY", "RGBA", "BGRA"};

struct NumberField {
    std::string_view key;
    std::uint32_t ImageMetadata::* field;
};

constexpr std::array<NumberField, 5> kNumbers{{
    {"Width", &ImageMetadata::width},
    {"Height", &ImageMetadata::height},
    {"Channels", &ImageMetadata::channels},
    {"Pixel alignment", &ImageMetadata::pixelAlignment},
    {"Line alignment", &ImageMetadata::lineAlignment},
}};

std::uint32_t ImageMetadata::* numberField(const std::string& key) {
    for (const NumberField& number : kNumbers)
        if (number.key == key)
            return number.field;
    return nullptr;
}

ImageMetadata::Format parseFormat(const std::string& text) {
    const auto found = std::ranges::find(kFormats, text);
    if (found == kFormats.end())
        throw ParseException{kNoOrigin, text, "INTENSITY | RGBA | BGRA"};
    return static_cast<ImageMetadata::Format>(found - kFormats.begin());
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

std::string toText(ImageMetadata::Format format) {
    const auto index = static_cast<std::size_t>(format);
    if (index >= kFormats.size())
        throw UnexpectedValueException{kNoOrigin, std::to_string(index), "image format descriptor"};
    return std::string{kFormats[index]};
}

void ImageMetadata::set(const std::string& key, const std::string& value) {
    if (const auto field = numberField(key))
        this->*field = Text::toUnsigned(value);
    else if (key == "Type")
        type = parseSampleType(value);
    else if (key == "Format")
        format = parseFormat(value);
    else
        Metadata::set(key, value);
}

bool ImageMetadata::has(const std::string& key) const {
    return numberField(key) != nullptr || key == "Type" || key == "Format" || Metadata::has(key);
}

std::string ImageMetadata::get(const std::string& key) const {
    if (const auto field = numberField(key))
        return std::to_string(this->*field);
    if (key == "Type")
        return toText(type);
    if (key == "Format")
        return toText(format);
    return Metadata::get(key);
}

std::vector<std::string> ImageMetadata::keys() const {
    std::vector<std::string> keys = Metadata::keys();
    for (const NumberField& number : kNumbers)
        keys.emplace_back(number.key);
    keys.emplace_back("Type");
    keys.emplace_back("Format");
    std::ranges::sort(keys);
    return keys;
}

} // namespace VORN::Migration
