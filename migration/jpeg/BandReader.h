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

    /// Bit k: the coefficient with the zigzag number k belongs to the band.
    std::uint64_t mask() const {
        return ~std::uint64_t{0} >> (63 - end) & ~std::uint64_t{0} << start;
    }
};

/// Reads one band of a component's blocks, as a progressive AC scan holds it (ITU-T T.81, clauses
/// G.1.2.2 and G.1.2.3).
///
/// Table and store are borrowed. The functions return how many blocks, the given one included, the
/// scan is done with: 1, or the length of the end-of-band run that begins there, which may reach
/// beyond the last block. Data that no encoder makes is a `FormatException`.
class BandReader {
public:
    BandReader(const Band& band, const HuffmanTable& table, CoefficientStore& store)
        : band_{band},
          table_{&table},
          store_{&store} {}

    /// Sets the coefficients of a block that the scan has. Those of an end-of-band run stay.
    unsigned readFirst(ByteUnstuffer& stream, std::size_t block);
    /// Adds a bit to the coefficients of a block that are set, and sets further ones. The other
    /// blocks of an end-of-band run want `refineRun`.
    unsigned refine(ByteUnstuffer& stream, std::size_t block);
    /// Adds a bit to the coefficients of the blocks from `begin` up to `end` that are set. Time
    /// follows the number of those coefficients, not that of the blocks.
    void refineRun(ByteUnstuffer& stream, std::size_t begin, std::size_t end);

private:
    Band band_;
    const HuffmanTable* table_;
    CoefficientStore* store_;
};

} // namespace VORN::Migration::JPEG
