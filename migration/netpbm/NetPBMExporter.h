#pragma once

#include "migration/DataExporter.h"

namespace VORN::Migration {

/// Writes binary NetPBM: one channel as a bitmap (P4, 1-bit samples) or a grey map (P5), three as a
/// pixel map (P6), with samples of up to 16 bits.
///
/// In the buffer a sample takes whole bytes: one for up to 8 bits, else two, which are written as
/// they stand. Samples wider than 16 bits are a `FormatException`, other channel counts a
/// `SupportException`, a buffer smaller than the picture a `SpaceException`; then nothing is
/// written.
class NetPBMExporter : public DataExporter {
public:
    void exportImage(const Buffer& buffer, const Metadata& metadata) override;
};

} // namespace VORN::Migration
