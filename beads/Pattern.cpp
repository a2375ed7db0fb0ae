#include "beads/Pattern.h"

#include "core/BufferStream.h"
#include "core/Console.h"

namespace VORN {

namespace {

/// Gathers the rows of one layer after the other.
class LayerReader {
public:
    explicit LayerReader(PatternStyle style) : style_{style} {}

    /// Returns false when the row has the wrong length.
    bool addRow(std::string_view row) {
        if (rows_ == 0)
            firstRowLength_ = row.size();
        else if (row.size() != LayerShape::textRowLength(style_, firstRowLength_, rows_))
            return false;
        ++rows_;
        content_ += row;
        return true;
    }

    /// Hands the rows gathered since the last call, if any, over to `pattern`.
    void closeLayer(Pattern& pattern) {
        if (rows_ == 0)
            return;
        const LayerShape shape = LayerShape::ofText(style_, firstRowLength_, rows_);
        pattern.AddLayer(shape.size(), std::move(content_));
        content_.clear();
        rows_ = 0;
    }

private:
    PatternStyle style_;
    std::string content_;
    std::size_t rows_ = 0;
    std::size_t firstRowLength_ = 0; // characters
};

/// Takes the next line away from `text`; CR LF, a lone CR and a lone LF each end a line.
std::string_view takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    if (text.starts_with("\r\n"))
        text.remove_prefix(2);
    else if (!text.empty())
        text.remove_prefix(1);
    return line;
}

} // namespace

bool Pattern::Read(ReadStream& in) {
    layers_.clear();
    IncrementalBuffer bytes;
    readAll(in, bytes);
    std::string_view text{reinterpret_cast<const char*>(bytes.data().data()), bytes.size()};
    std::size_t lineNumber = 1;
    std::string_view afterFirst = text;
    if (const auto named = patternStyleNamed(takeLine(afterFirst))) {
        style = *named;
        text = afterFirst;
        ++lineNumber;
    }
    LayerReader layer{style};
    for (; !text.empty(); ++lineNumber) {
        const std::string_view line = takeLine(text);
        if (line.empty()) {
            layer.closeLayer(*this);
        } else if (!layer.addRow(line)) {
            complain("line " + std::to_string(lineNumber) + ": Missmatching line length. ");
            return false;
        }
    }
    layer.closeLayer(*this);
    return true;
}

void Pattern::Write(Text::TextWriter& out) const {
    out.write(kPatternStyleNames.at(static_cast<std::size_t>(style)));
    out.write("\n\n");
    for (const Layer& layer : layers_) {
        const LayerShape shape{style, layer.size};
        std::string_view rest = layer.content;
        for (std::size_t row = 0; !rest.empty(); ++row) {
            const std::size_t length = shape.rowLength(row);
            // Rows of a hex layer of width 0 are not told apart.
            const std::string_view line = rest.substr(0, length > 0 ? length : rest.size());
            out.write(line);
            out.endLine();
            rest.remove_prefix(line.size());
        }
        out.endLine();
    }
}

std::size_t Pattern::AddLayer(const Tuple<2, unsigned>& size, std::string content) {
    layers_.push_back({std::move(content), size});
    return layers_.size() - 1;
}

std::size_t Pattern::AddFilledLayer(const Tuple<2, unsigned>& size, char symbol) {
    const LayerShape shape{style, size};
    if (shape.beadStep() == 1)
        return AddLayer(size, std::string(shape.contentLength(), symbol));
    std::string content(shape.contentLength(), ' ');
    for (const Bead& bead : shape.beads(content.size()))
        content[bead.position] = symbol;
    return AddLayer(size, std::move(content));
}

void Pattern::GetLayer(std::size_t index, Signal<2, char>& signal) const {
    requireSquare();
    const Layer& source = layer(index);
    signal.Resize(source.size);
    source.content.copy(signal.samples().data(), signal.count());
}

void Pattern::SetLayer(std::size_t index, const Signal<2, char>& signal) {
    requireSquare();
    layer(index) = {{signal.samples().begin(), signal.samples().end()}, signal.size()};
}

void Pattern::requireSquare() const {
    if (style != PatternStyle::Square)
        throw SupportException{kNoOrigin, "layer content access for non-square pattern"};
}

} // namespace VORN
