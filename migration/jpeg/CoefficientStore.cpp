#include "migration/jpeg/CoefficientStore.h"

#include <algorithm>

namespace VORN::Migration::JPEG {

namespace {

constexpr std::size_t divideUp(std::size_t dividend, std::size_t divisor) {
    return (dividend + divisor - 1) / divisor;
}

} // namespace

CoefficientStore::CoefficientStore(std::size_t blocks)
    : dc_(blocks),
      masks_(blocks),
      groupMasks_(divideUp(blocks, kGroupBlocks)),
      places_(blocks),
      pieces_(divideUp(blocks, kPieceBlocks)) {}

CoefficientBlock& CoefficientStore::makeAc(std::size_t block) {
    const std::size_t number = block / kPieceBlocks;
    std::vector<CoefficientBlock>& piece = pieces_[number];
    if (piece.empty())
        piece.reserve(std::min(kPieceBlocks, blocks() - number * kPieceBlocks));
    places_[block] = static_cast<std::uint16_t>(piece.size());
    return piece.emplace_back();
}

std::size_t CoefficientStore::find(std::uint64_t band, std::size_t begin, std::size_t end) const {
    const auto firstOf = [band](const std::vector<std::uint64_t>& masks, std::size_t from,
                                std::size_t to) {
        while (from < to && (masks[from] & band) == 0)
            ++from;
        return from;
    };
    const std::size_t groups = divideUp(end, kGroupBlocks);
    for (std::size_t block = begin; block < end;) {
        const std::size_t group = firstOf(groupMasks_, block / kGroupBlocks, groups);
        const std::size_t groupEnd = std::min(end, (group + 1) * kGroupBlocks);
        block = firstOf(masks_, std::max(block, group * kGroupBlocks), groupEnd);
        if (block < groupEnd)
            return block;
    }
    return end;
}

void CoefficientStore::releaseBefore(std::size_t block) {
    for (; firstPiece_ < block / kPieceBlocks; ++firstPiece_)
        pieces_[firstPiece_] = std::vector<CoefficientBlock>{};
}

} // namespace VORN::Migration::JPEG
