#pragma once

#include "beads/LayerShape.h"
#include "core/Signal.h"
#include "core/Stream.h"
#include "core/TextWriter.h"

#include <string>
#include <string_view>
#include <vector>

namespace VORN {

/// The symbol of a bead that is not set.
constexpr char kNoBead = '.';

/// The symbols of a layer with its shape. The symbols are owned elsewhere.
struct LayerView {
    LayerShape shape;
    std::string_view content;

    LayerShape::Beads beads() const { return shape.beads(content.size()); }
};

/// What is built with beads: layers of palette symbols, one character a bead.
class Pattern {
public:
    struct Layer {
        std::string content;     // the symbols as the file has them, see `LayerShape`
        Tuple<2, unsigned> size; // width and height in beads
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
    LayerShape shape(std::size_t index) const { return {style, layer(index).size}; }
    LayerView view(std::size_t index) const { return {shape(index), layer(index).content}; }

private:
    void requireSquare() const;

    std::vector<Layer> layers_;
};

} // namespace VORN
