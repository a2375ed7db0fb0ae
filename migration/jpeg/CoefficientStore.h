#pragma once

#include "migration/jpeg/InverseDct.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace VORN::Migration::JPEG {

/// The coefficients of one component, which progressive scans fill in bit by bit.
///
/// Blocks are numbered row by row, in the order of a scan with this component alone (ITU-T T.81,
/// clause A.2.2). Every block has its DC coefficient from the start. The AC coefficients of a block
/// take memory only once one of them is set, so that memory grows with the data of a file. They are
/// kept in pieces of consecutive blocks, which can be freed one by one.
class CoefficientStore {
public:
    /// A store for `blocks` blocks, with all coefficients 0.
    explicit CoefficientStore(std::size_t blocks);

    std::size_t blocks() const { return masks_.size(); }

    /// The DC coefficient of a block.
    std::int16_t& dc(std::size_t block) { return dc_[block]; }

    /// Which AC coefficients of a block have been set: bit k stands for the zigzag number k, 1 to
    /// 63.
    std::uint64_t mask(std::size_t block) const { return masks_[block]; }
    /// The AC coefficients of a block, by their `kZigzagPlaces`; the DC coefficient's place is not
    /// used.
    ///
    /// If the block's mask is 0, this makes them, all 0. Then one of them must be set and
    /// `addToMask` be called for it before the next call.
    CoefficientBlock& ac(std::size_t block) {
        return masks_[block] == 0 ? makeAc(block) : pieces_[block / kPieceBlocks][places_[block]];
    }
    /// Notes that the AC coefficients with a bit in `mask` are set in a block.
    void addToMask(std::size_t block, std::uint64_t mask) {
        masks_[block] |= mask;
        groupMasks_[block / kGroupBlocks] |= mask;
    }

    /// The first block from `begin` up to, but not including, `end` that has a coefficient of
    /// `band` set; `end` if there is none.
    ///
    /// Groups of 64 blocks are skipped at once. An end-of-band run of 2 bytes may span 32767
    /// blocks, and a file may have millions of such runs: 20 MB of them take 1.8 s.
    std::size_t find(std::uint64_t band, std::size_t begin, std::size_t end) const;

    /// Frees AC coefficients of blocks before `block`; none of these may be used any more.
    void releaseBefore(std::size_t block);

private:
    static constexpr std::size_t kGroupBlocks = 64;
    // 256 KB a piece: large enough that freed memory goes back to the system at once. Only the part
    // of a piece that is used takes memory.
    static constexpr std::size_t kPieceBlocks = 2048;

    CoefficientBlock& makeAc(std::size_t block);

    std::vector<std::int16_t> dc_;          // by block
    std::vector<std::uint64_t> masks_;      // by block
    std::vector<std::uint64_t> groupMasks_; // the bits that any mask of a group has
    std::vector<std::uint16_t> places_; // by block: its place in its piece, if its mask is not 0
    std::vector<std::vector<CoefficientBlock>> pieces_; // in the order in which blocks were made
    std::size_t firstPiece_ = 0;                        // the first that has not been given back
};

} // namespace VORN::Migration::JPEG
