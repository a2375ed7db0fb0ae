#include "app/InstructionDocument.h"

#include "beads/BeadGeometry.h"
#include "core/Conversion.h"
#include "web/ReplaceComponent.h"

#include <algorithm>

namespace VORN {

namespace {

// Lines that end with a blank are separate string literals, in which the blank can be seen.
// clang-format off
constexpr const char* kPreamble =
R"tex(\documentclass{article}
\usepackage{tikz}
\usepackage{framed}
\usepackage{geometry}
\usetikzlibrary{matrix}
\usetikzlibrary{backgrounds}
\usetikzlibrary{shapes.misc}
\pagenumbering{gobble}

\geometry{a4paper,total={170mm,257mm},left=20mm,top=20mm}
\begin{document}

)tex";

constexpr const char* kBlockStart =
R"tex(\begin{framed}
\begin{center}
\begin{tikzpicture}[x=$(MirrorSign)$(Pitch),y=-$(Pitch),background rectangle/.style={fill=$(Background)},show background rectangle,cross/.style={cross out, draw=black, rotate=45, minimum size=2*(#1-\pgflinewidth), inner sep=0pt,outer sep=0pt},cross/.default={0.8mm},bead/.style={circle, line width=0.2*$(Pitch), inner sep=0pt, minimum size=0.7*$(Pitch)},outline/.style={circle, draw=black, line width=0.3*$(Pitch), inner sep=0pt, minimum size=0.7*$(Pitch)}]

)tex"
"% Palette. \n"
R"tex($(Palette)

)tex"
"% Draw beads in center of grid cells. \n"
R"tex(\begin{scope}[shift={(0.5, 0.5)}]
)tex";

// The beads come between these two parts; they are written one by one.
constexpr const char* kBlockEnd =
R"tex(
\end{scope}

\end{tikzpicture}
\end{center}

)tex";

constexpr const char* kUsagePicture =
R"tex(\begin{center}
\begin{tikzpicture}[background rectangle/.style={fill=$(Background)},show background rectangle,bead/.style={circle, line width=0.2*$(Pitch), inner sep=0pt, minimum size=0.7*$(Pitch)},outline/.style={circle, draw=black, line width=0.3*$(Pitch), inner sep=0pt, minimum size=0.7*$(Pitch)}]

)tex"
"% Palette. \n"
R"tex($(Palette)

)tex"
"% Usage. \n"
R"tex(\matrix (magic) [matrix of nodes,column sep=1 mm,row sep=1 mm]
{
$(Usage)};
\end{tikzpicture}
\end{center}
\end{framed}
)tex";

constexpr const char* kTotalStart =
R"tex(\pagebreak
\begin{framed}
Total usage
)tex";

constexpr const char* kEnd = "\\end{document}\n";
// clang-format on

constexpr const char* kColorLine = "\\definecolor{color_$(Entry)}{rgb}{$(Red),$(Green),$(Blue)}\n";
constexpr const char* kBeadLine = "\\node [outline] at ($(X), $(Y)) {}; "
                                  "\\node [bead,draw=color_$(Entry)] at ($(X), $(Y)) {};\n";
constexpr const char* kCrossLine = "\\node [cross] at ($(X), $(Y)) {};\n";
constexpr const char* kUsageEntry =
    "\\node [outline] at (0, 0) {}; "
    "\\node [bead,draw=color_$(Entry),label={right:$(Count)}] at (0, 0) {};";

} // namespace

InstructionDocument::InstructionDocument(const Palette& palette, const Settings& settings)
    : palette_{palette},
      values_{{"Pitch", settings.pitch},
              {"MirrorSign", settings.view == View::Mirrored ? "-" : ""},
              {"Background", settings.background},
              {"Palette", paletteLines()}} {}

void InstructionDocument::write(Text::TextWriter& out, const std::vector<Pattern>& patterns) {
    render(out, Web::StaticComponent{kPreamble});
    Usage total;
    for (const Pattern& pattern : patterns)
        for (std::size_t layer = 0; layer < pattern.layerCount(); ++layer)
            total += writeBlock(out, pattern.view(layer));
    values_["Usage"] = usageRows(total);
    render(out, Web::ReplaceComponent{std::string{kTotalStart} + kUsagePicture});
    render(out, Web::StaticComponent{kEnd});
}

InstructionDocument::Usage InstructionDocument::writeBlock(Text::TextWriter& out,
                                                           const LayerView& layer) {
    Usage usage;
    render(out, Web::ReplaceComponent{kBlockStart});
    writeBeads(out, layer, usage);
    values_["Usage"] = usageRows(usage);
    render(out, Web::ReplaceComponent{std::string{kBlockEnd} + kUsagePicture + "\n"});
    return usage;
}

void InstructionDocument::render(Text::TextWriter& out, const Web::Component& part) const {
    std::string text;
    part.render(text, values_);
    out.write(text);
}

std::string InstructionDocument::paletteLines() const {
    const Web::ReplaceComponent line{kColorLine};
    std::string lines;
    for (const auto& [symbol, color] : palette_)
        line.render(lines, {{"Entry", std::string(1, symbol)},
                            {"Red", Text::toText(color[0])},
                            {"Green", Text::toText(color[1])},
                            {"Blue", Text::toText(color[2])}});
    return lines;
}

/// Draws and counts the beads of a layer in content order.
void InstructionDocument::writeBeads(Text::TextWriter& out, const LayerView& layer,
                                     Usage& usage) const {
    const Web::ReplaceComponent bead{kBeadLine};
    const Web::ReplaceComponent cross{kCrossLine};
    Web::Values values;
    std::string& x = values["X"];
    std::string& y = values["Y"];
    std::string& entry = values["Entry"];
    std::string line;
    const BeadGeometry geometry{layer.shape};
    for (const Bead& place : layer.beads()) {
        const char symbol = layer.content[place.position];
        const Point<2, float> position = geometry.position(place);
        x = Text::toText(position[0]);
        y = Text::toText(position[1]);
        entry.assign(1, symbol);
        line.clear();
        (palette_.Contains(symbol) ? bead : cross).render(line, values);
        out.write(line);
        usage.count(symbol);
    }
}

/// The beads used of each palette colour, most used first, as rows of a TikZ matrix.
std::string InstructionDocument::usageRows(const Usage& usage) const {
    constexpr std::size_t kRowEntries = 8;
    std::string symbols;
    for (const auto& [symbol, color] : palette_)
        if (usage[symbol] > 0)
            symbols += symbol;
    const auto comesFirst = [&](char a, char b) {
        return usage[a] != usage[b] ? usage[a] > usage[b] : Palette::slotOf(a) < Palette::slotOf(b);
    };
    std::ranges::sort(symbols, comesFirst);

    const Web::ReplaceComponent entry{kUsageEntry};
    std::string rows;
    for (std::size_t i = 0; i < symbols.size(); ++i) {
        entry.render(rows, {{"Entry", std::string(1, symbols[i])},
                            {"Count", std::to_string(usage[symbols[i]])}});
        const bool endsRow = (i + 1) % kRowEntries == 0 || i + 1 == symbols.size();
        rows += endsRow ? " \\\\\n" : " &\n";
    }
    return rows;
}

} // namespace VORN
