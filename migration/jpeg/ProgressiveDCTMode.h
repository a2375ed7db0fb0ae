#pragma once

#include "migration/jpeg/BlockReader.h"
#include "migration/jpeg/CoefficientStore.h"

#include <vector>

namespace VORN::Migration::JPEG {

class PictureWriter;

/// Progressive decoding (ITU-T T.81, annex G): scans make the coefficients known step by step.
///
/// Scans are taken in any order and any number of times: a first scan sets coefficients anew, a
/// refinement adds its bit to whatever is known by then. What is not in the file stays 0. So that a
/// file pays for what it takes, memory waits until there is enough data for a DC scan, which needs
/// a bit for each block and without which there is no picture; and the time that a scan takes
/// follows its length, not the number of blocks that it spans.
class ProgressiveDCTMode : public BlockReader::Mode {
public:
    ProgressiveDCTMode(const FrameHeader& header, DynamicBuffer& picture) : Mode{header, picture} {}

    void readScan(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits) override;
    void finish() override;

private:
    void checkScan(const ScanHeader& header) const;
    std::size_t componentOf(const ScanHeader::ScanComponent& scanComponent) const;
    void makeStores(const ByteUnstuffer& bits);

    template <class Visit>
    void forEachDc(Visit visit);
    void readFirstDc(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits);
    void refineDc(const ScanHeader& header, ByteUnstuffer& bits);
    void readFirstAc(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits);
    void refineAc(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits);
    void transformUnitRow(std::size_t component, std::uint32_t unitRow, PictureWriter& writer);

    std::vector<CoefficientStore> stores_; // by component; none before the first scan
    bool hasDcScan_ = false;
};

} // namespace VORN::Migration::JPEG
