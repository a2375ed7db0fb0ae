#pragma once

#include "migration/DataImporter.h"

namespace VORN::Migration {

/// Reads the metadata of the program's own format.
///
/// A file of that format holds the metadata as `Metadata` serialises it, the number of sample bytes
/// as 32 bits, least significant byte first, and the sample bytes as they are in the buffer.
class NativeMetaImporter : public DataImporterSeparate {
public:
    /// How likely it is, from 0.0 to 1.0, that the stream holds this format from where it stands.
    ///
    /// The format has no signature. It is recognised by the keys of its metadata, which must be in
    /// order and include all that describe a picture. The stream's position is not defined
    /// afterwards.
    static double recognise(ReadStream& stream);

protected:
    /// A missing key of `ImageMetadata` is a `NotFoundException`.
    void parseMetadata(Metadata& metadata) override;
};

/// Reads pictures of the program's own format.
class NativeImporter : public NativeMetaImporter {
protected:
    /// If the number of sample bytes is not `bytes`, that is a `FormatException` of "native".
    void parseData(std::uint64_t bytes, DynamicBuffer& buffer) override;
};

} // namespace VORN::Migration
