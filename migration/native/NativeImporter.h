#pragma once

#include "migration/DataImporter.h"
#include "migration/ImageMetadata.h"

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

    /// A key of `ImageMetadata` that is missing is a `NotFoundException`, a value that does not
    /// convert throws as `ImageMetadata::set` does; then `metadata` stays as it is.
    void readMetadata(Metadata& metadata) override;

protected:
    /// What was read last, once; nothing read since is an `InsufficientMetaException`.
    const ImageMetadata& takeMetadata();

private:
    ImageMetadata metadata_;
    bool hasMetadata_ = false; // `metadata_` belongs to the samples that follow in the stream
};

/// Reads pictures of the program's own format.
class NativeImporter : public NativeMetaImporter {
public:
    /// A number of sample bytes that is not the picture's is a `FormatException`, samples that are
    /// no whole bytes are a `SupportException`. Memory grows with the samples that arrive.
    void readData(DynamicBuffer& buffer) override;
};

} // namespace VORN::Migration
