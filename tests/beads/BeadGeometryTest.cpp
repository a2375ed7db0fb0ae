#include "beads/BeadGeometry.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <cmath>

namespace VORN {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kPitch = 6 / 6.2831855; // from ring to ring

TEST(BeadGeometry, PlacesBeads) {
    const struct {
        PatternStyle style;
        Tuple<2, unsigned> size;
        std::size_t i;
        double x, y;
    } kCases[] = {
        {PatternStyle::Square, {3U, 2U}, 5, 2, 1},
        {PatternStyle::Hex, {3U, 2U}, 4, 2, 0},
        {PatternStyle::Hex, {3U, 2U}, 7, 0.5, std::sqrt(3) / 2},
        {PatternStyle::Circle, {3U, 3U}, 0, 0, 0},
        {PatternStyle::Circle, {3U, 3U}, 1, kPitch, 0},
        {PatternStyle::Circle, {3U, 3U}, 2, 0.5 * kPitch, std::sqrt(0.75) * kPitch},
        // Ring 2 begins half a turn on, ring 3 two thirds of one.
        {PatternStyle::Circle, {3U, 3U}, 7, -2 * kPitch, 0},
        {PatternStyle::Circle, {4U, 4U}, 19, -1.5 * kPitch, -1.5 * std::sqrt(3) * kPitch},
    };
    for (const auto& c : kCases) {
        const Point<2, float> position = BeadGeometry{c.style, c.size}.position(c.i);
        EXPECT_NEAR(position[0], c.x, 1e-6);
        EXPECT_NEAR(position[1], c.y, 1e-6);
    }
}

TEST(BeadGeometry, KeepsBeadsOfARingOneUnitApart) {
    for (std::size_t ring = 1; ring < 200; ++ring) {
        const std::size_t first = 3 * ring * (ring - 1) + 1;
        EXPECT_EQ(ringOf(first), ring);
        EXPECT_EQ(ringOf(first + 6 * ring - 1), ring);
        const BeadGeometry geometry{PatternStyle::Circle, {200U, 200U}};
        const float chord = squaredDistance(geometry.position(first), geometry.position(first + 1));
        EXPECT_NEAR(std::sqrt(chord), 2 * ringRadius(ring) * std::sin(kPi / (6.0 * ring)), 1e-3);
    }
}

TEST(BeadGeometry, BoxesTheBeads) {
    for (const auto style : {PatternStyle::Square, PatternStyle::Hex, PatternStyle::Circle})
        for (unsigned n = 1; n < 20; ++n) {
            Pattern pattern;
            pattern.style = style;
            pattern.AddFilledLayer({n, n}, 'a');
            const BeadGeometry geometry{style, {n, n}};
            const Hyperrectangle<2, float> box = geometry.box();
            std::size_t beads = 0;
            forEachBead(geometry, pattern.layer(0).content.size(), [&](std::size_t i) {
                ++beads;
                EXPECT_EQ(pattern.layer(0).content[i], 'a');
                for (std::size_t axis = 0; axis < 2; ++axis) {
                    const float at = geometry.position(i)[axis] - box.origin()[axis];
                    EXPECT_GE(at, -1e-5F);
                    EXPECT_LE(at, box.extent()[axis] + 1e-5F);
                }
            });
            EXPECT_EQ(beads, style == PatternStyle::Circle ? 3 * n * (n - 1) + 1 : n * n);
        }
    const Hyperrectangle<2, float> single = BeadGeometry{PatternStyle::Circle, {1U, 1U}}.box();
    EXPECT_FLOAT_EQ(single.extent()[0], 2 / 6.2831855F);
    EXPECT_EQ((BeadGeometry{PatternStyle::Hex, {0U, 3U}}.box().extent()[1]), 0);
    EXPECT_EQ((BeadGeometry{PatternStyle::Hex, {0U, 3U}}.nextBead(0, 3)), 3U);
    const Tuple<2, unsigned> one{1U, 1U};
    EXPECT_EQ(complaintOf([&] { BeadGeometry(static_cast<PatternStyle>(3), one); }),
              "No support for Pattern style not supported. . ");
}

} // namespace
} // namespace VORN
