#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "core/BinarySignal.h"

#include <memory>
#include <vector>

namespace VORN {

/// Packs the layers of square patterns onto square panels.
///
/// A bead counts as content if the palette defines its symbol, and else as background. Each layer
/// is cut to the smallest box around its content, and this piece is put on a panel. Sharing a panel
/// is deliberately left out: finding room for a piece among others takes binary correlation, which
/// is not implemented, so every piece takes a panel of its own.
class PanelPacker {
public:
    /// For panels of `panelBeads` x `panelBeads`. `palette` is borrowed and must outlive the
    /// packer.
    PanelPacker(const Palette& palette, unsigned panelBeads);

    /// Puts a layer of a square pattern on a new panel. A layer without content is not cut.
    ///
    /// A piece larger than the panel is a `BoundException<int>`. A piece without background is a
    /// `SupportException`, as marking its room on a panel is not implemented.
    void add(const Pattern& pattern, std::size_t layer);

    /// The panels, one layer each.
    const Pattern& panels() const { return panels_; }

private:
    using Occupancy = BinarySignal<2, std::uint32_t>;

    bool isFull(const Signal<2, char>& piece) const;
    void giveUpSharing();
    void paste(const Signal<2, char>& piece, std::size_t panel);

    const Palette& palette_;
    Tuple<2, unsigned> panelSize_;
    Pattern panels_;
    std::vector<std::unique_ptr<Occupancy>> occupancies_; // by panel; null: takes no further piece
    std::size_t givenUp_ = 0;     // panels from the first on that are closed
    bool warnsOfFallback_ = true; // until it has warned once
};

} // namespace VORN
