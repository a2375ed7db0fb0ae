#pragma once

#include "migration/DataExporter.h"

namespace VORN::Migration {

/// Writes PNG pictures: grey, RGB or RGBA, neither compressed nor filtered nor interlaced.
class PNGExporter : public DataExporter {
public:
    /// Lines must have no padding; samples are written as they are, so that 16-bit ones must be big
    /// endian. The file is written piece by piece, so that memory does not grow with the picture.
    ///
    /// A picture that cannot be written is a `SupportException`, too small a buffer a
    /// `SpaceException`, a picture too large for one chunk a `BoundException`. In these cases only
    /// the signature is written.
    void exportImage(const Buffer& buffer, const Metadata& metadata) override;
};

} // namespace VORN::Migration
