#include "migration/jpeg/Headers.h"

#include "core/Exception.h"

#include <algorithm>

namespace VORN::Migration::JPEG {

namespace {

constexpr std::size_t kImageComponentBytes = 3;
constexpr std::size_t kScanComponentBytes = 2;
constexpr std::size_t kScanParameterBytes = 3; // behind the components

FrameHeader::ImageComponent readImageComponent(Segment& segment) {
    FrameHeader::ImageComponent component;
    component.identifier = segment.byte();
    const std::uint8_t sampling = segment.byte();
    component.horizontalSampling = sampling >> 4;
    component.verticalSampling = sampling & 15;
    component.quantizationTable = segment.byte();
    const auto isFactor = [](unsigned factor) { return factor >= 1 && factor <= 4; };
    if (!isFactor(component.horizontalSampling) || !isFactor(component.verticalSampling))
        refuse("Sampling factor out of range. ");
    return component;
}

ScanHeader::ScanComponent readScanComponent(Segment& segment) {
    ScanHeader::ScanComponent component;
    component.selector = segment.byte();
    const std::uint8_t tables = segment.byte();
    component.dcTable = tables >> 4;
    component.acTable = tables & 15;
    return component;
}

} // namespace

FrameHeader::FrameHeader(Segment segment) {
    const std::uint8_t precision = segment.byte();
    const std::uint16_t lines = segment.word();
    const std::uint16_t columns = segment.word();
    const std::uint8_t count = segment.byte();
    if (segment.left() > count * kImageComponentBytes)
        refuse("Frame header larger than expected. ");
    if (precision != 8)
        throw SupportException{kNoOrigin, "JPEG with other than 8-bit sample precision"};
    if (count != 1 && count != 3)
        throw SupportException{kNoOrigin, "JPEG with channels other than 1 or 3"};
    if (columns == 0 || lines == 0)
        refuse("Frame without pixels. ");
    width = columns;
    height = lines;
    for (unsigned i = 0; i < count; ++i)
        components.push_back(readImageComponent(segment));
}

ScanHeader::ScanHeader(Segment segment) {
    const std::uint8_t count = segment.byte();
    if (segment.left() > count * kScanComponentBytes + kScanParameterBytes)
        refuse("Scan header larger than expected. ");
    for (unsigned i = 0; i < count; ++i)
        components.push_back(readScanComponent(segment));
    spectralStart = segment.byte();
    spectralEnd = segment.byte();
    const std::uint8_t approximation = segment.byte();
    approximationHigh = approximation >> 4;
    approximationLow = approximation & 15;
}

QuantizationTable::QuantizationTable(Segment& segment) {
    const std::uint8_t precisionAndDestination = segment.byte();
    if (precisionAndDestination >> 4 != 0)
        throw SupportException{kNoOrigin,
                               "JPEG with other than 8-bit quantization table precision"};
    destination = precisionAndDestination & 15;
    if (destination >= kTableDestinations)
        refuse("Quantization table destination out of range. ");
    std::ranges::copy(segment.bytes(values.size()), values.begin());
}

} // namespace VORN::Migration::JPEG
