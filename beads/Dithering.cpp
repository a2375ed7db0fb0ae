#include "beads/Dithering.h"

#include "beads/ColorCells.h"

#include <vector>

namespace VORN {

namespace {

/// Matches the rows of a picture from the top and carries the errors from pixel to pixel.
class Diffusion {
public:
    Diffusion(const PaletteMatcher& matcher, std::size_t width)
        : matcher_{&matcher},
          cells_{matcher},
          errors_(width + 2) {}

    /// Matches the next row, which has at least one pixel.
    void matchRow(const PixelRow& row, char* symbols) {
        const std::size_t width = row.width();
        Error* const above = errors_.data(); // column x has x + 1
        above[width] = running_;
        Error running{};
        for (std::size_t x = 0; x < width; ++x) {
            const Rgb pixel = row[x];
            ColorPlace corrected{toComponent(pixel.red), toComponent(pixel.green),
                                 toComponent(pixel.blue)};
            for (std::size_t c = 0; c < corrected.size(); ++c)
                corrected[c] = corrected[c] + 0.4375F * running[c] + 0.3125F * above[x + 1][c] +
                               0.1875F * above[x][c] + 0.0625F * above[x + 2][c];
            if (x >= 2) // deliberately: column 0 passes nothing on to the next row
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
    /// The difference between the colour wanted at a pixel and that of its bead.
    using Error = ColorPlace;

    const PaletteMatcher* matcher_;
    ColorCells cells_;
    std::vector<Error> errors_; // of the previous row, with an error of 0 at each side
    Error running_{};           // of the previous row's last pixel
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
