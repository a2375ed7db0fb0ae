#pragma once

#include "migration/DataImporter.h"

namespace VORN::Migration {

/// Reads the metadata of the program's own format: metadata as `Metadata` serialises it, the number
/// of sample bytes as 32 bits, least significant first, and the sample bytes as they stand in the
/// buffer.
class NativeMetaImporter : public DataImporterSeparate {
public:
    /// How surely the stream, from where it stands, holds this format: 0.0 is not at all.
    ///
    /// The format has no signature; what counts are the keys, which have to be in order and hold
    /// all that describe a picture. The stream's position is undefined afterwards.
    static double recognise(ReadStream& stream);

protected:
    /// A key of `ImageMetadata` that is missing is a `NotFoundException`.
    void parseMetadata(Metadata& metadata) override;
};

/// Reads pictures of the program's own format.
class NativeImporter : public NativeMetaImporter {
protected:
    /// A number of sample bytes that is not the expected one is a `FormatException`.
    void parseData(std::uint64_t bytes, DynamicBuffer& buffer) override;
};

} // namespace VORN::Migration
