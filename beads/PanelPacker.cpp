#include "beads/PanelPacker.h"

#include "core/Console.h"
#include "core/Hyperrectangle.h"

#include <algorithm>
#include <bit>

namespace VORN {

namespace {

using Piece = Signal<2, char>;
using Box = Hyperrectangle<2, unsigned>;

/// The smallest box around the content; without any, the whole layer.
Box contentBox(const Piece& layer, const Palette& palette) {
    Tuple<2, unsigned> first = layer.size();
    Tuple<2, unsigned> end;
    for (unsigned y = 0; y < layer.size()[1]; ++y) {
        for (unsigned x = 0; x < layer.size()[0]; ++x) {
            if (!palette.Contains(layer[{x, y}]))
                continue;
            first = {std::min(first[0], x), std::min(first[1], y)};
            end = {std::max(end[0], x + 1), y + 1};
        }
    }
    if (end[1] == 0)
        return {{}, {layer.size()[0], layer.size()[1]}};
    return {{first[0], first[1]}, {end[0] - first[0], end[1] - first[1]}};
}

/// `box` lies in the layer.
Piece cut(const Piece& layer, const Box& box) {
    const unsigned width = box.extent()[0];
    const unsigned height = box.extent()[1];
    Piece piece{{width, height}};
    for (unsigned y = 0; y < height; ++y)
        std::copy_n(&layer[{box.origin()[0], box.origin()[1] + y}], width, &piece[{0U, y}]);
    return piece;
}

/// A piece lies at the origin of its panel, whose size must reach at least as far.
void checkFits(const Piece& piece, const Piece& panel) {
    for (std::size_t i = 0; i < 2; ++i) {
        const unsigned room = panel.size()[i] - piece.size()[i];
        if (piece.size()[i] > panel.size()[i])
            throw BoundException<int>{kNoOrigin, 0, static_cast<int>(room)};
    }
}

} // namespace

PanelPacker::PanelPacker(const Palette& palette, unsigned panelBeads)
    : palette_{palette},
      panelSize_{panelBeads, panelBeads} {}

void PanelPacker::add(const Pattern& pattern, std::size_t layer) {
    Piece whole;
    pattern.GetLayer(layer, whole);
    const Piece piece = cut(whole, contentBox(whole, palette_));
    const bool isShareable = isFull(piece);
    if (!isShareable)
        giveUpSharing();
    const std::size_t panel = panels_.AddFilledLayer(panelSize_, kNoBead);
    occupancies_.push_back(isShareable ? std::make_unique<Occupancy>(panelSize_) : nullptr);
    paste(piece, panel);
    if (occupancies_[panel])
        occupancies_[panel]->Resize(piece.size());
}

/// Whether no bead of the piece is background.
bool PanelPacker::isFull(const Piece& piece) const {
    BinarySignal<2, std::uint32_t> mask{piece.size()};
    for (unsigned y = 0; y < piece.size()[1]; ++y)
        for (unsigned x = 0; x < piece.size()[0]; ++x)
            if (palette_.Contains(piece[{x, y}]))
                mask.set(x, y);
    std::size_t count = 0;
    for (const std::uint32_t word : mask.words())
        count += static_cast<std::size_t>(std::popcount(word));
    return count == piece.count();
}

/// Lets no panel take any further piece.
void PanelPacker::giveUpSharing() {
    for (; givenUp_ < occupancies_.size(); ++givenUp_) {
        auto& occupancy = occupancies_[givenUp_];
        if (!occupancy)
            continue;
        occupancy.reset();
        if (warnsOfFallback_)
            complain("Binary correlation not implemented, partial packing fall back to full panel "
                     "packing.");
        warnsOfFallback_ = false;
    }
}

void PanelPacker::paste(const Piece& piece, std::size_t panel) {
    Piece symbols;
    panels_.GetLayer(panel, symbols);
    checkFits(piece, symbols);
    for (unsigned y = 0; y < piece.size()[1]; ++y)
        std::copy_n(&piece[{0U, y}], piece.size()[0], &symbols[{0U, y}]);
    panels_.SetLayer(panel, symbols);
}

} // namespace VORN
