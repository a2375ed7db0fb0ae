#include "beads/Picture.h"

namespace VORN {

PictureView PictureView::region(unsigned x, unsigned y, unsigned width, unsigned height) const {
    PictureView region = *this;
    region.width_ = width;
    region.height_ = height;
    if (!region.isEmpty())
        region.bottomRow_ += (height_ - y - height) * rowBytes_ + std::size_t{x} * channels_;
    return region;
}

void Picture::resize(const Tuple<3, unsigned>& size) {
    samples_.resize(sampleCount(size));
    size_ = size;
}

} // namespace VORN
