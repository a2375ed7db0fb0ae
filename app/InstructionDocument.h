#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "core/DenseHistogram.h"
#include "core/TextWriter.h"
#include "web/Component.h"

namespace VORN {

/// A LaTeX document that shows how to build patterns: for every layer its beads, drawn with TikZ,
/// and how many of each colour it takes, and in the end how many all of them take.
class InstructionDocument {
public:
    enum class View { FromFront, Mirrored };

    /// Texts go into the document as they are.
    struct Settings {
        std::string pitch;      // of the beads, a TeX length such as "5mm"
        std::string background; // a TikZ colour
        View view = View::FromFront;
    };

    /// `palette` is borrowed and must outlive the document.
    InstructionDocument(const Palette& palette, const Settings& settings);

    /// Writes it piece by piece: beyond the patterns it takes no memory that grows with them.
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
