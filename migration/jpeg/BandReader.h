#pragma once

#include "migration/jpeg/ByteUnstuffer.h"
#include "migration/jpeg/CoefficientStore.h"
#include "migration/jpeg/HuffmanTable.h"

#include <cstddef>
#include <cstdint>

namespace VORN::Migration::JPEG {

/// Which AC coefficients a scan holds, and down to which bit (ITU-T T.81, clause G.1.1.1).
struct Band {
    unsigned start; // zigzag numbers, both included, 1 to 63
    unsigned end;
    unsigned lowBit; // 0 to 13

    /// A bit for each coefficient of the band: bit k for the one with the zigzag number k.
    std::uint64_t mask() const {
        return ~std::uint64_t{0} >> (63 - end) & ~std::uint64_t{0} << start;
    }
};

/// Reads one band of a component's blocks, as a progressive AC scan holds it (ITU-T T.81, clauses
/// G.1.2.2 and G.1.2.3).
///
/// Table and store are borrowed and must outlive the reader. Data that no encoder makes is a
/// `FormatException`.
///
/// A scan may say of a whole run of blocks that they hold nothing more: an end-of-band run.
/// `readFirst` and `refine` return the length of the run that begins in their block, or 1 if there
/// is none; the run may claim to reach beyond the last block.
class BandReader {
public:
    /// A reader of `band` with the AC table of the scan, for the component of `store`.
    BandReader(const Band& band, const HuffmanTable& table, CoefficientStore& store)
        : band_{band},
          table_{&table},
          store_{&store} {}

    /// Reads a block of a first scan: sets the coefficients that the scan has. The other blocks of
    /// an end-of-band run stay as they are.
    unsigned readFirst(ByteUnstuffer& stream, std::size_t block);
    /// Reads a block of a refining scan: adds a bit to the coefficients that are set, and sets more
    /// of them. For the other blocks of an end-of-band run call `refineRun`.
    unsigned refine(ByteUnstuffer& stream, std::size_t block);
    /// Adds a bit to every coefficient that is set in the blocks from `begin` up to, but not
    /// including, `end`. Takes time for those coefficients only, not for each block.
    void refineRun(ByteUnstuffer& stream, std::size_t begin, std::size_t end);

private:
    Band band_;
    const HuffmanTable* table_;
    CoefficientStore* store_;
};

} // namespace VORN::Migration::JPEG
