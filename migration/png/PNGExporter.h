#pragma once

#include "migration/DataExporter.h"

namespace VORN::Migration {

/// Writes PNG pictures: grey, RGB or RGBA, neither compressed nor filtered nor interlaced.
class PNGExporter : public DataExporter {
public:
    /// Lines are taken tightly packed, samples as they are, so that 16-bit ones must be big endian.
    /// The file is written as it is made: memory does not grow with the picture.
    ///
    /// What cannot be written is a `SupportException`, a buffer that is too small a
    /// `SpaceException`, and a picture too large for one chunk a `BoundException`; the signature is
    /// written all the same.
    void exportImage(const Buffer& buffer, const Metadata& metadata) override;
};

} // namespace VORN::Migration
