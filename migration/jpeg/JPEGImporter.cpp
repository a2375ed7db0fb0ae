#include "migration/jpeg/JPEGImporter.h"

#include "core/BufferStream.h"
#include "core/Exception.h"
#include "migration/ImageMetadata.h"
#include "migration/jpeg/BlockReader.h"
#include "migration/jpeg/ProgressiveDCTMode.h"
#include "migration/jpeg/SequentialDCTMode.h"

#include <memory>
#include <optional>
#include <utility>

namespace VORN::Migration {

namespace {

using namespace JPEG;

/// Marker codes, the byte after 0xFF (ITU-T T.81, table B.1).
enum class Marker : std::uint8_t {
    BaselineFrame = 0xC0,
    ProgressiveFrame = 0xC2,
    HuffmanTables = 0xC4,
    StartOfImage = 0xD8,
    EndOfImage = 0xD9,
    StartOfScan = 0xDA,
    QuantizationTables = 0xDB,
    RestartInterval = 0xDD,
    FirstApplication = 0xE0,
    LastApplication = 0xEF,
    Comment = 0xFE,
};

constexpr unsigned kFirstCode = 0xC0;
constexpr unsigned kLastCode = 0xFE;

constexpr std::uint8_t kMarkerStart = 0xFF;

[[noreturn]] void refuseMissingMarker() { refuse("Expected start of marker segment. "); }

[[noreturn]] void refuseMarker(unsigned code) {
    throw SupportException{kNoOrigin, "JPEG marker " + toHexadecimal(code)};
}

/// Goes through the marker segments of a file. The picture is borrowed.
class SegmentLoop {
public:
    SegmentLoop(IncrementalBuffer file, DynamicBuffer& picture)
        : file_{std::move(file)},
          rest_{file_.data()},
          picture_{&picture} {}

    /// Reads up to the end of the image and completes the picture; returns its layout.
    const FrameLayout& read();

private:
    std::uint8_t byte();
    Marker marker();
    Segment segment();
    void readSegment(Marker marker);
    template <class Mode>
    void readFrame();
    void readScan();
    void readHuffmanTables(Segment segment);
    void readQuantizationTables(Segment segment);
    void readRestartInterval(Segment segment);

    IncrementalBuffer file_;
    std::span<const std::uint8_t> rest_; // of the file
    DynamicBuffer* picture_;
    Tables tables_;
    std::optional<BlockReader> frame_;
};

const FrameLayout& SegmentLoop::read() {
    for (Marker next = marker(); next != Marker::EndOfImage; next = marker())
        readSegment(next);
    if (!frame_)
        refuse("Image without frame. ");
    rest_ = {};
    file_ = {}; // before the picture takes memory
    frame_->finish();
    return frame_->layout();
}

std::uint8_t SegmentLoop::byte() {
    if (rest_.empty())
        refuseEnd();
    const std::uint8_t byte = rest_[0];
    rest_ = rest_.subspan(1);
    return byte;
}

/// Takes the next marker; before its code there may be any number of fill bytes 0xFF (clause
/// B.1.1.2).
Marker SegmentLoop::marker() {
    if (byte() != kMarkerStart)
        refuseMissingMarker();
    std::uint8_t code = byte();
    while (code == kMarkerStart)
        code = byte();
    if (code < kFirstCode || code > kLastCode)
        refuseMarker(code);
    return Marker{code};
}

/// Takes the rest of a segment: its length, and the parameters that are returned.
Segment SegmentLoop::segment() {
    const std::size_t high = byte();
    const std::size_t length = high << 8 | byte(); // its own two bytes included
    if (length < 2)
        refuse("Marker segment smaller than expected. ");
    if (length - 2 > rest_.size())
        refuseEnd();
    const Segment segment{rest_.first(length - 2)};
    rest_ = rest_.subspan(length - 2);
    return segment;
}

void SegmentLoop::readSegment(Marker marker) {
    switch (marker) {
    case Marker::StartOfImage:
        return;
    case Marker::BaselineFrame:
        return readFrame<SequentialDCTMode>();
    case Marker::ProgressiveFrame:
        return readFrame<ProgressiveDCTMode>();
    case Marker::HuffmanTables:
        return readHuffmanTables(segment());
    case Marker::QuantizationTables:
        return readQuantizationTables(segment());
    case Marker::RestartInterval:
        return readRestartInterval(segment());
    case Marker::StartOfScan:
        return readScan();
    default:
        break;
    }
    const bool isApplication =
        marker >= Marker::FirstApplication && marker <= Marker::LastApplication;
    if (!isApplication && marker != Marker::Comment)
        refuseMarker(static_cast<unsigned>(marker));
    segment();
}

template <class Mode>
void SegmentLoop::readFrame() {
    const FrameHeader header{segment()};
    if (frame_)
        refuse("Image with more than one frame. ");
    frame_.emplace(std::make_unique<Mode>(header, *picture_));
}

void SegmentLoop::readScan() {
    const ScanHeader header{segment()};
    if (!frame_)
        refuse("Scan before its frame. ");
    rest_ = frame_->readScan(header, tables_, rest_);
}

void SegmentLoop::readHuffmanTables(Segment segment) {
    while (!segment.atEnd()) {
        const HuffmanTable table{segment};
        const bool isDc = table.tableClass() == HuffmanTable::Class::Dc;
        (isDc ? tables_.dc : tables_.ac)[table.destination()] = table;
    }
}

void SegmentLoop::readQuantizationTables(Segment segment) {
    while (!segment.atEnd()) {
        const QuantizationTable table{segment};
        tables_.quantization[table.destination] = table;
    }
}

void SegmentLoop::readRestartInterval(Segment segment) {
    tables_.restartInterval = segment.word();
    if (!segment.atEnd())
        refuse("Define restart interval segment larger than expected. ");
}

/// Reads all bytes of the stream, but throws at once if the first one cannot be that of a JPEG
/// file.
IncrementalBuffer readFile(ReadStream& stream) {
    IncrementalBuffer file;
    file.resize(1);
    file.resize(stream.readSome(file.writableData()));
    if (file.size() != 0 && file.data()[0] != kMarkerStart)
        refuseMissingMarker();
    readAll(stream, file);
    return file;
}

ImageMetadata describe(const FrameLayout& layout) {
    ImageMetadata metadata;
    metadata.width = layout.width;
    metadata.height = layout.height;
    metadata.channels = static_cast<std::uint32_t>(layout.components.size());
    metadata.format = layout.components.size() == 1 ? ImageMetadata::Format::Intensity
                                                    : ImageMetadata::Format::Rgba;
    return metadata;
}

} // namespace

void JPEGImporter::importImage(DynamicBuffer& buffer, Metadata& metadata) {
    SegmentLoop segments{readFile(stream()), buffer};
    metadata.assign(describe(segments.read()));
}

} // namespace VORN::Migration
