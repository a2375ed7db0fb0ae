#pragma once

#include "migration/jpeg/Segment.h"

#include <array>
#include <cstdint>
#include <vector>

namespace VORN::Migration::JPEG {

/// Components in the order in which their header lists them.
template <class Component>
using JPEGVector = std::vector<Component>;

/// What a frame holds (ITU-T T.81, clause B.2.2).
struct FrameHeader {
    struct ImageComponent {
        std::uint8_t identifier = 0;
        std::uint8_t horizontalSampling = 1; // 1 to 4
        std::uint8_t verticalSampling = 1;   // 1 to 4
        std::uint8_t quantizationTable = 0;  // selector; tables have 0 to 3
    };

    std::uint16_t width = 0;               // pixels, at least 1
    std::uint16_t height = 0;              // lines, at least 1
    JPEGVector<ImageComponent> components; // 1 or 3

    /// Throws `SupportException` for samples of other than 8 bits and other than 1 or 3 components,
    /// and `FormatException` for a segment of another length than its components need, for no
    /// pixels and for sampling factors that clause B.2.2 does not allow.
    explicit FrameHeader(Segment segment);
};

/// Which components a scan holds and which part of their coefficients (ITU-T T.81, clause B.2.3).
struct ScanHeader {
    struct ScanComponent {
        std::uint8_t selector = 0; // the identifier of a frame component
        // Selectors of Huffman tables, 0 to 15; a scan looks only at those that it uses.
        std::uint8_t dcTable = 0;
        std::uint8_t acTable = 0;
    };

    JPEGVector<ScanComponent> components; // as many as the segment names, 0 to 255
    std::uint8_t spectralStart = 0;
    std::uint8_t spectralEnd = 0;
    std::uint8_t approximationHigh = 0; // 0 to 15; 0 in the first scan of a coefficient
    std::uint8_t approximationLow = 0;  // 0 to 15

    /// Throws `FormatException` for a segment of another length than its components need.
    explicit ScanHeader(Segment segment);
};

/// The steps of one quantisation table (ITU-T T.81, clause B.2.4.1).
struct QuantizationTable {
    std::uint8_t destination = 0;          // 0 to 3
    std::array<std::uint8_t, 64> values{}; // in zigzag order

    /// Reads one of the tables of a segment; other than 8-bit steps are a `SupportException`.
    explicit QuantizationTable(Segment& segment);
};

/// The number of tables of one kind that a file may have at a time.
constexpr std::uint8_t kTableDestinations = 4;

} // namespace VORN::Migration::JPEG
