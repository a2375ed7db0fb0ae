#pragma once

#include "migration/jpeg/FrameLayout.h"
#include "migration/jpeg/InverseDct.h"

#include <cstdint>
#include <span>
#include <vector>

namespace VORN::Migration::JPEG {

/// The coefficients of a whole frame, which progressive scans fill in bit by bit.
///
/// Memory is taken and given back by rows of MCUs. The layout is borrowed and must outlive it.
class CoefficientStore {
public:
    /// A row of blocks of one component.
    struct Row {
        std::span<CoefficientBlock> blocks; // as many as `paddedBlocksAcross`
        /// Bit k of a block: the AC coefficient with the zigzag number k has been set.
        std::span<std::uint64_t> masks;
    };

    explicit CoefficientStore(const FrameLayout& layout);

    /// Makes a row of MCUs ready, with all coefficients 0, unless it has been before.
    void provide(std::uint32_t unitRow);
    void release(std::uint32_t unitRow) { unitRows_[unitRow] = {}; }

    /// `blockRow` counts rows of blocks in the whole component; its MCUs must be ready.
    Row row(std::size_t component, std::uint32_t blockRow);

private:
    struct UnitRow {
        std::vector<CoefficientBlock> blocks; // component after component, row after row
        std::vector<std::uint64_t> masks;     // in the same order
    };

    const FrameLayout* layout_;
    std::vector<std::size_t> offsets_; // by component: its first block in a row of MCUs
    std::size_t unitRowBlocks_ = 0;
    std::vector<UnitRow> unitRows_;
};

} // namespace VORN::Migration::JPEG
