#include "core/TextWriter.h"

#include <algorithm>

namespace VORN::Text {

namespace {

constexpr std::size_t kPieceBytes = std::size_t{1} << 16;

} // namespace

void TextWriter::write(std::string_view text) {
    pending_ += text;
    if (pending_.size() >= kPieceBytes)
        handOver();
}

void TextWriter::paragraph(std::string_view text, std::size_t column, std::size_t indent,
                           std::size_t width) {
    bool lineHasWord = column > indent;
    while (!text.empty()) {
        const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
        const std::size_t end = std::min(text.find(' ', blanks), text.size());
        if (end > blanks && column + end > width && lineHasWord) {
            endLine();
            write(std::string(indent, ' '));
            write(text.substr(blanks, end - blanks));
            column = indent + end - blanks;
        } else {
            write(text.substr(0, end));
            column += end;
        }
        lineHasWord = true;
        text.remove_prefix(end);
    }
}

void TextWriter::flush() {
    handOver();
    out_->flush();
}

void TextWriter::handOver() {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(pending_.data());
    out_->write({bytes, pending_.size()});
    pending_.clear();
}

} // namespace VORN::Text
