#pragma once

#include "core/Color.h"
#include "core/Stream.h"
#include "core/TextWriter.h"

#include <array>
#include <bitset>
#include <string_view>

namespace VORN {

/// The colours that the symbols of a pattern stand for.
///
/// Every byte is a possible symbol and has a slot; a slot is defined once it has a colour. All are
/// empty at first.
class Palette {
public:
    static constexpr std::size_t kSlots = 256;

    /// Empties every slot.
    void Clear();

    /// Replaces the palette by that of a palette file.
    ///
    /// A line holds a symbol and, each behind blanks, red, green and blue as decimal fractions,
    /// such as "a 0.5 0.25 0". If a symbol has several lines, the last one counts; empty lines are
    /// skipped. Any other line is a `ParseException` with the target "palette entry", a number that
    /// does not convert a `Text::ConversionException`. Always returns true.
    bool Read(ReadStream& in);

    /// The number of a symbol's slot, from 0 on, in the order of bytes.
    static std::size_t slotOf(char symbol) { return static_cast<unsigned char>(symbol); }

    /// Whether the slot of `symbol` is defined.
    bool Contains(char symbol) const { return defined_[slotOf(symbol)]; }
    /// The colour of a symbol's slot; it has no meaning if the slot is empty.
    const Color& Get(char symbol) const { return colors_[slotOf(symbol)]; }
    /// Sets the colour of a symbol's slot, which is defined then.
    void Set(char symbol, const Color& color);

    /// A defined slot.
    struct Entry {
        char symbol;
        const Color& color;
    };
    /// Goes through the defined slots in the order of bytes, for a range-based loop.
    class Iterator {
    public:
        /// Stands at the first defined slot from number `slot` on.
        Iterator(const Palette& palette, std::size_t slot) : palette_{&palette}, slot_{slot} {
            skipEmpty();
        }
        /// The slot's symbol and colour.
        Entry operator*() const { return {static_cast<char>(slot_), palette_->colors_[slot_]}; }
        /// Goes on to the next defined slot.
        Iterator& operator++() {
            ++slot_;
            skipEmpty();
            return *this;
        }
        /// Whether both stand at the same slot.
        bool operator==(const Iterator& other) const { return slot_ == other.slot_; }

    private:
        void skipEmpty() {
            while (slot_ < kSlots && !palette_->defined_[slot_])
                ++slot_;
        }

        const Palette* palette_;
        std::size_t slot_;
    };
    /// The first defined slot, in the order of bytes.
    Iterator begin() const { return {*this, 0}; }
    /// The place behind the last slot.
    Iterator end() const { return {*this, kSlots}; }

    /// Writes the palette file: the defined slots in the order of bytes, each number with six
    /// significant digits. Throws what the stream throws.
    void Write(Text::TextWriter& out) const;

private:
    void readLine(std::string_view line);

    std::array<Color, kSlots> colors_;
    std::bitset<kSlots> defined_;
};

} // namespace VORN
