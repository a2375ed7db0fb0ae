#pragma once

#include "migration/jpeg/BlockReader.h"
#include "migration/jpeg/CoefficientStore.h"

#include <vector>

namespace VORN::Migration::JPEG {

class PictureWriter;

/// Progressive decoding (ITU-T T.81, annex G): each scan adds coefficients, or bits of them.
///
/// Scans are accepted in any order and any number: a first scan sets coefficients anew, a refining
/// scan adds its bit to what is there. Coefficients that the file does not have stay 0.
///
/// A small file must not cost much. So memory is taken only if there is enough data left for a DC
/// scan, which needs a bit for each block and without which there is no picture. And a scan takes
/// time for the data that it has, not for the number of blocks that it spans.
class ProgressiveDCTMode : public BlockReader::Mode {
public:
    /// As `Mode`.
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
