#include "migration/jpeg/ProgressiveDCTMode.h"

#include "core/Exception.h"
#include "migration/jpeg/BandReader.h"
#include "migration/jpeg/PictureWriter.h"

#include <algorithm>

namespace VORN::Migration::JPEG {

namespace {

constexpr unsigned kMostLowBit = 13; // of successive approximation (ITU-T T.81, table B.3)

Band bandOf(const ScanHeader& header) {
    return {.start = header.spectralStart,
            .end = header.spectralEnd,
            .lowBit = header.approximationLow};
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
    BandReader reader{bandOf(header), tables.acTable(header.components[0].acTable), store};
    for (std::size_t block = 0; block < store.blocks();)
        block += reader.readFirst(bits, block);
}

void ProgressiveDCTMode::refineAc(const ScanHeader& header, const Tables& tables,
                                  ByteUnstuffer& bits) {
    CoefficientStore& store = stores_[componentOf(header.components[0])];
    BandReader reader{bandOf(header), tables.acTable(header.components[0].acTable), store};
    for (std::size_t block = 0; block < store.blocks();) {
        const std::size_t end = std::min(block + reader.refine(bits, block), store.blocks());
        reader.refineRun(bits, block + 1, end);
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
