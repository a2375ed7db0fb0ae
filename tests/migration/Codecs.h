#pragma once

#include "migration/DataExporter.h"
#include "migration/DataImporter.h"
#include "migration/ImageMetadata.h"
#include "tests/Bytes.h"

#include <string>

namespace VORN::Migration {

struct Picture {
    ImageMetadata metadata;
    Bytes samples;
};

inline Picture imported(DataImporter& importer, std::span<const std::uint8_t> file) {
    const BorrowConstBuffer bytes{file};
    ConstBufferStream stream{bytes};
    importer.setStream(&stream);
    Picture picture;
    IncrementalBuffer samples;
    importer.importImage(samples, picture.metadata);
    picture.samples = bytesOf(samples);
    return picture;
}

template <class Importer>
Picture imported(std::span<const std::uint8_t> file) {
    Importer importer;
    return imported(importer, file);
}

/// Writes the file, of which a part is there when the exporter refuses the picture.
template <class Exporter>
void exportTo(IncrementalBuffer& file, const Bytes& samples, const Metadata& metadata) {
    BufferStream stream{file};
    Exporter exporter;
    exporter.setStream(&stream);
    exporter.exportImage(BorrowConstBuffer{samples}, metadata);
}

} // namespace VORN::Migration
