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

/// A row of pixels, owned elsewhere. What is stored may be grey, one byte a pixel; this is the one
/// place where grey becomes red, green and blue.
class PixelRow {
public:
    /// `samples` holds `channels` bytes a pixel, 1 or 3.
    PixelRow(std::span<const unsigned char> samples, unsigned channels)
        : samples_{samples},
          channels_{channels},
          green_{channels == 1 ? 0U : 1U},
          blue_{channels == 1 ? 0U : 2U} {}

    Rgb operator[](std::size_t x) const {
        const unsigned char* const pixel = samples_.data() + x * channels_;
        return {pixel[0], pixel[green_], pixel[blue_]};
    }
    std::size_t width() const { return samples_.size() / channels_; }
    /// As stored, for those who treat all channels alike.
    std::span<const unsigned char> samples() const { return samples_; }

private:
    std::span<const unsigned char> samples_;
    std::size_t channels_;
    std::size_t green_; // where it stands in a pixel
    std::size_t blue_;
};

/// A row of pixels to be painted, three bytes each, owned elsewhere.
class PaintedRow {
public:
    explicit PaintedRow(std::span<unsigned char> samples) : samples_{samples.data()} {}

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

/// A picture owned elsewhere, or a region of one. Rows count from the top, columns from the left.
class PictureView {
public:
    PictureView() = default;
    /// `signal` is (channel, x, y) with 1 or 3 channels, y 0 being the bottom row.
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
    bool isEmpty() const { return width_ == 0 || height_ == 0; }

    /// `y` is below the height.
    PixelRow row(std::size_t y) const {
        return {{bottomRow_ + (height_ - 1 - y) * rowBytes_, std::size_t{width_} * channels_},
                channels_};
    }

    /// The `width` x `height` pixels whose top left one is (x, y); they lie in the picture.
    PictureView region(unsigned x, unsigned y, unsigned width, unsigned height) const;

private:
    const unsigned char* bottomRow_ = nullptr;
    std::size_t rowBytes_ = 0; // from one row to the row above
    unsigned channels_ = 3;
    unsigned width_ = 0;
    unsigned height_ = 0;
};

/// A picture that owns its pixels, as `PictureView` shows them.
class Picture {
public:
    Picture() = default;
    /// The pixels, of 1 or 3 channels, have no defined value yet.
    Picture(unsigned width, unsigned height, unsigned channels) {
        resize({channels, width, height});
    }
    /// Takes over `samples`, which hold a signal (channel, x, y) of that size.
    Picture(IncrementalBuffer samples, const Tuple<3, unsigned>& size)
        : samples_{std::move(samples)},
          size_{size} {}

    operator PictureView() const { return signal(); }
    /// The picture as (channel, x, y), y 0 being the bottom row.
    SignalConstBorrow<3, unsigned char> signal() const { return {size_, samples_.data().data()}; }

    unsigned width() const { return size_[1]; }
    unsigned height() const { return size_[2]; }
    /// Sets channels, width and height. The pixels have no defined value then; memory that is there
    /// is used again.
    void resize(const Tuple<3, unsigned>& size);
    /// The bytes of row `y`, counted from the top.
    std::span<unsigned char> rowSamples(std::size_t y) {
        const std::size_t bytes = std::size_t{size_[0]} * size_[1];
        return samples_.writableData().subspan((size_[2] - 1 - y) * bytes, bytes);
    }
    /// Row `y` of a picture of 3 channels.
    PaintedRow paintedRow(std::size_t y) { return PaintedRow{rowSamples(y)}; }

private:
    IncrementalBuffer samples_;
    Tuple<3, unsigned> size_{3U, 0U, 0U};
};

} // namespace VORN
