#pragma once

#include "core/Buffer.h"
#include "core/Color.h"
#include "core/Signal.h"

#include <span>

namespace VORN {

/// A pixel: red, green and blue, a byte each.
struct Rgb {
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;

    bool operator==(const Rgb&) const = default;
};

/// The pixel that shows `color`.
inline Rgb toRgb(const Color& color) {
    return {toByte(color[0]), toByte(color[1]), toByte(color[2])};
}

/// The colour of `pixel`.
inline Color toColor(const Rgb& pixel) {
    return {toComponent(pixel.red), toComponent(pixel.green), toComponent(pixel.blue)};
}

/// View of a row of pixels. They may be stored as grey, one byte a pixel; this is the only place
/// where grey becomes red, green and blue.
class PixelRow {
public:
    /// `samples` holds `channels` bytes for each pixel, 1 or 3. It is borrowed and must outlive the
    /// row.
    PixelRow(std::span<const unsigned char> samples, unsigned channels)
        : samples_{samples},
          channels_{channels},
          green_{channels == 1 ? 0U : 1U},
          blue_{channels == 1 ? 0U : 2U} {}

    /// The pixel in column `x`, which is below the width.
    Rgb operator[](std::size_t x) const {
        const unsigned char* const pixel = samples_.data() + x * channels_;
        return {pixel[0], pixel[green_], pixel[blue_]};
    }
    /// The number of pixels.
    std::size_t width() const { return samples_.size() / channels_; }
    /// The bytes as they are stored, for code that treats all channels alike.
    std::span<const unsigned char> samples() const { return samples_; }

private:
    std::span<const unsigned char> samples_;
    std::size_t channels_;
    std::size_t green_; // index of the byte in a pixel, as is the next
    std::size_t blue_;
};

/// View of a row of pixels to be painted, three bytes each.
class PaintedRow {
public:
    /// `samples` is borrowed and must outlive the row.
    explicit PaintedRow(std::span<unsigned char> samples) : samples_{samples.data()} {}

    /// Sets the pixel in column `x`.
    void set(std::size_t x, const Rgb& pixel) { fill(x, x + 1, pixel); }
    /// Sets the pixels from `first` up to, but not including, `last`.
    void fill(std::size_t first, std::size_t last, const Rgb& pixel) {
        for (unsigned char* at = samples_ + 3 * first; at < samples_ + 3 * last; at += 3) {
            at[0] = pixel.red;
            at[1] = pixel.green;
            at[2] = pixel.blue;
        }
    }

private:
    unsigned char* samples_;
};

/// View of a picture that is owned elsewhere, or of a region of one. Rows count from the top,
/// columns from the left.
class PictureView {
public:
    /// An empty picture.
    PictureView() = default;
    /// A view of all of `signal`, which is (channel, x, y) with 1 or 3 channels, y 0 being the
    /// bottom row. It must outlive the view.
    template <class P>
    PictureView(const SignalBase<3, unsigned char, P>& signal)
        : bottomRow_{signal.samples().data()},
          rowBytes_{std::size_t{signal.size()[0]} * signal.size()[1]},
          channels_{signal.size()[0]},
          width_{signal.size()[1]},
          height_{signal.size()[2]} {}

    unsigned width() const { return width_; }
    unsigned height() const { return height_; }
    unsigned channels() const { return channels_; }
    /// Whether there are no pixels.
    bool isEmpty() const { return width_ == 0 || height_ == 0; }

    /// Row `y`, which is below the height.
    PixelRow row(std::size_t y) const {
        return {{bottomRow_ + (height_ - 1 - y) * rowBytes_, std::size_t{width_} * channels_},
                channels_};
    }

    /// The region of `width` x `height` pixels whose top left pixel is (x, y). It must not reach
    /// beyond the picture.
    PictureView region(unsigned x, unsigned y, unsigned width, unsigned height) const {
        PictureView region = *this;
        region.width_ = width;
        region.height_ = height;
        if (!region.isEmpty())
            region.bottomRow_ += (height_ - y - height) * rowBytes_ + std::size_t{x} * channels_;
        return region;
    }

private:
    const unsigned char* bottomRow_ = nullptr;
    std::size_t rowBytes_ = 0; // from one row to the row above
    unsigned channels_ = 3;
    unsigned width_ = 0;
    unsigned height_ = 0;
};

/// A picture that owns its pixels. `PictureView` tells how to read them.
class Picture {
public:
    /// An empty picture.
    Picture() = default;
    /// A picture of 1 or 3 channels, whose pixels have no defined value yet.
    Picture(unsigned width, unsigned height, unsigned channels) {
        resize({channels, width, height});
    }
    /// Takes over `samples`, which hold a signal (channel, x, y) of that size, y 0 being the bottom
    /// row.
    Picture(IncrementalBuffer samples, const Tuple<3, unsigned>& size)
        : samples_{std::move(samples)},
          size_{size} {}

    /// A view of the picture, valid until it is resized.
    operator PictureView() const { return signal(); }
    /// The picture as (channel, x, y), y 0 being the bottom row.
    SignalConstBorrow<3, unsigned char> signal() const { return {size_, samples_.data().data()}; }

    unsigned width() const { return size_[1]; }
    unsigned height() const { return size_[2]; }
    /// Sets the size: channels, width and height. The pixels have no defined value then. Memory is
    /// used again if it suffices; running out of it is an `AllocateException`.
    void resize(const Tuple<3, unsigned>& size) {
        samples_.resize(sampleCount(size));
        size_ = size;
    }
    /// The bytes of row `y`, counted from the top and below the height, to be changed.
    std::span<unsigned char> rowSamples(std::size_t y) {
        const std::size_t bytes = std::size_t{size_[0]} * size_[1];
        return samples_.writableData().subspan((size_[2] - 1 - y) * bytes, bytes);
    }
    /// Row `y` of a picture of 3 channels, to be painted.
    PaintedRow paintedRow(std::size_t y) { return PaintedRow{rowSamples(y)}; }

private:
    IncrementalBuffer samples_;
    Tuple<3, unsigned> size_{3U, 0U, 0U};
};

} // namespace VORN
