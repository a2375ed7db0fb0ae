#include "migration/jpeg/FrameLayout.h"

#include <algorithm>

namespace VORN::Migration::JPEG {

namespace {

constexpr std::uint32_t divideUp(std::uint32_t dividend, std::uint32_t divisor) {
    return (dividend + divisor - 1) / divisor;
}

JPEGVector<ComponentLayout> layOut(const JPEGVector<FrameHeader::ImageComponent>& components) {
    const bool isAlone = components.size() == 1;
    JPEGVector<ComponentLayout> layouts;
    for (const FrameHeader::ImageComponent& component : components)
        layouts.push_back({.identifier = component.identifier,
                           .quantizationTable = component.quantizationTable,
                           .horizontalSampling = isAlone ? 1U : component.horizontalSampling,
                           .verticalSampling = isAlone ? 1U : component.verticalSampling});
    return layouts;
}

std::uint32_t largest(const JPEGVector<ComponentLayout>& components,
                      std::uint32_t ComponentLayout::* sampling) {
    return (*std::ranges::max_element(components, {}, sampling)).*sampling;
}

} // namespace

FrameLayout::FrameLayout(const FrameHeader& header)
    : width{header.width},
      height{header.height},
      components{layOut(header.components)},
      horizontalSampling{largest(components, &ComponentLayout::horizontalSampling)},
      verticalSampling{largest(components, &ComponentLayout::verticalSampling)},
      unitsAcross{divideUp(width, horizontalSampling * kBlockSide)},
      unitsDown{divideUp(height, verticalSampling * kBlockSide)} {
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
