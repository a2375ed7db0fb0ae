#include "beads/ColorCache.h"
#include "beads/ColorCells.h"

#include <gtest/gtest.h>

#include <random>

namespace VORN {
namespace {

const ColorDistance kRgb = RgbDistance{};

ColorDistance hsv(float hue, float saturation, float value) {
    return HsvDistance{{hue, saturation, value}};
}

/// The plain walk over all symbols.
char nearestByWalk(const Palette& palette, const ColorDistance& distance, const Color& color) {
    char nearest = 0;
    float best = -1.0F;
    for (const auto& [symbol, entry] : palette) {
        const auto measure = [&, &other = entry](const auto& chosen) {
            return chosen(color, other);
        };
        const float here = std::visit(measure, distance);
        if (best < 0.0F || here < best) {
            best = here;
            nearest = symbol;
        }
    }
    return nearest;
}

/// A matcher and its cells, whose first colours have been asked for.
class Matching {
public:
    Matching(const Palette& palette, const ColorDistance& distance)
        : matcher{palette, distance},
          cells{matcher} {
        for (unsigned i = 0; i < ColorCells::kFirstColors; ++i)
            cells.nearest({});
    }
    char nearest(const Color& color) {
        return matcher.symbol(cells.nearest({color[0], color[1], color[2]}));
    }

    PaletteMatcher matcher;
    ColorCells cells;
};

TEST(ColorCells, MatchAsThePlainWalk) {
    std::mt19937 random{1};
    // Few steps, so that distances often are equal; some components far outside.
    std::uniform_int_distribution<int> step{-2, 10};
    const auto color = [&] {
        return Color{static_cast<float>(step(random)) / 8.0F,
                     static_cast<float>(step(random)) / 8.0F,
                     static_cast<float>(step(random)) / 8.0F};
    };
    for (const unsigned entries : {0U, 1U, 2U, 15U, 16U, 17U, 62U, 255U, 256U}) {
        Palette palette;
        for (unsigned i = 0; i < entries; ++i)
            palette.Set(static_cast<char>(255 - i), color());
        if (entries > 2)
            palette.Set('\x88', {3e38F, 3e38F, 0});
        for (const ColorDistance& distance : {kRgb, hsv(2.0F, 0.0F, 0.5F)}) {
            Matching matching{palette, distance};
            for (int i = 0; i < 300; ++i) {
                const Color wanted = color();
                EXPECT_EQ(matching.nearest(wanted), nearestByWalk(palette, distance, wanted));
                // Far outside, as errors of dithering may lead.
                const float far = static_cast<float>(i) - 100.0F;
                const Color strayed{wanted[0] * far, wanted[1], wanted[2] * far};
                EXPECT_EQ(matching.nearest(strayed), nearestByWalk(palette, distance, strayed));
            }
        }
    }
}

TEST(ColorCells, DecideNarrowlyAsThePlainWalk) {
    std::mt19937 random{2};
    const auto component = [&] { return static_cast<float>(random() % 256) / 255.0F; };
    for (const float weight : {0.0F, 1.0F, 1e-16F, 1e-22F, 3e18F, 1e30F}) {
        const ColorDistance distance = weight > 0.0F ? hsv(weight, 2.0F * weight, weight) : kRgb;
        Palette palette;
        for (char symbol = 0; symbol < 100; ++symbol)
            palette.Set(symbol, {component(), component(), component()});
        Matching matching{palette, distance};
        // Colours about as far from one entry as from another.
        for (int i = 0; i < 2000; ++i) {
            const Color& a = palette.Get(static_cast<char>(random() % 100));
            const Color& b = palette.Get(static_cast<char>(random() % 100));
            const float part = 0.5F + static_cast<float>(i % 9 - 4) * 3e-8F;
            Color between;
            for (std::size_t c = 0; c < 3; ++c)
                between[c] = a[c] + (b[c] - a[c]) * part;
            ASSERT_EQ(matching.nearest(between), nearestByWalk(palette, distance, between));
        }
    }
}

// The corners of a cell are where an entry wins that is far from the nearest at its centre.
TEST(ColorCells, HaveAllWinnersAmongFewCandidates) {
    std::mt19937 random{3};
    const auto component = [&] { return static_cast<float>(random() % 256) / 255.0F; };
    const auto corner = [&] { // cells begin at multiples of 1/32
        const float rounding = random() % 2 == 0 ? 1e-6F : -1e-6F;
        return static_cast<float>(random() % 16 + 8) / 32.0F + rounding;
    };
    std::size_t candidates = 0;
    constexpr std::size_t kPlaces = 20000;
    Palette palette;
    for (char symbol = 0; symbol < 62; ++symbol)
        palette.Set(symbol, {component(), component(), component()});
    Matching matching{palette, kRgb};
    for (std::size_t i = 0; i < kPlaces; ++i) {
        const ColorPlace place{corner(), corner(), corner()};
        const auto found = matching.cells.candidates(place);
        const std::size_t winner = matching.matcher.nearest(place);
        ASSERT_NE(std::ranges::find(found, winner), found.end());
        candidates += found.size();
    }
    EXPECT_LT(candidates, 4 * kPlaces);
    EXPECT_TRUE(matching.cells.candidates({1e3F, 0, 0}).empty());
}

TEST(PaletteMatcher, TakesTheLowerSymbolOfEquals) {
    Palette palette;
    palette.Set('b', {1, 0, 0});
    palette.Set('a', {0, 1, 0});
    const PaletteMatcher matcher{palette, kRgb};
    EXPECT_EQ(matcher.symbol(matcher.nearest({0.5F, 0.5F, 0})), 'a');
    const PaletteMatcher empty{{}, kRgb};
    EXPECT_EQ(empty.symbol(empty.nearest({1, 1, 1})), 0);
    EXPECT_EQ(empty.color(0), ColorPlace{});
}

TEST(ColorCache, HasASlotForEachColor) {
    std::vector<bool> taken(std::size_t{1} << 24);
    std::size_t distinct = 0;
    for (unsigned red = 0; red < 256; red += 5)
        for (unsigned green = 0; green < 256; green += 3)
            for (unsigned blue = 0; blue < 256; ++blue) {
                const auto byte = [](unsigned value) { return static_cast<unsigned char>(value); };
                const std::size_t slot = colorSlot({byte(red), byte(green), byte(blue)});
                ASSERT_LT(slot, taken.size());
                distinct += taken[slot] ? 0 : 1;
                taken[slot] = true;
            }
    EXPECT_EQ(distinct, 52U * 86U * 256U);
}

} // namespace
} // namespace VORN
