#include "beads/Palette.h"

#include "core/BufferStream.h"
#include "core/Conversion.h"
#include "core/Exception.h"

#include <algorithm>

namespace VORN {

namespace {

constexpr std::string_view kWhitespace = " \t\n\r";
constexpr std::string_view kNumber = "0123456789.";

/// Takes the longest prefix made of `set` away from `text` and returns it.
std::string_view take(std::string_view& text, std::string_view set) {
    const std::string_view taken =
        text.substr(0, std::min(text.find_first_not_of(set), text.size()));
    text.remove_prefix(taken.size());
    return taken;
}

} // namespace

void Palette::Clear() { defined_.reset(); }

bool Palette::Read(ReadStream& in) {
    Clear();
    IncrementalBuffer bytes;
    readAll(in, bytes);
    std::string_view text{reinterpret_cast<const char*>(bytes.data().data()), bytes.size()};
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!line.empty())
            readLine(line);
    }
    return true;
}

void Palette::readLine(std::string_view line) {
    std::string_view rest = line.substr(1);
    std::array<std::string_view, 3> numbers;
    bool matches = true;
    for (std::string_view& number : numbers) {
        const bool isSeparated = !take(rest, kWhitespace).empty();
        number = take(rest, kNumber);
        matches = matches && isSeparated && !number.empty();
    }
    take(rest, kWhitespace);
    if (!matches || !rest.empty())
        throw ParseException{kNoOrigin, std::string{line}, "palette entry"};
    Set(line.front(),
        {Text::toFloat(numbers[0]), Text::toFloat(numbers[1]), Text::toFloat(numbers[2])});
}

void Palette::Set(char symbol, const Color& color) {
    colors_[slotOf(symbol)] = color;
    defined_.set(slotOf(symbol));
}

void Palette::Write(Text::TextWriter& out) const {
    for (const auto& [symbol, color] : *this) {
        std::string line(1, symbol);
        for (std::size_t component = 0; component < 3; ++component)
            line += ' ' + Text::toText(color[component]);
        out.write(line + '\n');
    }
}

} // namespace VORN
