#include "beads/Dithering.h"

#include "beads/ColorCells.h"

namespace VORN {

namespace {

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
        : matcher_{&matcher},
          cells_{matcher},
          errors_(width + 2) {}

    /// Matches a row of at least one pixel.
    void matchRow(const PixelRow& row, char* symbols) {
        const std::size_t width = row.width();
        Error* const above = errors_.data(); // column x has x + 1
        above[width] = running_;
        Error running{};
        for (std::size_t x = 0; x < width; ++x) {
            const Rgb pixel = row[x];
            ColorPlace corrected{kComponents[pixel.red], kComponents[pixel.green],
                                 kComponents[pixel.blue]};
            for (std::size_t c = 0; c < corrected.size(); ++c)
                corrected[c] = corrected[c] + 0.4375F * running[c] + 0.3125F * above[x + 1][c] +
                               0.1875F * above[x][c] + 0.0625F * above[x + 2][c];
            if (x >= 2) // deliberately column 0 leaves nothing to the next row
                above[x] = running;
            const std::size_t entry = cells_.nearest(corrected);
            symbols[x] = matcher_->symbol(entry);
            const ColorPlace& color = matcher_->color(entry);
            for (std::size_t c = 0; c < corrected.size(); ++c)
                running[c] = corrected[c] - color[c];
        }
        running_ = running;
    }

private:
    /// What matching left over at one pixel.
    using Error = ColorPlace;

    const PaletteMatcher* matcher_;
    ColorCells cells_;
    std::vector<Error> errors_; // of the row before; one of 0 at each side of the columns
    Error running_{};           // of the last pixel of the row before
};

} // namespace

std::string dither(const PictureView& picture, const PaletteMatcher& matcher) {
    const std::size_t width = picture.width();
    std::string symbols(width * picture.height(), '\0');
    if (symbols.empty())
        return symbols;
    Diffusion diffusion{matcher, width};
    for (std::size_t y = 0; y < picture.height(); ++y)
        diffusion.matchRow(picture.row(y), symbols.data() + y * width);
    return symbols;
}

} // namespace VORN
