#pragma once

#include "migration/jpeg/BlockReader.h"
#include "migration/jpeg/CoefficientStore.h"

#include <array>
#include <cstdint>
#include <vector>

namespace VORN::Migration::JPEG {

class PictureWriter;

/// Progressive decoding (ITU-T T.81, annex G): scans refine the coefficients step by step.
///
/// Each coefficient must go through its steps in order and once, as clause G.1.1.1 has it; so a
/// file cannot have the same blocks gone through without end.
class ProgressiveDCTMode : public BlockReader::Mode {
public:
    ProgressiveDCTMode(const FrameHeader& header, DynamicBuffer& picture);

    void readScan(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits) override;
    void finish() override;

private:
    /// By zigzag number the lowest bit that is known so far; `kUnknown` before the first scan.
    using Progress = std::array<std::uint8_t, 64>;
    static constexpr std::uint8_t kUnknown = 255;

    void checkScan(const ScanHeader& header) const;
    std::size_t componentOf(const ScanHeader::ScanComponent& scanComponent) const;
    void advance(std::size_t component, const ScanHeader& header);

    void readFirstDc(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits);
    void refineDc(const ScanHeader& header, ByteUnstuffer& bits);
    void readFirstAc(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits);
    void refineAc(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits);
    void transformUnitRow(std::size_t component, std::uint32_t unitRow, PictureWriter& writer);

    CoefficientStore store_;
    std::vector<Progress> progress_; // by component
};

} // namespace VORN::Migration::JPEG
