#include "migration/jpeg/ProgressiveDCTMode.h"

#include "core/Exception.h"
#include "migration/jpeg/PictureWriter.h"

#include <algorithm>
#include <bit>

namespace VORN::Migration::JPEG {

namespace {

constexpr unsigned kMostLowBit = 13; // of successive approximation (ITU-T T.81, table B.3)

/// Which coefficients an AC scan holds, and down to which bit.
struct Band {
    unsigned start; // zigzag numbers, both included, 1 to 63
    unsigned end;
    unsigned lowBit;
};

/// The number of blocks, this one included, that hold nothing more in this scan; `run` is 0 to 14.
unsigned readEndOfBandRun(unsigned run, ByteUnstuffer& bits) {
    return (1U << run) + bits.take(run);
}

// Decoding a block is kept apart from the loops over the blocks, which would take the registers
// that it needs.

/// Reads the coefficients of a block for the first time (clause G.1.2.2). Returns the length of the
/// end-of-band run that begins here, or 0.
[[gnu::noinline]] unsigned readFirstBand(const Band& band, const HuffmanTable& table,
                                         ByteUnstuffer& stream, CoefficientBlock& block,
                                         std::uint64_t& mask) {
    ByteUnstuffer bits = stream;
    unsigned endOfBandRun = 0;
    unsigned k = band.start;
    while (k <= band.end) {
        const auto [run, value] = table.takeCoefficient(bits);
        if (value == 0 && run < 15) {
            endOfBandRun = readEndOfBandRun(run, bits);
            break;
        }
        k += run;
        if (k > band.end)
            bits.refuse("Coefficient beyond the end of its band. ");
        if (value != 0) {
            block[kZigzagPlaces[k]] = static_cast<std::int16_t>(value << band.lowBit);
            mask |= std::uint64_t{1} << k;
        }
        ++k;
    }
    bits.requireData();
    stream = bits;
    return endOfBandRun;
}

/// Goes over a band, adding one bit to the coefficients that are set already (clause G.1.2.3).
class BandRefiner {
public:
    /// `mask` tells the coefficients that are set; it is not changed.
    BandRefiner(const Band& band, ByteUnstuffer& bits, CoefficientBlock& block, std::uint64_t mask)
        : bits_{&bits},
          block_{&block},
          step_{1 << band.lowBit},
          k_{band.start},
          end_{band.end},
          pending_{mask >> band.start << band.start} {
        pending_ &= ~std::uint64_t{0} >> (63 - band.end);
    }

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
        // The bit is as good as random: no branch may hang on it.
        const int mask = -static_cast<int>(bits_->takeBit());
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

/// Refines a block and sets further coefficients. Returns as `readFirstBand` does.
[[gnu::noinline]] unsigned refineBand(const Band& band, const HuffmanTable& table,
                                      ByteUnstuffer& stream, CoefficientBlock& block,
                                      std::uint64_t& mask) {
    ByteUnstuffer bits = stream;
    BandRefiner refiner{band, bits, block, mask};
    unsigned endOfBandRun = 0;
    while (!refiner.isAtEnd()) {
        const std::uint8_t symbol = table.takeSymbol(bits);
        const unsigned run = symbol >> 4;
        const unsigned size = symbol & 15U;
        if (size == 0 && run < 15) {
            endOfBandRun = readEndOfBandRun(run, bits);
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
            const unsigned k = refiner.present();
            const int value = 1 << band.lowBit;
            block[kZigzagPlaces[k]] = static_cast<std::int16_t>(isPositive ? value : -value);
            mask |= std::uint64_t{1} << k;
        }
        refiner.next();
    }
    bits.requireData();
    stream = bits;
    return endOfBandRun;
}

/// Refines a block that is within an end-of-band run.
void refineWithinRun(const Band& band, ByteUnstuffer& stream, CoefficientBlock& block,
                     std::uint64_t mask) {
    if (mask >> band.start == 0)
        return;
    ByteUnstuffer bits = stream;
    BandRefiner{band, bits, block, mask}.refineRest();
    bits.requireData();
    stream = bits;
}

/// Calls `visit(component, block)` for all blocks of an interleaved scan in their order.
template <class Visit>
void forEachBlock(const FrameLayout& layout, CoefficientStore& store, Visit visit) {
    for (std::uint32_t unitRow = 0; unitRow < layout.unitsDown; ++unitRow) {
        store.provide(unitRow);
        for (std::uint32_t column = 0; column < layout.unitsAcross; ++column)
            for (std::size_t i = 0; i < layout.components.size(); ++i) {
                const ComponentLayout& component = layout.components[i];
                for (std::uint32_t v = 0; v < component.verticalSampling; ++v) {
                    const std::uint32_t blockRow = unitRow * component.verticalSampling + v;
                    const auto blocks =
                        store.row(i, blockRow)
                            .blocks.subspan(std::size_t{column} * component.horizontalSampling,
                                            component.horizontalSampling);
                    for (CoefficientBlock& block : blocks)
                        visit(i, block);
                }
            }
    }
}

} // namespace

ProgressiveDCTMode::ProgressiveDCTMode(const FrameHeader& header, DynamicBuffer& picture)
    : Mode{header, picture},
      store_{layout()},
      progress_(layout().components.size()) {
    for (Progress& progress : progress_)
        progress.fill(kUnknown);
}

void ProgressiveDCTMode::readScan(const ScanHeader& header, const Tables& tables,
                                  ByteUnstuffer& bits) {
    if (tables.restartInterval != 0)
        throw SupportException{kNoOrigin, "restart interval in progressive JPEG"};
    checkScan(header);
    for (const ScanHeader::ScanComponent& scanComponent : header.components) {
        const std::size_t component = componentOf(scanComponent);
        keepTransform(component, tables);
        advance(component, header);
    }
    const bool isFirst = header.approximationHigh == 0;
    if (header.spectralStart != 0 && isFirst)
        readFirstAc(header, tables, bits);
    else if (header.spectralStart != 0)
        refineAc(header, tables, bits);
    else if (isFirst)
        readFirstDc(header, tables, bits);
    else
        refineDc(header, bits);
}

void ProgressiveDCTMode::checkScan(const ScanHeader& header) const {
    if (header.spectralStart == 0) {
        if (header.spectralEnd != 0)
            refuse("DC component of progressive JPEG not alone. ");
        if (header.components.size() != layout().components.size())
            refuse("All components must be specified for DC in single scan of progressive JPEG. ");
    } else if (header.components.size() != 1) {
        refuse("Only one component may be specified per AC scan of progressive JPEG. ");
    }
    if (header.spectralEnd > 63 || header.spectralStart > header.spectralEnd)
        refuse("Spectral selection out of range. ");
    if (header.approximationLow > kMostLowBit)
        refuse("Successive approximation out of range. ");
    // The components of an interleaved scan stand in the order of the frame (clause B.2.3).
    for (std::size_t i = 0; i < header.components.size(); ++i)
        if (header.spectralStart == 0 && componentOf(header.components[i]) != i)
            refuse("Scan component out of order. ");
}

/// The index of the frame component that a scan names.
std::size_t ProgressiveDCTMode::componentOf(const ScanHeader::ScanComponent& scanComponent) const {
    const JPEGVector<ComponentLayout>& components = layout().components;
    const auto found =
        std::ranges::find(components, scanComponent.selector, &ComponentLayout::identifier);
    if (found == components.end())
        refuse("Scan component that the frame does not have. ");
    return static_cast<std::size_t>(found - components.begin());
}

/// Records what a scan makes known, which must continue what is known already (clause G.1.1.1).
void ProgressiveDCTMode::advance(std::size_t component, const ScanHeader& header) {
    Progress& progress = progress_[component];
    if (header.spectralStart != 0 && progress[0] == kUnknown)
        refuse("AC scan before the DC scan of its component. ");
    const bool isFirst = header.approximationHigh == 0;
    if (!isFirst && header.approximationHigh != header.approximationLow + 1)
        refuse("Scan that refines by more than one bit. ");
    for (unsigned k = header.spectralStart; k <= header.spectralEnd; ++k) {
        if (progress[k] != (isFirst ? kUnknown : header.approximationHigh))
            refuse("Scan that does not continue the scans before it. ");
        progress[k] = header.approximationLow;
    }
}

void ProgressiveDCTMode::readFirstDc(const ScanHeader& header, const Tables& tables,
                                     ByteUnstuffer& bits) {
    struct Predictor {
        const HuffmanTable* table;
        std::int16_t prediction = 0; // the DC coefficient of the block before
    };
    JPEGVector<Predictor> predictors;
    for (const ScanHeader::ScanComponent& component : header.components)
        predictors.push_back({.table = &require(tables.dc, component.dcTable)});
    forEachBlock(layout(), store_, [&](std::size_t component, CoefficientBlock& block) {
        Predictor& predictor = predictors[component];
        const int value = predictor.prediction + predictor.table->takeDifference(bits);
        predictor.prediction = static_cast<std::int16_t>(value);
        block[0] = static_cast<std::int16_t>(predictor.prediction << header.approximationLow);
        bits.requireData();
    });
}

void ProgressiveDCTMode::refineDc(const ScanHeader& header, ByteUnstuffer& bits) {
    forEachBlock(layout(), store_, [&](std::size_t, CoefficientBlock& block) {
        const int bit = bits.takeBit() ? 1 << header.approximationLow : 0;
        block[0] = static_cast<std::int16_t>(block[0] | bit);
        bits.requireData();
    });
}

void ProgressiveDCTMode::readFirstAc(const ScanHeader& header, const Tables& tables,
                                     ByteUnstuffer& bits) {
    const std::size_t index = componentOf(header.components[0]);
    const ComponentLayout& component = layout().components[index];
    const HuffmanTable& table = require(tables.ac, header.components[0].acTable);
    const Band band{header.spectralStart, header.spectralEnd, header.approximationLow};
    unsigned endOfBandRun = 0; // blocks that hold nothing, from the present one on
    for (std::uint32_t row = 0; row < component.blocksDown; ++row) {
        const CoefficientStore::Row blocks = store_.row(index, row);
        for (std::uint32_t column = 0; column < component.blocksAcross;) {
            if (endOfBandRun == 0)
                endOfBandRun =
                    readFirstBand(band, table, bits, blocks.blocks[column], blocks.masks[column]);
            // A run is passed over at once, so that a scan costs no more than its data.
            const unsigned passed =
                std::clamp(endOfBandRun, 1U, unsigned{component.blocksAcross - column});
            column += passed;
            endOfBandRun -= std::min(endOfBandRun, passed);
        }
    }
}

void ProgressiveDCTMode::refineAc(const ScanHeader& header, const Tables& tables,
                                  ByteUnstuffer& bits) {
    const std::size_t index = componentOf(header.components[0]);
    const ComponentLayout& component = layout().components[index];
    const HuffmanTable& table = require(tables.ac, header.components[0].acTable);
    const Band band{header.spectralStart, header.spectralEnd, header.approximationLow};
    unsigned endOfBandRun = 0; // blocks that get no further coefficients, as above
    for (std::uint32_t row = 0; row < component.blocksDown; ++row) {
        const CoefficientStore::Row blocks = store_.row(index, row);
        for (std::uint32_t column = 0; column < component.blocksAcross; ++column) {
            if (endOfBandRun == 0)
                endOfBandRun =
                    refineBand(band, table, bits, blocks.blocks[column], blocks.masks[column]);
            else
                refineWithinRun(band, bits, blocks.blocks[column], blocks.masks[column]);
            endOfBandRun -= std::min(endOfBandRun, 1U);
        }
    }
}

void ProgressiveDCTMode::transformUnitRow(std::size_t component, std::uint32_t unitRow,
                                          PictureWriter& writer) {
    const ComponentLayout& geometry = layout().components[component];
    for (std::uint32_t v = 0; v < geometry.verticalSampling; ++v) {
        const CoefficientStore::Row row =
            store_.row(component, unitRow * geometry.verticalSampling + v);
        for (std::uint32_t column = 0; column < geometry.blocksAcross; ++column) {
            CoefficientBlock& block = row.blocks[column];
            std::uint8_t* samples = writer.block(component, column, v);
            if (row.masks[column] == 0)
                transform(component).fill(block[0], samples, writer.lineBytes(component));
            else
                transform(component).transform(block, samples, writer.lineBytes(component));
        }
    }
}

void ProgressiveDCTMode::finish() {
    for (const Progress& progress : progress_)
        if (progress[0] == kUnknown)
            refuse("Component without any scan. ");
    PictureWriter writer{layout(), resizedPicture()};
    for (std::uint32_t unitRow = 0; unitRow < layout().unitsDown; ++unitRow) {
        for (std::size_t i = 0; i < layout().components.size(); ++i)
            transformUnitRow(i, unitRow, writer);
        store_.release(unitRow);
        writer.finishUnitRow();
    }
}

} // namespace VORN::Migration::JPEG
