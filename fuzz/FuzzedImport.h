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
    Import import;
    const BorrowConstBuffer buffer{file};
    ConstBufferStream stream{buffer};
    IncrementalBuffer picture;
    import.complaint = complaintOf([&] {
        Importer importer;
    importer.setStream(&stream);
    importer.importImage(picture, import.metadata);
});
if (import.complaint.empty())
    import.picture = bytesOf(picture);
return import;
} // namespace VORN::Fuzz

/// Writes a picture that was read; "" comes with its file, else nothing is known of that.
template <class Exporter>
std::string exportPicture(const Import& import, Bytes& file) {
    const BorrowConstBuffer picture{import.picture};
    return complaintOf([&] {
        file = written([&](WriteStream& out) {
            Exporter exporter;
            exporter.setStream(&out);
            exporter.exportImage(picture, import.metadata);
        });
    });
}

/// That the picture has the bytes that its metadata claims.
inline void requireWholePicture(const Import& import) {
    const Migration::ImageFormatDescriptor layout{import.metadata};
    require(import.picture.size() == layout.bytes(), "the picture has the size that is told");
}

/// That reading a file that the program wrote gives `import` again.
template <class Importer>
void requireSame(const Import& import, std::span<const std::uint8_t> file) {
    const Import again = importPicture<Importer>(file);
    require(again.complaint.empty(), "what was written can be read");
    require(again.picture == import.picture, "what was written has the same samples");
    for (const std::string& key : import.metadata.keys())
        require(again.metadata.get(key) == import.metadata.get(key),
                "what was written has the same metadata");
}

} // namespace VORN::Fuzz
