#pragma once

#include "core/Color.h"
#include "core/Stream.h"
#include "core/TextWriter.h"

#include <array>
#include <bitset>
#include <string_view>

namespace VORN {

/// The colours that the symbols of a pattern stand for: one slot for every byte, empty at first.
class Palette {
public:
    static constexpr unsigned kSlots = 256;

    /// Empties every slot.
    void Clear();

    /// Replaces the palette by a palette file: a symbol, blanks and three decimal fractions a line.
    ///
    /// The last line of a symbol wins; empty lines are skipped. A line of any other form is a
    /// `ParseException` with the target "palette entry", a number that does not convert a
    /// `Text::ConversionException`. Returns true.
    bool Read(ReadStream& in);

    bool Contains(unsigned char symbol) const { return defined_[symbol]; }
    /// The colour of a defined slot; that of an empty one has no meaning.
    const Color& Get(unsigned char symbol) const { return colors_[symbol]; }
    void Set(unsigned char symbol, const Color& color);

    /// Writes a palette file: the defined slots in ascending order, six significant digits each.
    void Write(Text::TextWriter& out) const;

private:
    void readLine(std::string_view line);

    std::array<Color, kSlots> colors_;
    std::bitset<kSlots> defined_;
};

} // namespace VORN
