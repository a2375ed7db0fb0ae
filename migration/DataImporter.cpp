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
    constexpr std::uint64_t kRoom = 1024; // times the bytes that have arrived
    std::uint64_t room = kFirstPieceBytes;
    std::uint64_t size = 0;
    buffer.resize(0);
    while (size < count) {
        // Asks for at most as many bytes as have arrived so far. Room for more takes addresses
        // only, and spares moving what is there.
        const std::uint64_t piece = std::min(count - size, std::max(size, kFirstPieceBytes));
        if (size + piece > room) {
            room = std::min(count, kRoom * size);
            buffer.reserve(room);
        }
        buffer.resize(size + piece);
        in.read(buffer.writableData().subspan(static_cast<std::size_t>(size)));
        size += piece;
    }
}

} // namespace VORN::Migration
