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
    static constexpr std::size_t kSlots = 256;

    /// Empties every slot.
    void Clear();

    /// Replaces the palette by a palette file: a symbol, blanks and three decimal fractions a line.
    ///
    /// The last line of a symbol wins; empty lines are skipped. A line of any other form is a
    /// `ParseException` with the target "palette entry", a number that does not convert a
    /// `Text::ConversionException`. Returns true.
    bool Read(ReadStream& in);

    /// The number of a symbol's slot, from 0 on, in the order of bytes.
    static std::size_t slotOf(char symbol) { return static_cast<unsigned char>(symbol); }

    bool Contains(char symbol) const { return defined_[slotOf(symbol)]; }
    /// The colour of a defined slot; that of an empty one has no meaning.
    const Color& Get(char symbol) const { return colors_[slotOf(symbol)]; }
    /// Defines or replaces a slot.
    void Set(char symbol, const Color& color);

    /// A defined slot.
    struct Entry {
        char symbol;
        const Color& color;
    };
    /// Goes through the defined slots in the order of bytes.
    class Iterator {
    public:
        Iterator(const Palette& palette, std::size_t slot) : palette_{&palette}, slot_{slot} {
            skipEmpty();
        }
        Entry operator*() const { return {static_cast<char>(slot_), palette_->colors_[slot_]}; }
        Iterator& operator++() {
            ++slot_;
            skipEmpty();
            return *this;
        }
        bool operator==(const Iterator& other) const { return slot_ == other.slot_; }

    private:
        void skipEmpty() {
            while (slot_ < kSlots && !palette_->defined_[slot_])
                ++slot_;
        }

        const Palette* palette_;
        std::size_t slot_;
    };
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, kSlots}; }

    /// Writes a palette file: the defined slots in ascending order, six significant digits each.
    void Write(Text::TextWriter& out) const;

private:
    void readLine(std::string_view line);

    std::array<Color, kSlots> colors_;
    std::bitset<kSlots> defined_;
};

} // namespace VORN
