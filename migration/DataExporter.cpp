#include "migration/DataExporter.h"

#include "core/Exception.h"

namespace VORN::Migration {

WriteStream& DataExporter::stream() const {
    if (stream_ == nullptr)
        throw StreamException{kNoOrigin};
    return *stream_;
}

} // namespace VORN::Migration
