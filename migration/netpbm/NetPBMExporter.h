#pragma once

#include "migration/DataExporter.h"

namespace VORN::Migration {

/// Writes binary NetPBM: one channel as a bitmap (P4, 1-bit samples) or a grey map (P5), three as a
/// pixel map (P6), with samples of up to 16 bits.
///
/// In the buffer a sample takes one byte for up to 8 bits, and else two, which are written in the
/// order in which they stand. Samples of more than 16 bits are a `FormatException`, samples of 0
/// bits and other numbers of channels a `SupportException`, and a buffer smaller than the picture
/// is a `SpaceException`. In these cases nothing is written.
class NetPBMExporter : public DataExporter {
public:
    void exportImage(const Buffer& buffer, const Metadata& metadata) override;
};

} // namespace VORN::Migration
