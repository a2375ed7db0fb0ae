#include "beads/BeadGeometry.h"
#include "beads/Pattern.h"
#include "beads/UnitCircle.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <cmath>

namespace VORN {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kPitch = 6 / 6.2831855; // from ring to ring

/// The bead at a content position of a layer that is complete up to there.
Bead beadAt(const LayerShape& shape, std::size_t position) {
    for (const Bead& bead : shape.beads(position + 1))
        if (bead.position == position)
            return bead;
    return {};
}

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
        const LayerShape shape{c.style, c.size};
        const Point<2, float> position = BeadGeometry{shape}.position(beadAt(shape, c.i));
        EXPECT_NEAR(position[0], c.x, 1e-6);
        EXPECT_NEAR(position[1], c.y, 1e-6);
    }
}

TEST(BeadGeometry, KeepsBeadsOfARingOneUnitApart) {
    const LayerShape shape{PatternStyle::Circle, {200U, 200U}};
    const BeadGeometry geometry{shape};
    for (std::size_t ring = 1; ring < 200; ++ring) {
        const std::size_t begin = LayerShape::ringBegin(ring);
        EXPECT_EQ(shape.rowsIn(begin), ring);
        EXPECT_EQ(shape.rowsIn(begin + 1), ring + 1);
        const float chord = squaredDistance(geometry.position({begin, ring, 0}),
                                            geometry.position({begin + 1, ring, 1}));
        EXPECT_NEAR(std::sqrt(chord),
                    2 * BeadGeometry::ringRadius(ring) * std::sin(kPi / (6.0 * ring)), 1e-3);
    }
}

TEST(UnitCirclePoint, IsWithinTheLastDigitOfTheLibrary) {
    for (int i = -4000; i <= 4000; ++i) {
        const double angle = kPi * i / 4000;
        const auto [cosine, sine] = unitCirclePoint(angle);
        EXPECT_NEAR(cosine, std::cos(angle), 2.3e-16);
        EXPECT_NEAR(sine, std::sin(angle), 2.3e-16);
    }
    // Close to 0 the digits that count are others.
    EXPECT_DOUBLE_EQ(unitCirclePoint(-kPi).sine, -1.2246467991473532e-16);
    EXPECT_DOUBLE_EQ(unitCirclePoint(kPi / 2).cosine, 6.123233995736766e-17);
}

TEST(BeadGeometry, BoxesTheBeads) {
    for (const auto style : {PatternStyle::Square, PatternStyle::Hex, PatternStyle::Circle})
        for (unsigned n = 1; n < 20; ++n) {
            Pattern pattern;
            pattern.style = style;
            pattern.AddFilledLayer({n, n}, 'a');
            const LayerView layer = pattern.view(0);
            const BeadGeometry geometry{layer.shape};
            const Hyperrectangle<2, float> box = geometry.box();
            std::size_t beads = 0;
            for (const Bead& bead : layer.beads()) {
                ++beads;
                EXPECT_EQ(layer.content[bead.position], 'a');
                for (std::size_t axis = 0; axis < 2; ++axis) {
                    const float at = geometry.position(bead)[axis] - box.origin()[axis];
                    EXPECT_GE(at, -1e-5F);
                    EXPECT_LE(at, box.extent()[axis] + 1e-5F);
                }
            }
            EXPECT_EQ(beads, style == PatternStyle::Circle ? 3 * n * (n - 1) + 1 : n * n);
        }
    const Tuple<2, unsigned> one{1U, 1U};
    const LayerShape single{PatternStyle::Circle, one};
    EXPECT_FLOAT_EQ(BeadGeometry{single}.box().extent()[0], 2 / 6.2831855F);
    const LayerShape empty{PatternStyle::Hex, {0U, 3U}};
    EXPECT_EQ(BeadGeometry{empty}.box().extent()[1], 0);
    EXPECT_TRUE(empty.beads(3).begin() == empty.beads(3).end());
    const LayerShape none{static_cast<PatternStyle>(3), one};
    EXPECT_EQ(complaintOf([&] { BeadGeometry{none}; }),
              "No support for Pattern style not supported. . ");
}

} // namespace
} // namespace VORN
