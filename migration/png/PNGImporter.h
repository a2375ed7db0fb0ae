#pragma once

#include "migration/DataImporter.h"

namespace VORN::Migration {

/// Reads PNG pictures that are not interlaced: grey, grey with alpha, RGB and RGBA with 8 or 16
/// bits a sample, and indices of one byte, which become RGB.
///
/// Chunks are accepted in any order up to the end chunk. Each is checked against the chunks before
/// it; as long as there is no header, its fields count as 0. Ancillary chunks are skipped,
/// transparency among them. An index beyond the palette is black.
class PNGImporter : public DataImporter {
public:
    /// A malformed file is a `FormatException` of "png" or, if the compressed data is malformed, of
    /// "deflate". A feature that is not implemented is a `SupportException`, a filter that does not
    /// exist a `BoundException<unsigned int>`. `metadata` is set when all chunks have been read.
    ///
    /// Memory grows with the data that arrives: beside the picture only its compressed data is
    /// kept.
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override;
};

} // namespace VORN::Migration
