#include "beads/PictureConversion.h"

#include "beads/BeadGeometry.h"
#include "beads/ColorCache.h"

namespace VORN {

namespace {

/// Turns picture colours into symbols, each distinct colour once.
class ColorMatching {
public:
    ColorMatching(const PaletteMatcher& matcher, const std::optional<ColorBox>& transparent)
        : matcher_{matcher},
          transparent_{transparent} {}

    char symbolOf(const unsigned char* rgb) {
        if (transparent_ && transparent_->contains(rgb))
            return kNoBead;
        std::uint8_t& symbol = cache_[rgb]; // symbol 0 is as good as not remembered
        if (symbol == 0)
            symbol =
                matcher_.nearest({toComponent(rgb[0]), toComponent(rgb[1]), toComponent(rgb[2])});
        return static_cast<char>(symbol);
    }

private:
    const PaletteMatcher& matcher_;
    const std::optional<ColorBox>& transparent_;
    ColorCache cache_;
};

/// Maps bead coordinates of one axis linearly onto the pixels 0 to `last`.
class AxisMap {
public:
    AxisMap(float origin, float extent, unsigned last)
        : last_{static_cast<float>(last)},
          scale_{extent == 0.0F ? 0.0F : last_ / extent},
          offset_{-origin * scale_} {}

    float operator()(float coordinate) const { return coordinate * scale_ + offset_; }
    float flipped(float coordinate) const { return last_ - (*this)(coordinate); }
    /// Every bead lies inside the box; what rounding adds does not count.
    float clamp(float pixel) const { return std::clamp(pixel, 0.0F, last_); }

private:
    float last_;
    float scale_;
    float offset_;
};

/// The colour between the four pixels around (px, py), which lies in the picture.
std::array<unsigned char, 3> sample(const PictureView& picture, float px, float py) {
    const auto x = static_cast<unsigned>(px);
    const auto y = static_cast<unsigned>(py);
    const float fx = px - static_cast<float>(x);
    const float fy = py - static_cast<float>(y);
    const unsigned right = std::min(x + 1, picture.size()[1] - 1);
    const unsigned above = std::min(y + 1, picture.size()[2] - 1);
    const unsigned char* const p00 = &picture[{0U, x, y}];
    const unsigned char* const p10 = &picture[{0U, right, y}];
    const unsigned char* const p01 = &picture[{0U, x, above}];
    const unsigned char* const p11 = &picture[{0U, right, above}];
    const float w00 = (1.0F - fx) * (1.0F - fy);
    const float w10 = fx * (1.0F - fy);
    const float w01 = (1.0F - fx) * fy;
    const float w11 = fx * fy;
    std::array<unsigned char, 3> rgb{};
    for (std::size_t c = 0; c < 3; ++c) {
        const float value = w00 * static_cast<float>(p00[c]) + w10 * static_cast<float>(p10[c]) +
                            w01 * static_cast<float>(p01[c]) + w11 * static_cast<float>(p11[c]);
        rgb[c] = static_cast<unsigned char>(std::clamp(value, 0.0F, 255.0F));
    }
    return rgb;
}

void matchSamples(const PictureView& picture, ColorMatching& matching, const BeadGeometry& geometry,
                  std::string& content) {
    const Hyperrectangle<2, float> box = geometry.box();
    const AxisMap across{box.origin()[0], box.extent()[0], picture.size()[1] - 1};
    const AxisMap down{box.origin()[1], box.extent()[1], picture.size()[2] - 1};
    forEachBead(geometry, content.size(), [&](std::size_t i) {
        const Point<2, float> position = geometry.position(i);
        const float px = across.clamp(across(position[0]));
        const float py = down.clamp(down.flipped(position[1]));
        content[i] = matching.symbolOf(sample(picture, px, py).data());
    });
}

/// As `matchSamples` for a square layer with one bead for every pixel.
void matchPixels(const PictureView& picture, ColorMatching& matching, std::string& content) {
    const std::size_t width = picture.size()[1];
    const std::size_t height = picture.size()[2];
    for (std::size_t row = 0; row < height; ++row) {
        const unsigned char* rgb = picture.samples().data() + 3 * width * (height - 1 - row);
        char* const symbols = content.data() + row * width;
        for (std::size_t x = 0; x < width; ++x)
            symbols[x] = matching.symbolOf(rgb + 3 * x);
    }
}

/// Whether beads and pixels coincide; positions count as exact only up to 2^24.
bool hasBeadPerPixel(const PictureView& picture, PatternStyle style, const Pattern::Layer& layer) {
    constexpr unsigned kExact = 1U << 24U;
    const unsigned width = picture.size()[1];
    const unsigned height = picture.size()[2];
    return style == PatternStyle::Square && layer.size == Tuple<2, unsigned>{width, height} &&
           width <= kExact && height <= kExact;
}

/// The components of a picture's bytes.
consteval std::array<float, 256> componentsOfBytes() {
    std::array<float, 256> components{};
    for (std::size_t byte = 0; byte < components.size(); ++byte)
        components[byte] = toComponent(static_cast<unsigned char>(byte));
    return components;
}

constexpr std::array<float, 256> kComponents = componentsOfBytes();

/// Diffuses the errors of one picture row to the next, in the order of reading.
class Diffusion {
public:
    Diffusion(const PaletteMatcher& matcher, std::size_t width)
        : matcher_{matcher},
          errors_(width + 2) {}

