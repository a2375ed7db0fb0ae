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

/// A layer's symbols and its shape. The symbols are owned elsewhere and must outlive the view.
struct LayerView {
    LayerShape shape;
    std::string_view content;

    /// The beads of the layer, for a range-based loop.
    LayerShape::Beads beads() const { return shape.beads(content.size()); }
};

/// A design to be built with beads: layers of palette symbols, one character a bead, all of one
/// style.
///
/// In its file each layer is rows of text, as `LayerShape` says, with an empty line behind it. The
/// first line names the style; without such a line the style stays. A heart on a square board:
///
///     square
///
///     .r.r.
///     rrrrr
///     .rrr.
///     ..r..
class Pattern {
public:
    /// One layer.
    struct Layer {
        std::string content;     // the symbols as the file has them, see `LayerShape`
        Tuple<2, unsigned> size; // width and height in beads
    };

    PatternStyle style = PatternStyle::Square;

    /// Replaces the layers, and the style if the first line names one, by those of a pattern file.
    ///
    /// Lines end with CR LF, CR or LF. If a row has the wrong length, it writes one line to
    /// standard error and returns false; the layers before it stay. Throws what the stream throws.
    bool Read(ReadStream& in);

    /// Writes the pattern file; throws what the stream throws.
    void Write(Text::TextWriter& out) const;

    /// Appends a layer of `size`, width and height in beads; returns its index.
    std::size_t AddLayer(const Tuple<2, unsigned>& size, std::string content);
    /// Appends a layer in which every bead has the symbol `symbol`; returns its index. The content
    /// is empty if width or height is 0. Too large a layer is an `AllocateException`.
    std::size_t AddFilledLayer(const Tuple<2, unsigned>& size, char symbol);

    /// Copies a layer of a square pattern into `signal`, which takes the layer's size. Another
    /// style is a `SupportException`.
    void GetLayer(std::size_t index, Signal<2, char>& signal) const;
    /// Replaces size and content of a layer of a square pattern. Another style is a
    /// `SupportException`.
    void SetLayer(std::size_t index, const Signal<2, char>& signal);

    std::size_t layerCount() const { return layers_.size(); }
    /// The layer at `index`; an index at or above the layer count is a `std::out_of_range`, here
    /// and below.
    const Layer& layer(std::size_t index) const { return layers_.at(index); }
    /// The layer at `index`, to be changed.
    Layer& layer(std::size_t index) { return layers_.at(index); }
    /// The shape of the layer at `index`.
    LayerShape shape(std::size_t index) const { return {style, layer(index).size}; }
    /// A view of the layer at `index`, valid until the pattern changes.
    LayerView view(std::size_t index) const { return {shape(index), layer(index).content}; }

private:
    void requireSquare() const;

    std::vector<Layer> layers_;
};

} // namespace VORN
