#pragma once

#include "core/BufferStream.h"
#include "core/TextWriter.h"

#include <string>

namespace VORN {

/// Lets `artwork`, a palette or a pattern, read a file that holds `text`.
template <class Artwork>
bool readText(Artwork& artwork, const std::string& text) {
    const BorrowConstBuffer bytes{
        {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}};
    ConstBufferStream in{bytes};
    return artwork.Read(in);
}

/// The file that `artwork` writes.
template <class Artwork>
std::string writtenText(const Artwork& artwork) {
    IncrementalBuffer bytes;
    BufferStream out{bytes};
    Text::TextWriter writer{out};
    artwork.Write(writer);
    writer.flush();
    return {bytes.data().begin(), bytes.data().end()};
}

} // namespace VORN
