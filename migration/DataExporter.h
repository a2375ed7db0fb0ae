#pragma once

#include "core/Buffer.h"
#include "core/Exception.h"
#include "core/Stream.h"
#include "migration/Metadata.h"

#include <string>

namespace VORN::Migration {

/// Writes one picture. Used once: create, `setStream`, `exportImage`, destroy.
class DataExporter {
public:
    virtual ~DataExporter() = default;
    /// What the exporter can be told, as text; empty where there is nothing to tell.
    virtual std::string options() const { return ""; }
    /// Writes the picture in `buffer`, line 0 being its bottom row, as `metadata` describes it.
    virtual void exportImage(const Buffer& buffer, const Metadata& metadata) = 0;

    /// The stream is borrowed and must outlive the export; it is not closed.
    void setStream(WriteStream* stream) { stream_ = stream; }

protected:
    /// The stream; without one this is a `StreamException`.
    WriteStream& stream() const {
        if (stream_ == nullptr)
            throw StreamException{kNoOrigin};
        return *stream_;
    }

private:
    WriteStream* stream_ = nullptr;
};

} // namespace VORN::Migration
