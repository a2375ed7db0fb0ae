#include "beads/Pattern.h"

#include "core/BufferStream.h"
#include "core/Console.h"

#include <limits>

namespace VORN {

namespace {

/// The size that `count` beads or rows have along one axis.
unsigned toExtent(std::size_t count) {
    constexpr std::uint64_t kMaximum = std::numeric_limits<unsigned>::max();
    if (count > kMaximum)
        throw BoundException<std::uint64_t>{kNoOrigin, count, kMaximum};
    return static_cast<unsigned>(count);
}

/// The length that the content of a layer of that size has, neither component being 0.
std::size_t contentLength(PatternStyle style, const Tuple<2, unsigned>& size) {
    const std::uint64_t width = size[0];
    std::uint64_t first = width;
    std::uint64_t second = size[1];
    if (style == PatternStyle::Hex)
        first *= 2;
    else if (style == PatternStyle::Circle)
        second = 3 * (width - 1);
    std::uint64_t length = 0;
    if (__builtin_mul_overflow(first, second, &length) ||
        length >= static_cast<std::uint64_t>(PTRDIFF_MAX))
        throw AllocateException{kNoOrigin, "pattern layer"};
    return static_cast<std::size_t>(style == PatternStyle::Circle ? length + 1 : length);
}

/// Sets a blank beside every bead of a hex layer: after it in even rows, before it in odd ones.
void blankOffsets(std::string& content, std::size_t rowLength) {
    for (std::size_t row = 0; row * rowLength < content.size(); ++row)
        for (std::size_t column = row % 2 == 0 ? 1 : 0; column < rowLength; column += 2)
            content[row * rowLength + column] = ' ';
}

/// Gathers the rows of one layer after the other.
class LayerReader {
public:
    explicit LayerReader(PatternStyle style) : style_{style} {}

    /// Returns false when the row has the wrong length.
    bool addRow(std::string_view row) {
        ++rows_;
        if (rows_ == 1)
            width_ = row.size();
        else if (row.size() != expectedLength())
            return false;
        content_ += row;
        return true;
    }

    /// Hands the rows gathered since the last call, if any, over to `pattern`.
    void closeLayer(Pattern& pattern) {
        if (rows_ == 0)
            return;
        pattern.AddLayer(layerSize(), std::move(content_));
        content_.clear();
        rows_ = 0;
    }

private:
    std::size_t expectedLength() const {
        return style_ == PatternStyle::Circle ? 6 * (rows_ - 1) : width_;
    }
    Tuple<2, unsigned> layerSize() const {
        const unsigned rows = toExtent(rows_);
        if (style_ == PatternStyle::Circle)
            return {rows, rows};
        return {toExtent(style_ == PatternStyle::Hex ? width_ / 2 : width_), rows};
    }

    PatternStyle style_;
    std::string content_;
    std::size_t rows_ = 0;
    std::size_t width_ = 0; // characters in the first row
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

std::optional<PatternStyle> patternStyleNamed(std::string_view name) {
    const auto* const found = std::ranges::find(kPatternStyleNames, name);
    if (found == kPatternStyleNames.end())
        return std::nullopt;
    return static_cast<PatternStyle>(found - kPatternStyleNames.begin());
}

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
        std::string_view rest = layer.content;
        const std::size_t width = std::size_t{layer.size[0]} * (style == PatternStyle::Hex ? 2 : 1);
        for (std::size_t row = 0; !rest.empty(); ++row) {
            std::size_t length = width > 0 ? width : rest.size();
            if (style == PatternStyle::Circle)
                length = row == 0 ? 1 : 6 * row;
            const std::string_view line = rest.substr(0, length);
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
    if (size[0] == 0 || size[1] == 0)
        return AddLayer(size, {});
    std::string content(contentLength(style, size), symbol);
    if (style == PatternStyle::Hex)
        blankOffsets(content, 2 * std::size_t{size[0]});
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
