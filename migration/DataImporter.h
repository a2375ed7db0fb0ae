#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"
#include "migration/Metadata.h"

namespace VORN::Migration {

/// Reads one picture. Used once: create, `setStream`, `importImage`, destroy.
class DataImporter {
public:
    virtual ~DataImporter() = default;
    /// The stream is borrowed, stands at the picture's first byte and must outlive the import.
    virtual void setStream(ReadStream* stream) { stream_ = stream; }
    virtual void resetStream() { stream_ = nullptr; }
    /// Reads the whole picture: sets the keys of `metadata`, resizes and fills `buffer`, line 0
    /// being the bottom row.
    virtual void importImage(DynamicBuffer& buffer, Metadata& metadata) = 0;

protected:
    /// The stream; without one this is a `StreamException`.
    ReadStream& stream() const;

private:
    ReadStream* stream_ = nullptr;
};

/// An importer that can read the metadata first and the samples then.
class DataImporterSeparate : public DataImporter {
public:
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override;
    virtual void readMetadata(Metadata& metadata) = 0;
    /// Without a new `readMetadata` before it this is an `InsufficientMetaException`.
    virtual void readData(DynamicBuffer& buffer) = 0;
};

} // namespace VORN::Migration
