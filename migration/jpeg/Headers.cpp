#include "migration/jpeg/Headers.h"

#include "core/Exception.h"

#include <algorithm>

namespace VORN::Migration::JPEG {

namespace {

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
    if (component.quantizationTable >= kTableDestinations)
        refuse("Quantization table selector out of range. ");
    return component;
}

ScanHeader::ScanComponent readScanComponent(Segment& segment) {
    ScanHeader::ScanComponent component;
    component.selector = segment.byte();
    const std::uint8_t tables = segment.byte();
    component.dcTable = tables >> 4;
    component.acTable = tables & 15;
    if (component.dcTable >= kTableDestinations || component.acTable >= kTableDestinations)
        refuse("Huffman table selector out of range. ");
    return component;
}

} // namespace

FrameHeader::FrameHeader(Segment segment) {
    if (segment.byte() != 8)
        throw SupportException{kNoOrigin, "JPEG with other than 8-bit sample precision"};
    height = segment.word();
    width = segment.word();
    const std::uint8_t count = segment.byte();
    if (count != 1 && count != 3)
        throw SupportException{kNoOrigin, "JPEG with channels other than 1 or 3"};
    for (unsigned i = 0; i < count; ++i)
        components.push_back(readImageComponent(segment));
    if (!segment.atEnd())
        refuse("Frame header larger than expected. ");
    if (width == 0 || height == 0)
        refuse("Frame without pixels. ");
}

ScanHeader::ScanHeader(Segment segment) {
    const std::uint8_t count = segment.byte();
    for (unsigned i = 0; i < count; ++i)
        components.push_back(readScanComponent(segment));
    spectralStart = segment.byte();
    spectralEnd = segment.byte();
    const std::uint8_t approximation = segment.byte();
    approximationHigh = approximation >> 4;
    approximationLow = approximation & 15;
    if (!segment.atEnd())
        refuse("Scan header larger than expected. ");
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
