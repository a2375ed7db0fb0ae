#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "core/DenseHistogram.h"
#include "core/TextWriter.h"
#include "web/Component.h"

#include <string>
#include <vector>

namespace VORN {

/// A LaTeX document that shows how to build patterns. For every layer it has the beads, drawn with
/// TikZ, and the number of beads of each colour; at the end it has the numbers for all layers
/// together.
class InstructionDocument {
public:
    /// From which side the beads are shown.
    enum class View { FromFront, Mirrored };

    /// How the document looks. The texts go into it as they are.
    struct Settings {
        std::string pitch;      // of the beads, a TeX length such as "5mm"
        std::string background; // a TikZ colour
        View view = View::FromFront;
    };

    /// A document with the colours of `palette`, which is borrowed and must outlive it.
    InstructionDocument(const Palette& palette, const Settings& settings);

    /// Writes the document bead by bead, so that it takes no memory that grows with the patterns.
    /// Throws what the stream throws.
    void write(Text::TextWriter& out, const std::vector<Pattern>& patterns);

private:
    using Usage = DenseHistogram<char>;

    Usage writeBlock(Text::TextWriter& out, const LayerView& layer);
    void render(Text::TextWriter& out, const Web::Component& part) const;
    std::string paletteLines() const;
    void writeBeads(Text::TextWriter& out, const LayerView& layer, Usage& usage) const;
    std::string usageRows(const Usage& usage) const;

    const Palette& palette_;
    Web::Values values_; // of the placeholders in the parts of the document
};

} // namespace VORN
