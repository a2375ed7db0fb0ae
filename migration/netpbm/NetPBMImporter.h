#pragma once

#include "migration/DataImporter.h"
#include "migration/ImageMetadata.h"

namespace VORN::Migration {

/// Reads binary NetPBM: bitmaps (P4), grey maps (P5) and pixel maps (P6).
///
/// Samples of maps are 8-bit, or 16-bit when the maximum value is above 255; those keep the file's
/// byte order, most significant first, although the metadata says "little endian". Of the maximum
/// value nothing else is kept, samples are not scaled. A bitmap takes one byte per pixel in the
/// buffer, 1 for a set bit, which is NetPBM's black.
///
/// What is not NetPBM is a `FormatException`, a variant that is not implemented a
/// `SupportException`, a size that is no number a `ConversionException`; data that ends early is
/// the stream's own exception. Memory grows with the samples that arrive.
class NetPBMImporter : public DataImporterSeparate {
protected:
    /// Leaves `metadata` as it is when the header cannot be read.
    void parseMetadata(Metadata& metadata) override;
    /// Goes by the header, whatever size is expected.
    void parseData(std::uint64_t bytes, DynamicBuffer& buffer) override;

private:
    ImageMetadata metadata_; // of the header that was read last
};

} // namespace VORN::Migration
