#include "beads/ColorCells.h"
#include "fuzz/FuzzedArtwork.h"

#include <cmath>

using namespace VORN;
using namespace VORN::Fuzz;

namespace {

/// Six significant digits are written, with an exponent that files may not have where a number is
/// far from 1.
bool isWritableComponent(float component) {
    return component == 0.0F || (component >= 0.001F && component < 100000.0F);
}

bool isWritable(const Palette& palette) {
    for (const auto& [symbol, color] : palette)
        for (std::size_t c = 0; c < 3; ++c)
            if (!isWritableComponent(color[c]))
                return false;
    return true;
}

/// Matching finds an entry of the palette for every colour.
void match(const Palette& palette, const ColorDistance& distance) {
    const PaletteMatcher matcher{palette, distance};
    ColorCells cells{matcher};
    for (const ColorPlace& color :
         {ColorPlace{}, ColorPlace{1, 1, 1}, ColorPlace{0.2F, 0.7F, 0.1F}}) {
        const char symbol = matcher.symbol(cells.nearest(color));
        require(symbol == 0 || palette.Contains(symbol), "the nearest entry is one of the palette");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Palette palette;
    if (!complaintOf([&] { readArtwork(palette, {data, size}); }).empty())
        return 0;
    match(palette, RgbDistance{});
    match(palette, HsvDistance{{1.0F, 0.5F, 2.0F}});
    if (!isWritable(palette))
        return 0;
    const Bytes once = writtenArtwork(palette);
    Palette again;
    require(complaintOf([&] { readArtwork(again, once); }).empty(), "what was written can be read");
    require(writtenArtwork(again) == once, "what was read is written in the same way");
    return 0;
}
