#pragma once

#include "core/Signal.h"
#include "migration/DataExporter.h"
#include "migration/ImageMetadata.h"

namespace VORN::Migration {

/// A picture of samples (channel, x, y) owned elsewhere; y 0 is the bottom row. T is unsigned char.
///
/// It lies over what an importer filled or a drawing painted, so that no picture exists twice.
template <class T>
class ImageSignal : public SignalConstBorrow<3, T> {
public:
    /// The picture that an importer left in `buffer`, brought there to one byte for grey or three
    /// for red, green and blue, the pixels side by side. `buffer` must outlive the signal.
    ///
    /// One or two channels are grey, the first of them; a fourth channel is dropped. Of 16-bit
    /// samples the first byte, the most significant, is kept; 1-bit samples 0 and 1 become 0 and
    /// 255. Other samples are a `SupportException`, a buffer too small a `SpaceException`.
    ImageSignal(IncrementalBuffer& buffer, const ImageMetadata& metadata);

    /// A picture of 1 or 3 channels, which must outlive the signal.
    explicit ImageSignal(const SignalConstBorrow<3, T>& picture)
        : SignalConstBorrow<3, T>{picture} {}

    /// Writes the picture.
    void exportImage(DataExporter& exporter) const;
};

extern template class ImageSignal<unsigned char>;

} // namespace VORN::Migration
