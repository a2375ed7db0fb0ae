#pragma once

#include "core/TextWriter.h"
#include "tests/Bytes.h"

#include <string>

namespace VORN {

/// Lets `artwork`, a palette or a pattern, read a file.
template <class Artwork>
bool readFile(Artwork& artwork, std::span<const std::uint8_t> file) {
    const BorrowConstBuffer bytes{file};
    ConstBufferStream in{bytes};
    return artwork.Read(in);
}
template <class Artwork>
bool readText(Artwork& artwork, std::string_view text) {
    return readFile(artwork, bytesOf(text));
}

/// The file that `artwork` writes.
template <class Artwork>
std::string writtenText(const Artwork& artwork) {
    const Bytes bytes = written([&](WriteStream& out) {
        Text::TextWriter writer{out};
        artwork.Write(writer);
        writer.flush();
    });
    return {bytes.begin(), bytes.end()};
}

} // namespace VORN
