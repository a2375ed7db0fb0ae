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

/// The names of the styles in the order of their values.
constexpr std::array<std::string_view, 3> kPatternStyleNames{"square", "hex", "circle"};

/// The style of that name, which must match exactly.
std::optional<PatternStyle> patternStyleNamed(std::string_view name);

/// Where a bead stands in the text of its layer.
struct Bead {
    std::size_t position; // in the content
    std::size_t row;      // or ring, 0 being the centre
    std::size_t column;   // in characters, from the begin of the row or ring
};

/// The style of a layer and its size in beads, and how its beads are laid out as text.
///
/// The content of a layer is its rows, one behind the other:
///
/// | style  | row r of the text                                     | rows   |
/// | ------ | ----------------------------------------------------- | ------ |
/// | square | a bead for each of `width` characters                 | height |
/// | hex    | 2 `width` characters, a bead and a blank by turns; an | height |
/// |        | even row begins with a bead, an odd one with a blank  |        |
/// | circle | ring r: 6 r beads, row 0 being the centre             | width  |
///
/// Files may hold more or fewer characters than their size asks for (hex rows of odd length, a
/// first row of any length in a circle), so whoever walks a layer says how long its content is.
class LayerShape {
public:
    class Beads;

    LayerShape(PatternStyle style, const Tuple<2, unsigned>& size) : style_{style}, size_{size} {}

    /// The shape of a layer read from `rows` rows of text, the first of `firstRowLength`
    /// characters. A size that has no 32 bits is a `BoundException`.
    static LayerShape ofText(PatternStyle style, std::size_t firstRowLength, std::size_t rows);
    /// The length that row `row`, 1 or more, must have behind a first row of `firstRowLength`.
    static std::size_t textRowLength(PatternStyle style, std::size_t firstRowLength,
                                     std::size_t row);

    PatternStyle style() const { return style_; }
    /// Width and height in beads; both are the number of rings, centre included, in a circle.
    const Tuple<2, unsigned>& size() const { return size_; }

    /// Characters in row `row`.
    std::size_t rowLength(std::size_t row) const;
    /// Characters in the whole content, 0 where width or height is 0; more than memory can address
    /// is an `AllocateException`.
    std::size_t contentLength() const;
    /// The rows that content of that length takes, the last perhaps in part.
    std::size_t rowsIn(std::size_t length) const;
    /// The column of the first bead of a row, and the distance from bead to bead in characters.
    std::size_t firstBead(std::size_t row) const { return isHex() ? row % 2 : 0; }
    std::size_t beadStep() const { return isHex() ? 2 : 1; }
    /// Whether a character of a row is a bead, and not a blank.
    bool isBead(std::size_t row, std::size_t column) const {
        return column % beadStep() == firstBead(row);
    }

    /// The beads in content of that length, in ascending order; to be used in a range-based loop.
    Beads beads(std::size_t length) const;

    /// The beads of ring `ring` of a circle, and the content position of the first of them.
    static constexpr std::size_t ringLength(std::size_t ring) { return ring == 0 ? 1 : 6 * ring; }
    static constexpr std::size_t ringBegin(std::size_t ring) {
        return ring == 0 ? 0 : 3 * ring * (ring - 1) + 1;
    }

private:
    bool isHex() const { return style_ == PatternStyle::Hex; }

    PatternStyle style_;
    Tuple<2, unsigned> size_;
};

/// The beads of a layer as a range, walked row by row without a division.
class LayerShape::Beads {
public:
    class Iterator {
    public:
        Iterator(const LayerShape& shape, std::size_t length)
            : shape_{shape},
              length_{length},
              step_{shape.beadStep()} {
            enterRow(0, 0);
        }

        const Bead& operator*() const { return bead_; }
        Iterator& operator++() {
            bead_.position += step_;
            bead_.column += step_;
            if (bead_.column >= rowLength_)
                enterRow(bead_.row + 1, bead_.position - bead_.column + rowLength_);
            return *this;
        }
        bool operator==(std::default_sentinel_t) const { return bead_.position >= length_; }

    private:
        void enterRow(std::size_t row, std::size_t begin) {
            rowLength_ = shape_.rowLength(row);
            bead_ = {begin + shape_.firstBead(row), row, shape_.firstBead(row)};
            if (rowLength_ == 0) // no bead lies in a layer of width 0
                bead_.position = length_;
        }

        LayerShape shape_;
        std::size_t length_;
        std::size_t step_;
        std::size_t rowLength_ = 0;
        Bead bead_{};
    };

    Beads(const LayerShape& shape, std::size_t length) : shape_{shape}, length_{length} {}
    Iterator begin() const { return {shape_, length_}; }
    std::default_sentinel_t end() const { return {}; }

private:
    LayerShape shape_;
    std::size_t length_;
};

inline LayerShape::Beads LayerShape::beads(std::size_t length) const { return {*this, length}; }

} // namespace VORN
