#include "migration/jpeg/BandReader.h"

#include <bit>

namespace VORN::Migration::JPEG {

namespace {

/// The number of blocks, this one included, that hold nothing more in this scan; `run` is 0 to 14.
unsigned readEndOfBandRun(unsigned run, ByteUnstuffer& bits) {
    return (1U << run) + bits.take(run);
}

/// Goes over a band, adding one bit to the coefficients that are set already (clause G.1.2.3).
class BandRefiner {
public:
    /// `mask` tells the coefficients that are set; `block` may be null where there are none.
    BandRefiner(const Band& band, ByteUnstuffer& bits, CoefficientBlock* block, std::uint64_t mask)
        : bits_{&bits},
          block_{block},
          step_{1 << band.lowBit},
          k_{band.start},
          end_{band.end},
          pending_{mask & band.mask()} {}

    /// Refines up to the first coefficient that is not set behind `zeros` such ones, which becomes
    /// the present one; the end of the band stops it.
    void skipZeros(unsigned zeros) {
        while (pending_ != 0) {
            const auto next = static_cast<unsigned>(std::countr_zero(pending_));
            if (next - k_ > zeros)
                break;
            zeros -= next - k_;
            refine(next);
        }
        k_ += zeros;
    }
    void refineRest() {
        while (pending_ != 0)
            refine(static_cast<unsigned>(std::countr_zero(pending_)));
    }

    bool isAtEnd() const { return k_ > end_; }
    unsigned present() const { return k_; }
    void next() { ++k_; }

private:
    void refine(unsigned k) {
        std::int16_t& coefficient = (*block_)[kZigzagPlaces[k]];
        const int step = coefficient < 0 ? -step_ : step_;
        // A bit that is set stays so, as it may come twice. It is as good as random, so that no
        // branch may hang on it.
        const bool isClear = (coefficient & step_) == 0;
        const int mask = -static_cast<int>(bits_->takeBit() & isClear);
        coefficient = static_cast<std::int16_t>(coefficient + (step & mask));
        pending_ &= pending_ - 1;
        k_ = k + 1;
    }

    ByteUnstuffer* bits_;
    CoefficientBlock* block_;
    int step_;
    unsigned k_; // zigzag number of the present coefficient
    unsigned end_;
    std::uint64_t pending_; // coefficients from `k_` on that still want their bit
};

} // namespace

// Each function works on a copy of the stream, which stays in registers.

unsigned BandReader::readFirst(ByteUnstuffer& stream, std::size_t index) {
    const Band band = band_;
    const HuffmanTable& table = *table_;
    ByteUnstuffer bits = stream;
    CoefficientBlock* block = nullptr;
    std::uint64_t mask = 0;
    unsigned doneBlocks = 1;
    unsigned k = band.start;
    while (k <= band.end) {
        const auto [run, value] = table.takeCoefficient(bits);
        if (value == 0 && run < 15) {
            doneBlocks = readEndOfBandRun(run, bits);
            break;
        }
        k += run;
        if (k > band.end)
            bits.refuse("Coefficient beyond the end of its band. ");
        // Bits that no coefficient has are cut off.
        const auto coefficient = static_cast<std::int16_t>(value << band.lowBit);
        if (coefficient != 0) {
            if (block == nullptr)
                block = &store_->ac(index);
            (*block)[kZigzagPlaces[k]] = coefficient;
            mask |= std::uint64_t{1} << k;
        }
        ++k;
    }
    bits.requireData();
    store_->addToMask(index, mask);
    stream = bits;
    return doneBlocks;
}

unsigned BandReader::refine(ByteUnstuffer& stream, std::size_t index) {
    ByteUnstuffer bits = stream;
    std::uint64_t mask = store_->mask(index);
    CoefficientBlock* block = mask == 0 ? nullptr : &store_->ac(index);
    BandRefiner refiner{band_, bits, block, mask};
    unsigned doneBlocks = 1;
    while (!refiner.isAtEnd()) {
        const std::uint8_t symbol = table_->takeSymbol(bits);
        const unsigned run = symbol >> 4;
        const unsigned size = symbol & 15U;
        if (size == 0 && run < 15) {
            doneBlocks = readEndOfBandRun(run, bits);
            refiner.refineRest();
            break;
        }
        if (size > 1)
            bits.refuse("More than 1 AC extend bits encountered. ");
        const bool isPositive = size == 1 && bits.takeBit();
        refiner.skipZeros(run);
        if (refiner.isAtEnd())
            bits.refuse("Coefficient beyond the end of its band. ");
        if (size == 1) {
            if (block == nullptr)
                block = &store_->ac(index);
            const unsigned k = refiner.present();
            const int value = 1 << band_.lowBit;
            (*block)[kZigzagPlaces[k]] = static_cast<std::int16_t>(isPositive ? value : -value);
            mask |= std::uint64_t{1} << k;
        }
        refiner.next();
    }
    bits.requireData();
    store_->addToMask(index, mask);
    stream = bits;
    return doneBlocks;
}

void BandReader::refineRun(ByteUnstuffer& stream, std::size_t begin, std::size_t end) {
    const std::uint64_t mask = band_.mask();
    for (std::size_t index = store_->find(mask, begin, end); index != end;
         index = store_->find(mask, index + 1, end)) {
        ByteUnstuffer bits = stream;
        BandRefiner{band_, bits, &store_->ac(index), store_->mask(index)}.refineRest();
        bits.requireData();
        stream = bits;
    }
}

} // namespace VORN::Migration::JPEG
