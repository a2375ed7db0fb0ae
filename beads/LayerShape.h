#pragma once

#include "core/Tuple.h"

#include <array>
#include <iterator>
#include <optional>
#include <string_view>

namespace VORN {

/// How the beads of a layer are arranged.
enum class PatternStyle : unsigned {
    Square, // w columns by h rows
    Hex,    // h rows of w beads, every second row shifted by half a bead
    Circle, // rings of 6, 12, 18, ... beads around one
};

/// The names of the styles, as users write them, in the order of their values.
constexpr std::array<std::string_view, 3> kPatternStyleNames{"square", "hex", "circle"};

/// The style with exactly that name; nothing if there is none.
std::optional<PatternStyle> patternStyleNamed(std::string_view name);

/// Where a bead stands in the text of its layer.
struct Bead {
    std::size_t position; // in the content
    std::size_t row;      // or ring, 0 being the centre
    std::size_t column;   // in characters, from the beginning of the row or ring
};

/// The style of a layer and its size in beads, with all that follows from them for its text.
///
/// The text of a layer, its content, is its rows one behind the other. This class is the only place
/// that knows how each style lays them out:
///
/// | style  | row r of the text                                     | rows   |
/// | ------ | ----------------------------------------------------- | ------ |
/// | square | a bead for each of `width` characters                 | height |
/// | hex    | 2 `width` characters, a bead and a blank in turn; an  | height |
/// |        | even row begins with a bead, an odd one with a blank  |        |
/// | circle | ring r: 6 r beads, row 0 being the centre             | width  |
///
/// Files may hold more or fewer characters than their size asks for (hex rows of odd length, a
/// first row of any length in a circle). So code that walks over a layer says how long its content
/// is.
class LayerShape {
public:
    class Beads;

    /// A layer of `size`, width and height in beads; a circle takes its number of rings for both.
    LayerShape(PatternStyle style, const Tuple<2, unsigned>& size) : style_{style}, size_{size} {}

    /// The shape of a layer that was read from `rows` rows of text, the first of them with
    /// `firstRowLength` characters. A size beyond 32 bits is a `BoundException`.
    static LayerShape ofText(PatternStyle style, std::size_t firstRowLength, std::size_t rows);
    /// How many characters row `row`, 1 or more, must have if the first row has `firstRowLength`.
    static std::size_t textRowLength(PatternStyle style, std::size_t firstRowLength,
                                     std::size_t row);

    PatternStyle style() const { return style_; }
    /// Width and height in beads. For a circle both are the number of rings, the centre included.
    const Tuple<2, unsigned>& size() const { return size_; }

    /// The number of characters in row `row`.
    std::size_t rowLength(std::size_t row) const;
    /// The number of characters in the whole content; 0 if width or height is 0. More than memory
    /// can address is an `AllocateException`.
    std::size_t contentLength() const;
    /// The number of rows in content of that length; the last may be incomplete.
    std::size_t rowsIn(std::size_t length) const;
    /// The column, in characters, of the first bead of a row.
    std::size_t firstBead(std::size_t row) const { return isHex() ? row % 2 : 0; }
    /// The distance from one bead of a row to the next, in characters.
    std::size_t beadStep() const { return isHex() ? 2 : 1; }
    /// Whether the character in that column of a row is a bead and not a blank.
    bool isBead(std::size_t row, std::size_t column) const {
        return column % beadStep() == firstBead(row);
    }

    /// The beads in content of that length, for a range-based loop, in ascending order of position.
    Beads beads(std::size_t length) const;

    /// The number of beads in ring `ring` of a circle.
    static constexpr std::size_t ringLength(std::size_t ring) { return ring == 0 ? 1 : 6 * ring; }
    /// The content position of the first bead of ring `ring`.
    static constexpr std::size_t ringBegin(std::size_t ring) {
        return ring == 0 ? 0 : 3 * ring * (ring - 1) + 1;
    }

private:
    bool isHex() const { return style_ == PatternStyle::Hex; }

    PatternStyle style_;
    Tuple<2, unsigned> size_;
};

/// The beads of a layer as a range. Walking it goes row by row and takes no division.
class LayerShape::Beads {
public:
    /// What a range-based loop needs.
    class Iterator {
    public:
        /// Stands at the first bead of content of that length.
        Iterator(const LayerShape& shape, std::size_t length)
            : shape_{shape},
              length_{length},
              step_{shape.beadStep()} {
            enterRow(0, 0);
        }

        const Bead& operator*() const { return bead_; }
        /// Goes on to the next bead.
        Iterator& operator++() {
            bead_.position += step_;
            bead_.column += step_;
            if (bead_.column >= rowLength_)
                enterRow(bead_.row + 1, bead_.position - bead_.column + rowLength_);
            return *this;
        }
        /// Whether all beads of the content are behind it.
        bool operator==(std::default_sentinel_t) const { return bead_.position >= length_; }

    private:
        void enterRow(std::size_t row, std::size_t begin) {
            rowLength_ = shape_.rowLength(row);
            bead_ = {begin + shape_.firstBead(row), row, shape_.firstBead(row)};
            if (rowLength_ == 0) // a layer of width 0 has no beads: go to the end
                bead_.position = length_;
        }

        LayerShape shape_;
        std::size_t length_;
        std::size_t step_;
        std::size_t rowLength_ = 0;
        Bead bead_{};
    };

    /// The beads of a layer of `shape` in content of that length.
    Beads(const LayerShape& shape, std::size_t length) : shape_{shape}, length_{length} {}
    /// The first bead.
    Iterator begin() const { return {shape_, length_}; }
    /// The end of the content.
    std::default_sentinel_t end() const { return {}; }

private:
    LayerShape shape_;
    std::size_t length_;
};

inline LayerShape::Beads LayerShape::beads(std::size_t length) const { return {*this, length}; }

} // namespace VORN
