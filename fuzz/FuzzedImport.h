#pragma once

#include "fuzz/Fuzzing.h"
#include "migration/DataExporter.h"
#include "migration/DataImporter.h"
#include "migration/ImageFormatDescriptor.h"

namespace VORN::Fuzz {

/// What came of reading a picture.
struct Import {
    std::string complaint; // "": it was read
    Migration::ImageMetadata metadata;
    Bytes picture;
};

template <class Importer>
Import importPicture(std::span<const std::uint8_t> file) {
    Import found;
    const BorrowConstBuffer buffer{file};
    ConstBufferStream stream{buffer};
    IncrementalBuffer picture;
    found.complaint = complaintOf([&] {
        Importer importer;
        importer.setStream(&stream);
        importer.importImage(picture, found.metadata);
    });
    if (found.complaint.empty())
        found.picture = bytesOf(picture);
    return found;
}

/// Writes a picture that was read; "" comes with its file, else nothing is known of that.
template <class Exporter>
std::string exportPicture(const Import& found, Bytes& file) {
    const BorrowConstBuffer picture{found.picture};
    return complaintOf([&] {
        file = written([&](WriteStream& out) {
            Exporter exporter;
            exporter.setStream(&out);
            exporter.exportImage(picture, found.metadata);
        });
    });
}

/// That the picture has the bytes that its metadata claims.
inline void requireWholePicture(const Import& found) {
    const Migration::ImageFormatDescriptor layout{found.metadata};
    require(found.picture.size() == layout.bytes(), "the picture has the size that is told");
}

/// That reading a file that the program wrote gives `found` again.
template <class Importer>
void requireSame(const Import& found, std::span<const std::uint8_t> file) {
    const Import again = importPicture<Importer>(file);
    require(again.complaint.empty(), "what was written can be read");
    require(again.picture == found.picture, "what was written has the same samples");
    for (const std::string& key : found.metadata.keys())
        require(again.metadata.get(key) == found.metadata.get(key),
                "what was written has the same metadata");
}

} // namespace VORN::Fuzz
