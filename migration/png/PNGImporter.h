#pragma once

#include "migration/DataImporter.h"

namespace VORN::Migration {

/// Reads PNG pictures that are not interlaced: grey, grey with alpha, RGB and RGBA with 8 or 16
/// bits a sample, and indices of one byte, which become RGB.
///
/// Chunks are taken in any order up to the end chunk; each is judged by what came before it, and
/// until a header comes all of its fields are 0. Ancillary chunks are skipped, transparency
/// included; an index beyond the palette is black.
class PNGImporter : public DataImporter {
public:
    /// A violation is a `FormatException` of the format "png" or, in compressed data, "deflate", a
    /// feature that is missing here a `SupportException`, and a filter that does not exist a
    /// `BoundException<unsigned int>`. `metadata` is set once all chunks have been read.
    ///
    /// Memory grows with the data read: beside the picture only its compressed data is kept.
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override;
};

} // namespace VORN::Migration
