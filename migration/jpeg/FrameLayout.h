#pragma once

#include "migration/jpeg/Headers.h"

#include <cstdint>
#include <vector>

namespace VORN::Migration::JPEG {

/// How one component covers the picture (ITU-T T.81, clauses A.1.1 and A.2).
struct ComponentLayout {
    std::uint8_t identifier = 0;
    std::uint8_t quantizationTable = 0;
    std::uint32_t horizontalSampling = 1; // blocks of a minimum coded unit, across
    std::uint32_t verticalSampling = 1;   // and down
    std::uint32_t width = 0;              // samples that belong to the picture, across
    std::uint32_t height = 0;             // and down
    std::uint32_t blocksAcross = 0;       // that hold such samples
    std::uint32_t blocksDown = 0;
    std::uint32_t paddedBlocksAcross = 0; // with those that fill up the last unit of a row
};

/// How a frame is divided into minimum coded units (MCUs), each holding
/// horizontalSampling * verticalSampling blocks of each component in turn.
///
/// A frame of one component has one block in each, whatever its factors say (clause A.2.2).
struct FrameLayout {
    std::uint32_t width = 0;  // pixels
    std::uint32_t height = 0; // lines
    JPEGVector<ComponentLayout> components;
    std::uint32_t horizontalSampling = 1; // the largest of all components
    std::uint32_t verticalSampling = 1;
    std::uint32_t unitsAcross = 0;
    std::uint32_t unitsDown = 0;

    explicit FrameLayout(const FrameHeader& header);

    /// The number of blocks of all components, with those that only fill up a unit.
    std::uint64_t blocks() const;
    /// The size of the picture: one byte for each component of a pixel.
    std::uint64_t pictureBytes() const { return std::uint64_t{width} * height * components.size(); }
};

constexpr std::uint32_t kBlockSide = 8;

} // namespace VORN::Migration::JPEG
