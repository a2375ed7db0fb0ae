#pragma once

#include "core/Signal.h"
#include "core/Stream.h"
#include "core/TextWriter.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// The symbol of a bead that is not set.
constexpr char kNoBead = '.';

/// What is built with beads: layers of palette symbols, one character a bead.
class Pattern {
public:
    struct Layer {
        /// The symbols as the file has them: row after row, or centre and ring after ring. Rows of
        /// hex layers hold two characters a bead, one of them a blank.
        std::string content;
        /// Width and height in beads; both are the number of text rows in a circle layer.
        Tuple<2, unsigned> size;
    };

    PatternStyle style = PatternStyle::Square;

    /// Replaces the layers, and the style if the first line names one, by a pattern file.
    ///
    /// Returns false after one line on standard error when a row has the wrong length; the layers
    /// before it stay.
    bool Read(ReadStream& in);

    /// Writes the pattern file.
    void Write(Text::TextWriter& out) const;

    /// Appends a layer and returns its index.
    std::size_t AddLayer(const Tuple<2, unsigned>& size, std::string content);
    /// Appends a layer of which every bead is `symbol`, and returns its index. When width or height
    /// is 0 the content is empty.
    std::size_t AddFilledLayer(const Tuple<2, unsigned>& size, char symbol);

    /// Copies a layer of a square pattern into `signal`, which takes the layer's size.
    void GetLayer(std::size_t index, Signal<2, char>& signal) const;
    /// Replaces size and content of a layer of a square pattern.
    void SetLayer(std::size_t index, const Signal<2, char>& signal);

    std::size_t layerCount() const { return layers_.size(); }
    /// An index at or above the layer count throws `std::out_of_range`.
    const Layer& layer(std::size_t index) const { return layers_.at(index); }
    Layer& layer(std::size_t index) { return layers_.at(index); }

private:
    void requireSquare() const;

    std::vector<Layer> layers_;
};

} // namespace VORN
