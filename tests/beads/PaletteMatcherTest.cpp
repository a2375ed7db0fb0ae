#include "beads/PaletteMatcher.h"
#include "beads/ColorCache.h"

#include <gtest/gtest.h>

#include <random>

namespace VORN {
namespace {

/// The plain walk over all symbols.
unsigned char nearestByWalk(const Palette& palette, const PaletteMatcher::Weights& weights,
                            const Color& color) {
    unsigned char nearest = 0;
    float best = -1.0F;
    for (unsigned code = 0; code < Palette::kSlots; ++code) {
        const auto symbol = static_cast<unsigned char>(code);
        if (!palette.Contains(symbol))
            continue;
        const Color& entry = palette.Get(symbol);
        const float distance =
            weights ? hsvDistance(color, entry, *weights) : rgbDistance(color, entry);
        if (best < 0.0F || distance < best) {
            best = distance;
            nearest = symbol;
        }
    }
    return nearest;
}

TEST(PaletteMatcher, MatchesAsThePlainWalk) {
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
            palette.Set(static_cast<unsigned char>(255 - i), color());
        if (entries > 2)
            palette.Set(200, {3e38F, 3e38F, 0});
        for (const PaletteMatcher::Weights& weights :
             {PaletteMatcher::Weights{}, PaletteMatcher::Weights{{2.0F, 0.0F, 0.5F}}}) {
            const PaletteMatcher matcher{palette, weights};
            for (int i = 0; i < 300; ++i) {
                const Color wanted = color();
                EXPECT_EQ(matcher.nearest(wanted), nearestByWalk(palette, weights, wanted));
                // Far outside, as errors of dithering may lead.
                const float far = static_cast<float>(i) - 100.0F;
                const Color strayed{wanted[0] * far, wanted[1], wanted[2] * far};
                EXPECT_EQ(matcher.nearest(strayed), nearestByWalk(palette, weights, strayed));
            }
        }
    }
}

TEST(PaletteMatcher, DecidesNarrowlyAsThePlainWalk) {
    std::mt19937 random{2};
    const auto component = [&] { return static_cast<float>(random() % 256) / 255.0F; };
    for (const float weight : {0.0F, 1.0F, 1e-16F, 1e-22F, 3e18F, 1e30F}) {
        PaletteMatcher::Weights weights;
        if (weight > 0.0F)
            weights = {weight, 2.0F * weight, weight};
        Palette palette;
        for (unsigned symbol = 0; symbol < 100; ++symbol)
            palette.Set(static_cast<unsigned char>(symbol),
                        {component(), component(), component()});
        const PaletteMatcher matcher{palette, weights};
        // Colours about as far from one entry as from another.
        for (int i = 0; i < 2000; ++i) {
            const Color& a = palette.Get(static_cast<unsigned char>(random() % 100));
            const Color& b = palette.Get(static_cast<unsigned char>(random() % 100));
            const float part = 0.5F + static_cast<float>(i % 9 - 4) * 3e-8F;
            Color between;
            for (std::size_t c = 0; c < 3; ++c)
                between[c] = a[c] + (b[c] - a[c]) * part;
            ASSERT_EQ(matcher.nearest(between), nearestByWalk(palette, weights, between));
        }
    }
}

TEST(PaletteMatcher, TakesTheLowerSymbolOfEquals) {
    Palette palette;
    palette.Set('b', {1, 0, 0});
    palette.Set('a', {0, 1, 0});
    EXPECT_EQ(PaletteMatcher(palette, {}).nearest({0.5F, 0.5F, 0}), 'a');
    const PaletteMatcher empty{{}, {}};
    const std::size_t entry = empty.nearestEntry({1, 1, 1});
    EXPECT_EQ(empty.symbol(entry), 0);
    EXPECT_EQ(empty.color(entry), PaletteMatcher::Components{});
}

TEST(ColorCache, HasASlotForEachColor) {
    std::vector<bool> taken(std::size_t{1} << 24);
    std::size_t distinct = 0;
    for (unsigned red = 0; red < 256; red += 5)
        for (unsigned green = 0; green < 256; green += 3)
            for (unsigned blue = 0; blue < 256; ++blue) {
                const auto byte = [](unsigned value) { return static_cast<unsigned char>(value); };
                const std::size_t slot =
                    colorSlot(std::array{byte(red), byte(green), byte(blue)}.data());
                ASSERT_LT(slot, taken.size());
                distinct += taken[slot] ? 0 : 1;
                taken[slot] = true;
            }
    EXPECT_EQ(distinct, 52U * 86U * 256U);
}

} // namespace
} // namespace VORN
