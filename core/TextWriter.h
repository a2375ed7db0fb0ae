#pragma once

#include "core/Stream.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace VORN::Text {

/// Collects text and hands it to a stream in large pieces; the end of line is a single line feed.
///
/// The stream is borrowed and must outlive the writer. Nothing is sure to have arrived before
/// `flush`, which throws what the stream throws; a writer that is not flushed loses its rest.
class TextWriter {
public:
    explicit TextWriter(WriteStream& out) : out_{&out} {}

    /// Appends `text` as it is.
    void write(std::string_view text);
    void endLine() { write("\n"); }

    /// Writes `text` word by word, wrapped so that no line passes `width` characters.
    ///
    /// The first line starts at `column`, every further one with `indent` blanks. The blanks at a
    /// break are dropped; a word longer than a line is not split.
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
