#include "beads/BeadMatching.h"

#include "beads/BeadGeometry.h"
#include "beads/ColorCache.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

namespace VORN {

namespace {

/// Turns colours of a picture into symbols.
class SymbolFinder {
public:
    SymbolFinder(const PaletteMatcher& matcher, const std::optional<ColorBox>& transparent)
        : matcher_{&matcher},
          cells_{matcher},
          transparent_{transparent} {}

    char operator()(const Rgb& pixel) {
        if (transparent_ && transparent_->contains(pixel))
            return kNoBead;
        return matcher_->symbol(cells_.nearest(
            {toComponent(pixel.red), toComponent(pixel.green), toComponent(pixel.blue)}));
    }

private:
    const PaletteMatcher* matcher_;
    ColorCells cells_;
    std::optional<ColorBox> transparent_;
};

/// The same, but works each distinct colour out only once.
class CachedSymbolFinder {
public:
    explicit CachedSymbolFinder(SymbolFinder finder) : finder_{std::move(finder)} {}

    /// The symbol of a colour if it has been worked out, else 0.
    char known(const Rgb& pixel) { return cache_[pixel]; }
    char operator()(const Rgb& pixel) {
        char& symbol = cache_[pixel];
        if (symbol == 0)
            symbol = finder_(pixel);
        return symbol;
    }

private:
    SymbolFinder finder_;
    ColorCache cache_;
};

/// Maps bead coordinates of one axis linearly onto the pixels 0 to `last`.
class AxisMap {
public:
    AxisMap(float origin, float extent, unsigned last)
        : last_{static_cast<float>(last)},
          scale_{extent == 0.0F ? 0.0F : last_ / extent},
          offset_{-origin * scale_} {}

    /// The place among the pixels that belongs to a bead coordinate.
    float operator()(float coordinate) const { return coordinate * scale_ + offset_; }
    /// The same, but counted from the pixel `last`.
    float flipped(float coordinate) const { return last_ - (*this)(coordinate); }
    /// Moves a place that rounding has put outside of the picture back to its edge.
    float clamp(float pixel) const { return std::clamp(pixel, 0.0F, last_); }

private:
    float last_;
    float scale_;
    float offset_;
};

/// The colour at (px, py), interpolated between the four pixels around it. The point lies in the
/// picture; py counts from the bottom row.
Rgb sample(const PictureView& picture, float px, float py) {
    const auto x = static_cast<unsigned>(px);
    const auto y = static_cast<unsigned>(py);
    const float fx = px - static_cast<float>(x);
    const float fy = py - static_cast<float>(y);
    const unsigned right = std::min(x + 1, picture.width() - 1);
    const PixelRow below = picture.row(picture.height() - 1 - y);
    const PixelRow above =
        picture.row(picture.height() - 1 - std::min(y + 1, picture.height() - 1));
    const float w00 = (1.0F - fx) * (1.0F - fy);
    const float w10 = fx * (1.0F - fy);
    const float w01 = (1.0F - fx) * fy;
    const float w11 = fx * fy;
    const auto blend = [&](unsigned char Rgb::* channel) {
        const float value = w00 * static_cast<float>(below[x].*channel) +
                            w10 * static_cast<float>(below[right].*channel) +
                            w01 * static_cast<float>(above[x].*channel) +
                            w11 * static_cast<float>(above[right].*channel);
        return static_cast<unsigned char>(std::clamp(value, 0.0F, 255.0F));
    };
    return {blend(&Rgb::red), blend(&Rgb::green), blend(&Rgb::blue)};
}

/// Matches the interpolated colour at each bead's place; `symbolOf` gives the symbol of a colour.
template <class SymbolOf>
void matchSamples(const PictureView& picture, SymbolOf& symbolOf, const LayerShape& shape,
                  std::string& content) {
    const BeadGeometry geometry{shape};
    const Hyperrectangle<2, float> box = geometry.box();
    const AxisMap across{box.origin()[0], box.extent()[0], picture.width() - 1};
    const AxisMap down{box.origin()[1], box.extent()[1], picture.height() - 1};
    for (const Bead& bead : shape.beads(content.size())) {
        const Point<2, float> position = geometry.position(bead);
        const float px = across.clamp(across(position[0]));
        const float py = down.clamp(down.flipped(position[1]));
        content[bead.position] = symbolOf(sample(picture, px, py));
    }
}

/// Matches a square layer with one bead for every pixel, to which `matchSamples` would give the
/// same.
void matchPixels(const PictureView& picture, CachedSymbolFinder& symbolOf, std::string& content) {
    char* symbols = content.data();
    std::vector<unsigned> unknown(picture.width()); // columns
    for (std::size_t y = 0; y < picture.height(); ++y, symbols += picture.width()) {
        const PixelRow row = picture.row(y);
        // Without a branch, as nobody can foresee which colours are new, and no look-up has to wait
        // for the one before: a photo of 1 megapixel becomes a pattern in a tenth less time.
        std::size_t count = 0;
        for (unsigned x = 0; x < row.width(); ++x) {
            const char symbol = symbolOf.known(row[x]);
            symbols[x] = symbol;
            unknown[count] = x;
            count += symbol == 0 ? 1 : 0;
        }
        for (const unsigned x : std::span{unknown}.first(count))
            symbols[x] = symbolOf(row[x]);
    }
}

/// Whether every bead lies on its own pixel. Floats hold positions exactly only up to 2^24; larger
/// pictures are left to `matchSamples`.
bool hasBeadPerPixel(const PictureView& picture, const LayerShape& shape) {
    constexpr unsigned kExact = 1U << 24U;
    return shape.style() == PatternStyle::Square &&
           shape.size() == Tuple<2, unsigned>{picture.width(), picture.height()} &&
           picture.width() <= kExact && picture.height() <= kExact;
}

/// A pattern of up to this many beads is not worth the memory of a cache, which is touched in a new
/// page for nearly every colour.
constexpr std::size_t kFewBeads = ColorCells::kFirstColors;

} // namespace

void matchBeads(const PictureView& picture, const PaletteMatcher& matcher,
                const std::optional<ColorBox>& transparent, const LayerShape& shape,
                std::string& content) {
    if (picture.isEmpty())
        return;
    SymbolFinder finder{matcher, transparent};
    if (content.size() <= kFewBeads)
        return matchSamples(picture, finder, shape, content);
    CachedSymbolFinder cachedFinder{std::move(finder)};
    if (hasBeadPerPixel(picture, shape))
        matchPixels(picture, cachedFinder, content);
    else
        matchSamples(picture, cachedFinder, shape, content);
}

} // namespace VORN
