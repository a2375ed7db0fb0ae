#include "beads/NearestBead.h"
#include "tests/beads/PlainNearestBead.h"

#include <gtest/gtest.h>

#include <random>

namespace VORN {
namespace {

struct Case {
    PatternStyle style;
    Tuple<2, unsigned> size;
    std::size_t length; // of the content
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << kPatternStyleNames.at(static_cast<std::size_t>(c.style)) << ' ' << c.size[0] << " x "
         << c.size[1] << " with " << c.length << " characters";
}

class NearestBeadTest : public testing::TestWithParam<Case> {
protected:
    const std::string content_ = std::string(GetParam().length, 'a');
    const LayerView layer_{{GetParam().style, GetParam().size}, content_};
    const NearestBead nearestBead_{layer_};
    const Hyperrectangle<2, float> box_ = BeadGeometry{layer_.shape}.box();
};

// Points inside the box and up to four pitches outside; every second one on a raster of quarter
// pitches, where many beads are equally far.
TEST_P(NearestBeadTest, IsTheBeadThatTheWalkFinds) {
    const Point<2, float> origin = box_.origin();
    const Point<2, float> end = box_.origin() + box_.extent();
    std::mt19937 random{20240707};
    std::uniform_real_distribution<float> x{origin[0] - 4, end[0] + 4};
    std::uniform_real_distribution<float> y{origin[1] - 4, end[1] + 4};
    for (int n = 0; n < 400; ++n) {
        Point<2, float> point{x(random), y(random)};
        if (n % 2 == 0)
            point = {std::round(point[0] * 4) / 4, std::round(point[1] * 4) / 4};
        ASSERT_EQ(nearestBead_.find(point), nearestByWalk(layer_, point))
            << "at " << point[0] << ", " << point[1];
    }
}

// Every second raster lies on quarter pitches, some reach out of the layer and its surroundings.
TEST_P(NearestBeadTest, IsTheSameInARaster) {
    for (const float margin : {0.25F, 0.9F, 1.6F})
        for (const float step : {0.25F, 0.77F}) {
            std::vector<float> columns;
            for (float x = -margin; x <= box_.extent()[0] + margin; x += step)
                columns.push_back(box_.origin()[0] + x);
            NearestBead::Raster raster{nearestBead_, columns};
            for (float down = -margin; down <= box_.extent()[1] + margin; down += 3 * step) {
                const float y = box_.origin()[1] + down;
                const std::span found = raster.findRow(y);
                for (std::size_t i = 0; i < columns.size(); ++i)
                    ASSERT_EQ(found[i], nearestByWalk(layer_, {columns[i], y}))
                        << "at " << columns[i] << ", " << y;
            }
        }
}

// Seen from far away, all beads of a column are equally far.
TEST_P(NearestBeadTest, IsTheSameInARasterFarAwayOrNowhere) {
    const float middle = box_.origin()[1] + box_.extent()[1] / 2;
    for (const auto& [x, y] : {std::pair{box_.origin()[0] - 50000.0F, middle},
                               std::pair{box_.origin()[0], std::nanf("")}}) {
        const std::vector<float> columns{x};
        EXPECT_EQ((NearestBead::Raster{nearestBead_, columns}.findRow(y)[0]),
                  nearestByWalk(layer_, {x, y}));
    }
}

// Files may give hex rows an odd number of characters and circles a first row of any length, so
// that the content does not fit the size.
INSTANTIATE_TEST_SUITE_P(
    Layers, NearestBeadTest,
    testing::Values(Case{PatternStyle::Square, {1, 1}, 1}, Case{PatternStyle::Square, {3, 40}, 120},
                    Case{PatternStyle::Square, {29, 29}, 841},
                    Case{PatternStyle::Square, {0, 0}, 0}, Case{PatternStyle::Hex, {1, 1}, 2},
                    Case{PatternStyle::Hex, {12, 30}, 720}, Case{PatternStyle::Hex, {2, 7}, 35},
                    Case{PatternStyle::Hex, {9, 15}, 285}, Case{PatternStyle::Hex, {0, 5}, 5},
                    Case{PatternStyle::Circle, {1, 1}, 1}, Case{PatternStyle::Circle, {2, 2}, 7},
                    Case{PatternStyle::Circle, {16, 16}, 721},
                    Case{PatternStyle::Circle, {1, 1}, 30}, Case{PatternStyle::Circle, {6, 6}, 14},
                    Case{PatternStyle::Circle, {3, 3}, 23},
                    Case{PatternStyle::Circle, {12, 12}, 404}));

} // namespace
} // namespace VORN
