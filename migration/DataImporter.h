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
    /// Forgets the stream.
    virtual void resetStream() { stream_ = nullptr; }
    /// Reads the whole picture: sets the keys of `metadata`, resizes and fills `buffer`, line 0
    /// being the bottom row. What is wrong with the file is an exception, after which `buffer` may
    /// hold a part of the picture.
    virtual void importImage(DynamicBuffer& buffer, Metadata& metadata) = 0;

protected:
    /// The stream; without one this is a `StreamException`.
    ReadStream& stream() const;

private:
    ReadStream* stream_ = nullptr;
};

/// An importer that can read the metadata first and the samples then.
///
/// The two steps come in turn, each pair from where the stream stands. A caller who takes them
/// apart gives the second one a buffer of the size that follows from the metadata; `importImage`
/// passes that size as a number instead, so that a file that claims much costs nothing before its
/// samples are there.
class DataImporterSeparate : public DataImporter {
public:
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override;
    /// Reads what comes before the samples and sets the keys of `metadata`.
    virtual void readMetadata(Metadata& metadata);
    /// Reads the samples, which `readMetadata` must have led up to; `buffer` has the size of the
    /// picture. Samples whose metadata has not been read are an `InsufficientMetaException`.
    virtual void readData(DynamicBuffer& buffer);

protected:
    /// Does what `readMetadata` says.
    virtual void parseMetadata(Metadata& metadata) = 0;
    /// Makes `buffer`, whatever it holds, the samples, which the reader expects to be `bytes`
    /// bytes. Memory grows with those that arrive, since that number is only what the file claims.
    virtual void parseData(std::uint64_t bytes, DynamicBuffer& buffer) = 0;

private:
    void takeMetadata();

    bool hasMetadata_ = false; // and the samples that belong to it follow in the stream
};

/// Makes `buffer` the next `count` bytes of the stream.
///
/// The buffer grows with the bytes that arrive, so a count that claims more than there is costs
/// nothing but the stream's own exception.
void readSamples(ReadStream& in, std::uint64_t count, DynamicBuffer& buffer);

} // namespace VORN::Migration
