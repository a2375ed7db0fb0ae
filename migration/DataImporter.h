#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"
#include "migration/Metadata.h"

namespace VORN::Migration {

/// Reads one picture from a file format. An importer is used once: create, `setStream`,
/// `importImage`, destroy.
class DataImporter {
public:
    virtual ~DataImporter() = default;
    /// Sets the stream to read from, which stands at the picture's first byte. It is borrowed and
    /// must outlive the import.
    virtual void setStream(ReadStream* stream) { stream_ = stream; }
    /// Forgets the stream.
    virtual void resetStream() { stream_ = nullptr; }
    /// Reads the whole picture: sets the keys of `metadata`, and resizes and fills `buffer`, whose
    /// line 0 is the bottom row. A fault in the file is an exception; `buffer` may then hold a part
    /// of the picture.
    virtual void importImage(DynamicBuffer& buffer, Metadata& metadata) = 0;

protected:
    /// The stream; throws `StreamException` if none is set.
    ReadStream& stream() const;

private:
    ReadStream* stream_ = nullptr;
};

/// An importer that can also be used in two steps: first the metadata, then the samples.
///
/// Each step reads on from where the stream stands, and they must come in turn. For the second step
/// the caller makes a buffer of the size that follows from the metadata. `importImage` does
/// without: it passes the size as a number, so that a file costs no memory for samples that it only
/// claims to have.
class DataImporterSeparate : public DataImporter {
public:
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override;
    /// Reads everything before the samples and sets the keys of `metadata`.
    virtual void readMetadata(Metadata& metadata);
    /// Reads the samples into `buffer`, which has the size of the picture. Without a `readMetadata`
    /// before it, this is an `InsufficientMetaException`.
    virtual void readData(DynamicBuffer& buffer);

protected:
    /// Does the work of `readMetadata`.
    virtual void parseMetadata(Metadata& metadata) = 0;
    /// Replaces the content of `buffer` by the samples, which should be `bytes` bytes. That number
    /// is only what the file claims, so memory must grow with the bytes that arrive.
    virtual void parseData(std::uint64_t bytes, DynamicBuffer& buffer) = 0;

private:
    void takeMetadata();

    bool hasMetadata_ = false; // the samples come next in the stream
};

/// Replaces the content of `buffer` by the next `count` bytes of the stream.
///
/// The buffer grows with the bytes that arrive. So too large a count takes no memory; it ends in
/// the stream's own exception.
void readSamples(ReadStream& in, std::uint64_t count, DynamicBuffer& buffer);

} // namespace VORN::Migration
