#pragma once

#include "migration/DataImporter.h"

namespace VORN::Migration {

/// Reads JPEG pictures (ITU-T T.81): Huffman-coded baseline and progressive ones with 8-bit
/// samples.
///
/// Three components become 3 channels of the format "RGBA", one becomes 1 channel of "INTENSITY",
/// always of 8 bits. A malformed file is a `FormatException` of "jpeg", a feature that is not
/// implemented a `SupportException`. The stream is read to its end. Memory grows with the data that
/// arrives, whatever size the file claims.
class JPEGImporter : public DataImporter {
public:
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override;
};

} // namespace VORN::Migration
