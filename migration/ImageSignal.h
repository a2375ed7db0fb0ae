#pragma once

#include "core/Signal.h"
#include "migration/DataExporter.h"
#include "migration/DataImporter.h"

namespace VORN::Migration {

/// A picture of samples (channel, x, y); y 0 is the bottom row. T is unsigned char.
///
/// Its memory is what importers fill and exporters read, so that no picture exists twice.
template <class T>
class ImageSignal : public SinglaBaseSerializable<3, T, T*> {
public:
    ImageSignal() = default;
    ImageSignal(const ImageSignal&) = delete;
    ImageSignal& operator=(const ImageSignal&) = delete;
    ~ImageSignal() override = default;

    void Resize(const Tuple<3, unsigned>& size) override;

    /// Reads a picture and leaves red, green and blue of it, one byte each.
    ///
    /// One or two channels are grey, the first serving for all three colours; a fourth channel is
    /// dropped. Of 16-bit samples the first byte, the most significant, is kept; 1-bit samples 0
    /// and 1 become 0 and 255. Other samples are a `SupportException`.
    void importImage(DataImporter& importer);

    /// Writes the picture, which has 3 channels, one byte each.
    void exportImage(DataExporter& exporter) const;

private:
    IncrementalBuffer bytes_;
};

extern template class ImageSignal<unsigned char>;

} // namespace VORN::Migration
