#include "migration/DataImporter.h"

#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"

namespace VORN::Migration {

ReadStream& DataImporter::stream() const {
    if (stream_ == nullptr)
        throw StreamException{kNoOrigin};
    return *stream_;
}

void DataImporterSeparate::importImage(DynamicBuffer& buffer, Metadata& metadata) {
    readMetadata(metadata);
    const ImageFormatDescriptor layout{metadata};
    takeMetadata();
    parseData(layout.bytes(), buffer);
}

void DataImporterSeparate::readMetadata(Metadata& metadata) {
    parseMetadata(metadata);
    hasMetadata_ = true;
}

void DataImporterSeparate::readData(DynamicBuffer& buffer) {
    takeMetadata();
    parseData(buffer.size(), buffer);
}

void DataImporterSeparate::takeMetadata() {
    if (!hasMetadata_)
        throw InsufficientMetaException{kNoOrigin,
                                        "Meta data not provided before attempting to read data. "};
    hasMetadata_ = false;
}

} // namespace VORN::Migration