    /// Matches a row of at least one pixel.
    void matchRow(const unsigned char* rgb, char* symbols) {
        const std::size_t width = errors_.size() - 2;
        Error* const above = errors_.data(); // column x has x + 1
        above[width] = running_;
        Error running{};
        for (std::size_t x = 0; x < width; ++x) {
            PaletteMatcher::Components corrected{
                kComponents[rgb[3 * x]], kComponents[rgb[3 * x + 1]], kComponents[rgb[3 * x + 2]]};
            for (std::size_t c = 0; c < corrected.size(); ++c)
                corrected[c] = corrected[c] + 0.4375F * running[c] + 0.3125F * above[x + 1][c] +
                               0.1875F * above[x][c] + 0.0625F * above[x + 2][c];
            if (x >= 2) // deliberately column 0 leaves nothing to the next row
                above[x] = running;
            const std::size_t entry = matcher_.nearestEntry(corrected);
            symbols[x] = static_cast<char>(matcher_.symbol(entry));
            const PaletteMatcher::Components& color = matcher_.color(entry);
            for (std::size_t c = 0; c < corrected.size(); ++c)
                running[c] = corrected[c] - color[c];
        }
        running_ = running;
    }

private:
    /// What matching left over at one pixel.
    using Error = PaletteMatcher::Components;

    const PaletteMatcher& matcher_;
    std::vector<Error> errors_; // of the row before; one of 0 at each side of the columns
    Error running_{};           // of the last pixel of the row before
};

} // namespace

void matchBeads(const PictureView& picture, const PaletteMatcher& matcher,
                const std::optional<ColorBox>& transparent, Pattern& pattern) {
    Pattern::Layer& layer = pattern.layer(0);
    if (picture.count() == 0)
        return;
    ColorMatching matching{matcher, transparent};
    if (hasBeadPerPixel(picture, pattern.style, layer))
        matchPixels(picture, matching, layer.content);
    else
        matchSamples(picture, matching, {pattern.style, layer.size}, layer.content);
}

std::string dither(const PictureView& picture, const PaletteMatcher& matcher) {
    const std::size_t width = picture.size()[1];
    const std::size_t height = picture.size()[2];
    std::string symbols(width * height, kNoBead);
    if (symbols.empty())
        return symbols;
    Diffusion diffusion{matcher, width};
    for (std::size_t row = 0; row < height; ++row)
        diffusion.matchRow(picture.samples().data() + 3 * width * (height - 1 - row),
                           symbols.data() + row * width);
    return symbols;
}

} // namespace VORN
