#include "migration/DataImporter.h"

#include "core/Exception.h"
#include "migration/ImageFormatDescriptor.h"

#include <algorithm>

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

void readSamples(ReadStream& in, std::uint64_t count, DynamicBuffer& buffer) {
    constexpr std::uint64_t kFirstPieceBytes = std::uint64_t{1} << 20;
    std::uint64_t size = 0;
    buffer.resize(0);
    while (size < count) {
        // At most as much again as there is already.
        const std::uint64_t piece = std::min(count - size, std::max(size, kFirstPieceBytes));
        buffer.resize(size + piece);
        in.read(buffer.writableData().subspan(static_cast<std::size_t>(size)));
        size += piece;
    }
}

} // namespace VORN::Migration
