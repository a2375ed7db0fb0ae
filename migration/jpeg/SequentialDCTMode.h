#pragma once

#include "migration/jpeg/BlockReader.h"

namespace VORN::Migration::JPEG {

/// Baseline sequential decoding (ITU-T T.81, annex F): one interleaved scan holds everything.
///
/// The picture is written while the blocks arrive, so that only one row of MCUs is held.
class SequentialDCTMode : public BlockReader::Mode {
public:
    SequentialDCTMode(const FrameHeader& header, DynamicBuffer& picture) : Mode{header, picture} {}

    void readScan(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits) override;
    void finish() override { requireScans(); }

private:
    void checkScan(const ScanHeader& header) const;
};

} // namespace VORN::Migration::JPEG
