#pragma once

#include "migration/jpeg/InverseDct.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace VORN::Migration::JPEG {

/// The coefficients of one component, which progressive scans fill in bit by bit.
///
/// Blocks are numbered row after row, as the scans of a component alone go through them (ITU-T
/// T.81, clause A.2.2). Each has its DC coefficient from the start; the AC coefficients of a block
/// take memory once one of them is set, so that a file pays with data for what it takes. They lie
/// in pieces of consecutive blocks, each of which can be given back by itself.
class CoefficientStore {
public:
    /// All coefficients are 0.
    explicit CoefficientStore(std::size_t blocks);

    std::size_t blocks() const { return masks_.size(); }

    /// The DC coefficient of a block.
    std::int16_t& dc(std::size_t block) { return dc_[block]; }

    /// Bit k: the AC coefficient with the zigzag number k, 1 to 63, has been set.
    std::uint64_t mask(std::size_t block) const { return masks_[block]; }
    /// The AC coefficients of a block, by their `kZigzagPlaces`; the place of the DC coefficient is
    /// not used. Those of a block whose mask is 0 are made, all 0: one of them must then be set and
    /// be made known by `addToMask`.
    CoefficientBlock& ac(std::size_t block) {
        return masks_[block] == 0 ? makeAc(block) : pieces_[block / kPieceBlocks][places_[block]];
    }
    /// Makes known that AC coefficients of a block are set.
    void addToMask(std::size_t block, std::uint64_t mask) {
        masks_[block] |= mask;
        groupMasks_[block / kGroupBlocks] |= mask;
    }

    /// The first block, from `begin` up to `end`, whose mask has a bit of `band`; else `end`.
    ///
    /// Groups of blocks are passed over at once, as an end-of-band run of 2 bytes may span 32767
    /// blocks and a file may have such runs by the million: 20 MB of them take 1.8 s.
    std::size_t find(std::uint64_t band, std::size_t begin, std::size_t end) const;

    /// Gives back AC coefficients of blocks before `block`, none of which is needed any more.
    void releaseBefore(std::size_t block);

private:
    static constexpr std::size_t kGroupBlocks = 64;
    // A piece of 256 KB, of which only what has been set is ever touched, is large enough for the
    // system to have it back at once.
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
