#pragma once

#include "core/Signal.h"
#include "migration/DataExporter.h"
#include "migration/ImageMetadata.h"

namespace VORN::Migration {

/// View of a picture of samples (channel, x, y), with y 0 being the bottom row. T is unsigned char.
///
/// The samples stay in the buffer that an importer filled, or in the picture that was drawn. So no
/// picture ever exists twice.
template <class T>
class ImageSignal : public SignalConstBorrow<3, T> {
public:
    /// The picture that an importer left in `buffer`, which must outlive the signal. The buffer is
    /// changed in place: afterwards it holds one byte a pixel for grey or three for red, green and
    /// blue, without padding.
    ///
    /// Of one or two channels the first is kept, as grey; of more the first three. 16-bit samples
    /// keep their first byte, the most significant one; 1-bit samples become 0 or 255. Other
    /// samples, and pictures without channels, are a `SupportException`; too small a buffer is a
    /// `SpaceException`.
    ImageSignal(IncrementalBuffer& buffer, const ImageMetadata& metadata);

    /// A view of a picture of 1 or 3 channels, which must outlive the signal.
    explicit ImageSignal(const SignalConstBorrow<3, T>& picture)
        : SignalConstBorrow<3, T>{picture} {}

    /// Writes the picture by `exporter`, whose stream is set; throws what the exporter throws.
    void exportImage(DataExporter& exporter) const;
};

extern template class ImageSignal<unsigned char>;

} // namespace VORN::Migration
