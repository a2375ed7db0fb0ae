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

    /// Bit k: the zigzag number k is within.
    std::uint64_t mask() const {
        return ~std::uint64_t{0} >> (63 - end) & ~std::uint64_t{0} << start;
    }
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
                                         ByteUnstuffer& stream, CoefficientStore& store,
                                         std::size_t index) {
    ByteUnstuffer bits = stream;
    CoefficientBlock* block = nullptr;
    std::uint64_t mask = 0;
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
        // Bits that no coefficient has are cut off.
        const auto coefficient = static_cast<std::int16_t>(value << band.lowBit);
        if (coefficient != 0) {
            if (block == nullptr)
                block = &store.ac(index);
            (*block)[kZigzagPlaces[k]] = coefficient;
            mask |= std::uint64_t{1} << k;
        }
        ++k;
    }
    bits.requireData();
    store.addToMask(index, mask);
    stream = bits;
    return endOfBandRun;
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

/// Refines a block and sets further coefficients. Returns as `readFirstBand` does.
[[gnu::noinline]] unsigned refineBand(const Band& band, const HuffmanTable& table,
                                      ByteUnstuffer& stream, CoefficientStore& store,
                                      std::size_t index) {
    ByteUnstuffer bits = stream;
    std::uint64_t mask = store.mask(index);
    CoefficientBlock* block = mask == 0 ? nullptr : &store.ac(index);
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
            if (block == nullptr)
                block = &store.ac(index);
            const unsigned k = refiner.present();
            const int value = 1 << band.lowBit;
            (*block)[kZigzagPlaces[k]] = static_cast<std::int16_t>(isPositive ? value : -value);
            mask |= std::uint64_t{1} << k;
        }
        refiner.next();
    }
    bits.requireData();
    store.addToMask(index, mask);
    stream = bits;
    return endOfBandRun;
}

/// Refines the blocks from `begin` up to `end`, which are within an end-of-band run.
void refineRun(const Band& band, ByteUnstuffer& stream, CoefficientStore& store, std::size_t begin,
               std::size_t end) {
    const std::uint64_t wanted = band.mask();
    for (std::size_t index = store.find(wanted, begin, end); index != end;
         index = store.find(wanted, index + 1, end)) {
        ByteUnstuffer bits = stream;
        BandRefiner{band, bits, &store.ac(index), store.mask(index)}.refineRest();
        bits.requireData();
        stream = bits;
    }
}

} // namespace

