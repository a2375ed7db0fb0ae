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

} // namespace

Palette generatePalette(const PictureView& picture) {
    constexpr char kMet = 1;
    Palette palette;
    ColorCache colors;
    char symbol = '0';
    for (unsigned y = 0; y < picture.height(); ++y) {
        const PixelRow row = picture.row(y);
        for (std::size_t x = 0; x < row.width(); ++x) {
            if (colors[row[x]] == kMet)
                continue;
            colors[row[x]] = kMet;
            palette.Set(symbol, toColor(row[x]));
            symbol = nextSymbol(symbol);
        }
    }
    return palette;
}

} // namespace VORN
