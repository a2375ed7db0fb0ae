#pragma once

#include "fuzz/Fuzzing.h"
#include "migration/ImageFormatDescriptor.h"
#include "tests/migration/Codecs.h"

namespace VORN::Fuzz {

/// What came of reading a picture.
struct Import : Migration::Picture {
    std::string complaint; // "": it was read
};

template <class Importer>
Import importPicture(std::span<const std::uint8_t> file) {
    Import found;
    found.complaint = complaintOf(
        [&] { static_cast<Migration::Picture&>(found) = Migration::imported<Importer>(file); });
    return found;
}

/// Writes a picture that was read; "" comes with its file, else nothing is known of that.
template <class Exporter>
std::string exportPicture(const Import& found, Bytes& file) {
    return complaintOf([&] {
        IncrementalBuffer buffer;
        Migration::exportTo<Exporter>(buffer, found.samples, found.metadata);
        file = bytesOf(buffer);
    });
}

/// That the picture has the bytes that its metadata claims.
inline void requireWholePicture(const Import& found) {
    const Migration::ImageFormatDescriptor layout{found.metadata};
    require(found.samples.size() == layout.bytes(), "the picture has the size that is told");
}

/// That reading a file that the program wrote gives `found` again.
template <class Importer>
void requireSame(const Import& found, std::span<const std::uint8_t> file) {
    const Import again = importPicture<Importer>(file);
    require(again.complaint.empty(), "what was written can be read");
    require(again.samples == found.samples, "what was written has the same samples");
    for (const std::string& key : found.metadata.keys())
        require(again.metadata.get(key) == found.metadata.get(key),
                "what was written has the same metadata");
}

} // namespace VORN::Fuzz
