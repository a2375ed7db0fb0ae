#pragma once

#include "core/Stream.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace VORN::Text {

/// Collects text and hands it to a stream in large pieces. The end of line is a single line feed.
///
/// The stream is borrowed and must outlive the writer. Only after `flush` has all text arrived:
/// what is not flushed when the writer goes is lost. Every operation throws what the stream throws.
class TextWriter {
public:
    /// A writer to `out`.
    explicit TextWriter(WriteStream& out) : out_{&out} {}

    /// Appends `text` as it is.
    void write(std::string_view text);
    /// Ends the line.
    void endLine() { write("\n"); }

    /// Writes `text` word by word, wrapped so that no line passes `width` characters.
    ///
    /// The first line is taken to stand at `column` already; every further one starts with `indent`
    /// blanks. Blanks at a break are dropped; a word longer than a line is not split.
    void paragraph(std::string_view text, std::size_t column, std::size_t indent,
                   std::size_t width);

    /// Hands over everything written so far and flushes the stream.
    void flush();

private:
    void handOver();

    WriteStream* out_;
    std::string pending_; // not yet handed to the stream
};

} // namespace VORN::Text
