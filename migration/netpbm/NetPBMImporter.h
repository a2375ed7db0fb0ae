#pragma once

#include "migration/DataImporter.h"
#include "migration/ImageMetadata.h"

namespace VORN::Migration {

/// Reads binary NetPBM: bitmaps (P4), grey maps (P5) and pixel maps (P6).
///
/// Samples of maps have 8 bits or, if the maximum value is above 255, 16 bits. 16-bit samples keep
/// the file's byte order, most significant first, although the metadata says "little endian". The
/// maximum value has no other effect; samples are not scaled. In the buffer a bitmap takes one byte
/// a pixel: 1 for a set bit, which is black in NetPBM.
///
/// A file that is not NetPBM is a `FormatException`, a variant that is not implemented a
/// `SupportException`, a size that is not a number a `ConversionException`. Data that ends early is
/// the stream's own exception. Memory grows with the samples that arrive.
class NetPBMImporter : public DataImporterSeparate {
protected:
    /// If the header cannot be read, `metadata` stays as it is.
    void parseMetadata(Metadata& metadata) override;
    /// Reads as many samples as the header says; `bytes` is not used.
    void parseData(std::uint64_t bytes, DynamicBuffer& buffer) override;

private:
    ImageMetadata metadata_; // of the header that was read last
};

} // namespace VORN::Migration
