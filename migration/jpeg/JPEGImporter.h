#pragma once

#include "migration/DataImporter.h"

namespace VORN::Migration {

/// Reads JPEG pictures (ITU-T T.81): Huffman-coded baseline and progressive ones with 8-bit
/// samples.
///
/// Three components become 3 channels "RGBA", one becomes 1 channel "INTENSITY", all of 8 bits.
/// Malformed files are a `FormatException` "jpeg", what is not supported a `SupportException`. The
/// stream is read to its end. Memory follows the data that arrives, whatever size it claims.
class JPEGImporter : public DataImporter {
public:
    void importImage(DynamicBuffer& buffer, Metadata& metadata) override;
};

} // namespace VORN::Migration
