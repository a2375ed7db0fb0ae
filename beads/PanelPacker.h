#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "core/BinarySignal.h"

#include <memory>

namespace VORN {

/// Packs the layers of square patterns, cropped to what is to be built, onto square panels.
///
/// As binary correlation is not implemented, every piece takes a panel of its own. A bead is part
/// of a piece's content when the palette defines its symbol, else it is background. The palette is
/// borrowed and must outlive the packer.
class PanelPacker {
public:
    PanelPacker(const Palette& palette, unsigned panelBeads);

    /// Adds a layer of a square pattern, reduced to the smallest box around its content, if any.
    ///
    /// A piece larger than the panel is a `BoundException<int>`, one without background a
    /// `SupportException`, as taking up room on a panel is not implemented.
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
    std::vector<std::unique_ptr<Occupancy>> occupancies_; // a panel without one is not shared
    std::size_t givenUp_ = 0;     // the panels before this one are not shared any more
    bool warnsOfFallback_ = true; // once
};

} // namespace VORN