void ProgressiveDCTMode::readScan(const ScanHeader& header, const Tables& tables,
                                  ByteUnstuffer& bits) {
    if (tables.restartInterval != 0)
        throw SupportException{kNoOrigin, "restart interval in progressive JPEG"};
    checkScan(header);
    for (const ScanHeader::ScanComponent& component : header.components)
        keepTransform(componentOf(component), tables);
    if (stores_.empty())
        makeStores(bits);
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
    if (header.approximationHigh != 0 && header.approximationHigh != header.approximationLow + 1)
        refuse("Scan that refines by more than one bit. ");
    // The components of an interleaved scan stand in the order of the frame (clause B.2.3).
    for (std::size_t i = 0; i < header.components.size(); ++i) {
        const bool isInOrder = componentOf(header.components[i]) == i;
        if (header.spectralStart == 0 && !isInOrder)
            refuse("Scan component out of order. ");
    }
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

/// Takes memory for the coefficients, unless all the data that is left cannot hold a DC scan.
void ProgressiveDCTMode::makeStores(const ByteUnstuffer& bits) {
    if (bits.rest().size() < layout().blocks() / 8)
        refuseEnd();
    for (const ComponentLayout& component : layout().components)
        stores_.emplace_back(std::size_t{component.blocksAcross} * component.blocksDown);
}

/// Calls `visit(component, coefficient)` for the DC coefficients of an interleaved scan in their
/// order; those of blocks that only fill up a unit are forgotten.
template <class Visit>
void ProgressiveDCTMode::forEachDc(Visit visit) {
    std::int16_t forgotten = 0;
    const auto visitBlocks = [&](std::size_t i, std::uint32_t column, std::uint32_t row) {
        const ComponentLayout& component = layout().components[i];
        for (std::uint32_t across = 0; across < component.horizontalSampling; ++across) {
            const bool exists =
                column + across < component.blocksAcross && row < component.blocksDown;
            const std::size_t block = std::size_t{row} * component.blocksAcross + column + across;
            visit(i, exists ? stores_[i].dc(block) : forgotten);
        }
    };
    for (std::uint32_t unitRow = 0; unitRow < layout().unitsDown; ++unitRow)
        for (std::uint32_t unit = 0; unit < layout().unitsAcross; ++unit)
            for (std::size_t i = 0; i < stores_.size(); ++i) {
                const ComponentLayout& component = layout().components[i];
                for (std::uint32_t down = 0; down < component.verticalSampling; ++down)
                    visitBlocks(i, unit * component.horizontalSampling,
                                unitRow * component.verticalSampling + down);
            }
    hasDcScan_ = true;
}

void ProgressiveDCTMode::readFirstDc(const ScanHeader& header, const Tables& tables,
                                     ByteUnstuffer& bits) {
    struct Predictor {
        const HuffmanTable* table;
        std::int16_t prediction = 0; // the DC coefficient of the block before
    };
    JPEGVector<Predictor> predictors;
    for (const ScanHeader::ScanComponent& component : header.components)
        predictors.push_back({.table = &tables.dcTable(component.dcTable)});
    forEachDc([&](std::size_t component, std::int16_t& coefficient) {
        Predictor& predictor = predictors[component];
        const int value = predictor.prediction + predictor.table->takeDifference(bits);
        predictor.prediction = static_cast<std::int16_t>(value);
        coefficient = static_cast<std::int16_t>(predictor.prediction << header.approximationLow);
        bits.requireData();
    });
}

void ProgressiveDCTMode::refineDc(const ScanHeader& header, ByteUnstuffer& bits) {
    forEachDc([&](std::size_t, std::int16_t& coefficient) {
        const int bit = bits.takeBit() ? 1 << header.approximationLow : 0;
        coefficient = static_cast<std::int16_t>(coefficient | bit);
        bits.requireData();
    });
}

void ProgressiveDCTMode::readFirstAc(const ScanHeader& header, const Tables& tables,
                                     ByteUnstuffer& bits) {
    CoefficientStore& store = stores_[componentOf(header.components[0])];
    const HuffmanTable& table = tables.acTable(header.components[0].acTable);
    const Band band{header.spectralStart, header.spectralEnd, header.approximationLow};
    for (std::size_t block = 0; block < store.blocks();)
        block += std::max(readFirstBand(band, table, bits, store, block), 1U);
}

void ProgressiveDCTMode::refineAc(const ScanHeader& header, const Tables& tables,
                                  ByteUnstuffer& bits) {
    CoefficientStore& store = stores_[componentOf(header.components[0])];
    const HuffmanTable& table = tables.acTable(header.components[0].acTable);
    const Band band{header.spectralStart, header.spectralEnd, header.approximationLow};
    for (std::size_t block = 0; block < store.blocks();) {
        const unsigned run = std::max(refineBand(band, table, bits, store, block), 1U);
        const std::size_t end = std::min(block + run, store.blocks());
        refineRun(band, bits, store, block + 1, end);
        block = end;
    }
}

void ProgressiveDCTMode::transformUnitRow(std::size_t component, std::uint32_t unitRow,
                                          PictureWriter& writer) {
    const ComponentLayout& geometry = layout().components[component];
    const InverseDct& inverse = transform(component);
    const std::size_t lineBytes = writer.lineBytes(component);
    CoefficientStore& store = stores_[component];
    const std::uint32_t firstRow = unitRow * geometry.verticalSampling;
    const std::uint32_t rows = std::min(geometry.verticalSampling, geometry.blocksDown - firstRow);
    std::size_t block = std::size_t{firstRow} * geometry.blocksAcross;
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t column = 0; column < geometry.blocksAcross; ++column, ++block) {
            std::uint8_t* samples = writer.block(component, column, row);
            if (store.mask(block) == 0) {
                inverse.fill(store.dc(block), samples, lineBytes);
                continue;
            }
            CoefficientBlock& coefficients = store.ac(block);
            coefficients[0] = store.dc(block);
            inverse.transform(coefficients, samples, lineBytes);
        }
    store.releaseBefore(block);
}

void ProgressiveDCTMode::finish() {
    requireScans();
    if (!hasDcScan_)
        refuse("Image without DC scan. ");
    PictureWriter writer{layout(), resizedPicture()};
    for (std::uint32_t unitRow = 0; unitRow < layout().unitsDown; ++unitRow) {
        for (std::size_t i = 0; i < stores_.size(); ++i)
            transformUnitRow(i, unitRow, writer);
        writer.finishUnitRow();
    }
}

} // namespace VORN::Migration::JPEG
