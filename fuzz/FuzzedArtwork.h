#pragma once

#include "core/TextWriter.h"
#include "fuzz/Fuzzing.h"

namespace VORN::Fuzz {

/// Lets `artwork`, a palette or a pattern, read the file; returns what its `Read` does.
template <class Artwork>
bool readArtwork(Artwork& artwork, std::span<const std::uint8_t> file) {
    const BorrowConstBuffer bytes{file};
    ConstBufferStream in{bytes};
    return artwork.Read(in);
}

/// The file that `artwork` writes.
template <class Artwork>
Bytes writtenArtwork(const Artwork& artwork) {
    return written([&](WriteStream& out) {
        Text::TextWriter writer{out};
        artwork.Write(writer);
        writer.flush();
    });
}

} // namespace VORN::Fuzz
