#include "migration/DataImporter.h"

#include "core/Exception.h"

namespace VORN::Migration {

ReadStream& DataImporter::stream() const {
    if (stream_ == nullptr)
        throw StreamException{kNoOrigin};
    return *stream_;
}

void DataImporterSeparate::importImage(DynamicBuffer& buffer, Metadata& metadata) {
    readMetadata(metadata);
    readData(buffer);
}

} // namespace VORN::Migration
