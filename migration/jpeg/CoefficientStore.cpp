#include "migration/jpeg/CoefficientStore.h"

namespace VORN::Migration::JPEG {

CoefficientStore::CoefficientStore(const FrameLayout& layout)
    : layout_{&layout},
      unitRows_(layout.unitsDown) {
    for (const ComponentLayout& component : layout.components) {
        offsets_.push_back(unitRowBlocks_);
        unitRowBlocks_ += std::size_t{component.paddedBlocksAcross} * component.verticalSampling;
    }
}

void CoefficientStore::provide(std::uint32_t unitRow) {
    UnitRow& row = unitRows_[unitRow];
    row.blocks.resize(unitRowBlocks_);
    row.masks.resize(unitRowBlocks_);
}

CoefficientStore::Row CoefficientStore::row(std::size_t component, std::uint32_t blockRow) {
    const ComponentLayout& layout = layout_->components[component];
    const std::size_t count = layout.paddedBlocksAcross;
    const std::size_t first = offsets_[component] + blockRow % layout.verticalSampling * count;
    UnitRow& unitRow = unitRows_[blockRow / layout.verticalSampling];
    return {.blocks = std::span{unitRow.blocks}.subspan(first, count),
            .masks = std::span{unitRow.masks}.subspan(first, count)};
}

} // namespace VORN::Migration::JPEG
