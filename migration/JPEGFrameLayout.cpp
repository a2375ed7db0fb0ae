#include "migration/JPEGFrameLayout.h"

#include <algorithm>

namespace VORN::Migration::JPEG {

namespace {

constexpr std::uint32_t divideUp(std::uint32_t dividend, std::uint32_t divisor) {
    return (dividend + divisor - 1) / divisor;
}

ComponentLayout layOut(const FrameHeader::ImageComponent& component, bool isAlone) {
    return {.identifier = component.identifier,
            .quantizationTable = component.quantizationTable,
            .horizontalSampling = isAlone ? 1U : component.horizontalSampling,
            .verticalSampling = isAlone ? 1U : component.verticalSampling};
}

} // namespace

FrameLayout::FrameLayout(const FrameHeader& header) : width{header.width}, height{header.height} {
    for (const FrameHeader::ImageComponent& component : header.components) {
        components.push_back(layOut(component, header.components.size() == 1));
        horizontalSampling = std::max(horizontalSampling, components.back().horizontalSampling);
        verticalSampling = std::max(verticalSampling, components.back().verticalSampling);
    }
    unitsAcross = divideUp(width, horizontalSampling * kBlockSide);
    unitsDown = divideUp(height, verticalSampling * kBlockSide);
    for (ComponentLayout& component : components) {
        component.width = divideUp(width * component.horizontalSampling, horizontalSampling);
        component.height = divideUp(height * component.verticalSampling, verticalSampling);
        component.blocksAcross = divideUp(component.width, kBlockSide);
        component.blocksDown = divideUp(component.height, kBlockSide);
        component.paddedBlocksAcross = unitsAcross * component.horizontalSampling;
    }
}

std::uint64_t FrameLayout::blocks() const {
    std::uint64_t unitBlocks = 0;
    for (const ComponentLayout& component : components)
        unitBlocks += component.horizontalSampling * component.verticalSampling;
    return std::uint64_t{unitsAcross} * unitsDown * unitBlocks;
}

} // namespace VORN::Migration::JPEG
