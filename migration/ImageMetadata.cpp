#include "migration/ImageMetadata.h"

#include "core/Conversion.h"
#include "core/Exception.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace VORN::Migration {

namespace {

constexpr std::array<std::string_view, 3> kFormats{"INTENSITY", "RGBA", "BGRA"};

struct NumberField {
    std::string_view key;
    std::uint32_t ImageMetadata::*field;
};

constexpr std::array<NumberField, 5> kNumbers{{
    {"Width", &ImageMetadata::width},
    {"Height", &ImageMetadata::height},
    {"Channels", &ImageMetadata::channels},
    {"Pixel alignment", &ImageMetadata::pixelAlignment},
    {"Line alignment", &ImageMetadata::lineAlignment},
}};

std::uint32_t ImageMetadata::*numberField(const std::string& key) {
    const auto found = std::ranges::find(kNumbers, key, &NumberField::key);
    return found == kNumbers.end() ? nullptr : found->field;
}

ImageMetadata::Format parseFormat(const std::string& text) {
    const auto found = std::ranges::find(kFormats, text);
    if (found == kFormats.end())
        throw ParseException{kNoOrigin, text, "INTENSITY | RGBA | BGRA"};
    return static_cast<ImageMetadata::Format>(found - kFormats.begin());
}

} // namespace

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
