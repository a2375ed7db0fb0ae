#include "beads/PaletteGeneration.h"

#include "beads/ColorCache.h"

namespace VORN {

namespace {

/// The symbol after `symbol`; "Z" stays.
char nextSymbol(char symbol) {
    switch (symbol) {
    case '9':
        return 'a';
    case 'z':
        return 'A';
    case 'Z':
        return 'Z';
    default:
        return static_cast<char>(symbol + 1);
    }
}

/// Gives every colour that it has not met before the next symbol.
class ColorCollection {
public:
    /// `rgb` is `count` pixels of three bytes.
    void add(const unsigned char* rgb, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i, rgb += 3) {
            std::uint8_t& isKnown = known_[rgb];
            if (isKnown != 0)
                continue;
            isKnown = 1;
            define(rgb);
        }
    }
    const Palette& palette() const { return palette_; }

private:
    void define(const unsigned char* rgb) {
        palette_.Set(static_cast<unsigned char>(symbol_),
                     {toComponent(rgb[0]), toComponent(rgb[1]), toComponent(rgb[2])});
        symbol_ = nextSymbol(symbol_);
    }

    ColorCache known_;
    Palette palette_;
    char symbol_ = '0';
};

} // namespace

Palette generatePalette(const PictureView& picture) {
    ColorCollection colors;
    const std::size_t width = picture.size()[1];
    const std::size_t rows = width > 0 ? picture.size()[2] : 0;
    for (std::size_t row = rows; row-- > 0;)
        colors.add(picture.samples().data() + 3 * width * row, width);
    return colors.palette();
}

} // namespace VORN
