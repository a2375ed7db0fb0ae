#include "core/Color.h"

#include <gtest/gtest.h>

namespace VORN {
namespace {

TEST(Color, ConvertsToHsv) {
    const struct {
        Color color;
        float hue, saturation, value;
    } kCases[] = {
        {{0, 0, 0}, 0, 0, 0},
        {{0.5F, 0.5F, 0.5F}, 0, 0, 0.5F},
        {{1, 0, 0}, 0, 1, 1},
        {{0, 1, 0}, 0.3333333F, 1, 1},
        {{0, 0, 1}, 0.6666667F, 1, 1},
        {{1, 0, 0.5F}, -0.0833333F, 1, 1}, // a negative fraction stays
        {{1, 0.5F, 0}, 0.0833333F, 1, 1},
        {{0.5F, 1, 0}, 0.25F, 1, 1},
        {{0.8F, 0.4F, 0.2F}, 0.0111111F, 0.75F, 0.8F}, // only the second component is divided
        {{1, 1, 0}, 0.1666667F, 1, 1},                 // the earlier of equal components decides
    };
    for (const auto& c : kCases) {
        const Tuple<3, float> hsv = c.color.ToHSV();
        EXPECT_NEAR(hsv[0], c.hue, 1e-6);
        EXPECT_NEAR(hsv[1], c.saturation, 1e-6);
        EXPECT_EQ(hsv[2], c.value);
    }
}

TEST(Color, MeasuresDistances) {
    const Color black{0, 0, 0};
    const Color white{1, 1, 1};
    EXPECT_EQ(RgbDistance{}(white, white), 0);
    EXPECT_EQ(RgbDistance{}(black, white), 3);
    EXPECT_EQ((HsvDistance{{5, 5, 3}}(black, white)), 9);
    // Hues of almost a whole turn apart do not meet.
    const Color red{1, 0, 0.05F};
    const Color blue{0.05F, 0, 1};
    EXPECT_GT((HsvDistance{{1, 0, 0}}(red, blue)), 0.3F);
}

TEST(Color, TruncatesComponents) {
    EXPECT_EQ(toByte(-1), 0);
    EXPECT_EQ(toByte(0.999F), 254);
    EXPECT_EQ(toByte(1), 255);
    EXPECT_EQ(toByte(2), 255);
    EXPECT_EQ(toByte(0.0F / 0.0F), 0);
    EXPECT_EQ(toComponent(51), 0.2F);
}

} // namespace
} // namespace VORN
