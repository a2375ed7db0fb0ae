#pragma once

#include "core/Buffer.h"
#include "core/Exception.h"
#include "core/Stream.h"
#include "migration/Metadata.h"

#include <string>

namespace VORN::Migration {

/// Writes one picture in a file format. An exporter is used once: create, `setStream`,
/// `exportImage`, destroy.
class DataExporter {
public:
    virtual ~DataExporter() = default;
    /// The options that the exporter knows, as text; no exporter has any so far.
    virtual std::string options() const { return ""; }
    /// Writes the picture in `buffer`, whose layout `metadata` describes; line 0 is the bottom row.
    /// A picture that the format cannot hold throws as each exporter says, and so does what the
    /// stream throws. The stream is not flushed.
    virtual void exportImage(const Buffer& buffer, const Metadata& metadata) = 0;

    /// The stream is borrowed and must outlive the export; it is not closed.
    void setStream(WriteStream* stream) { stream_ = stream; }

protected:
    /// The stream; throws `StreamException` if none is set.
    WriteStream& stream() const {
        if (stream_ == nullptr)
            throw StreamException{kNoOrigin};
        return *stream_;
    }

private:
    WriteStream* stream_ = nullptr;
};

} // namespace VORN::Migration
