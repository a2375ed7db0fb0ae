#include "beads/BeadMatching.h"
#include "beads/Cropping.h"
#include "beads/Scaling.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace VORN {
namespace {

/// A picture of greys, given from the top row on, digits 0 to 5 standing for 0, 51, ... 255.
Picture greys(const std::vector<std::string>& rows, unsigned channels = 3) {
    const auto height = static_cast<unsigned>(rows.size());
    const auto width = static_cast<unsigned>(rows[0].size());
    Picture picture{width, height, channels};
    for (unsigned y = 0; y < height; ++y) {
        const auto samples = picture.rowSamples(y);
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = static_cast<unsigned char>(51 * (rows[y][i / channels] - '0'));
    }
    return picture;
}

/// The symbols "0" to "5" for the greys of `greys`.
Palette greyPalette() {
    Palette palette;
    for (int i = 0; i < 6; ++i) {
        const float grey = toComponent(static_cast<unsigned char>(51 * i));
        palette.Set(static_cast<char>('0' + i), {grey, grey, grey});
    }
    return palette;
}

std::string matched(const PictureView& picture, PatternStyle style, const Tuple<2, unsigned>& size,
                    const std::optional<ColorBox>& transparent = {}) {
    Pattern pattern;
    pattern.style = style;
    pattern.AddFilledLayer(size, kNoBead);
    std::string content = pattern.layer(0).content;
    matchBeads(picture, {greyPalette(), RgbDistance{}}, transparent, pattern.shape(0), content);
    return content;
}

Picture noise(unsigned width, unsigned height) {
    std::mt19937 random{width * 1000 + height};
    Picture picture{width, height, 3};
    for (unsigned y = 0; y < height; ++y)
        for (unsigned char& sample : picture.rowSamples(y))
            sample = static_cast<unsigned char>(random());
    return picture;
}

TEST(MatchBeads, KeepsThePictureUpright) {
    const auto square = greys({"012", "345", "543"});
    EXPECT_EQ(matched(square, PatternStyle::Square, {3, 3}), "012345543");
    EXPECT_EQ(matched(square, PatternStyle::Square, {2, 2}), "0253");
    // Rows of a hex layer end half a bead apart from each other; blanks stay.
    EXPECT_EQ(matched(greys({"05", "05"}), PatternStyle::Hex, {2, 2}), "0 3  2 5");
    // The first ring goes around from the right, by way of the bottom, which is row 1 here.
    EXPECT_EQ(matched(greys({"000", "000", "555"}), PatternStyle::Circle, {2, 2}), "0044000");
    EXPECT_EQ(matched(greys({"005", "005", "005"}), PatternStyle::Circle, {2, 2}), "0520002");
    EXPECT_EQ(matched({}, PatternStyle::Circle, {2, 2}), ".......");
    const ColorBox transparent{{0.3F, 0.3F, 0.3F}, 0.15F};
    EXPECT_EQ(matched(greys({"012", "345"}), PatternStyle::Square, {3, 2}, transparent), "0..345");
    // Grey pictures hold one channel.
    EXPECT_EQ(matched(greys({"012", "345"}, 1), PatternStyle::Square, {3, 2}), "012345");
    EXPECT_EQ(matched(greys({"05", "05"}, 1), PatternStyle::Hex, {2, 2}), "0 3  2 5");
}

// Patterns of more than a few beads remember colours; each of these has dozens of beads.
TEST(MatchBeads, GivesEachColorItsSymbolInLargePatternsToo) {
    const ColorBox transparent{{0.5F, 0.5F, 0.5F}, 0.3F};
    Picture picture = noise(40, 30);
    for (unsigned y = 0; y < 30; ++y)
        for (unsigned char& sample : picture.rowSamples(y))
            sample &= 0xC0;
    const std::string content = matched(picture, PatternStyle::Square, {40, 30}, transparent);
    const PaletteMatcher matcher{greyPalette(), RgbDistance{}};
    for (unsigned i = 0; i < 40 * 30; ++i) {
        const Rgb pixel = PictureView{picture}.row(i / 40)[i % 40];
        const char symbol = matcher.symbol(matcher.nearest(
            {toComponent(pixel.red), toComponent(pixel.green), toComponent(pixel.blue)}));
        EXPECT_EQ(content[i], transparent.contains(pixel) ? kNoBead : symbol);
    }
}

TEST(MatchBeads, LosesNoBeadAtTheEdge) {
    const Picture picture = greys(std::vector<std::string>(5, "55555"));
    for (const auto style : {PatternStyle::Square, PatternStyle::Hex, PatternStyle::Circle})
        for (unsigned size = 1; size < 40; ++size)
            EXPECT_EQ(matched(picture, style, {size, size}).find('.'), std::string::npos);
}

TEST(ColorBox, RoundsOutwards) {
    const struct {
        float centre, threshold;
        unsigned first, last; // byte inside
    } kCases[] = {{0.2F, 0, 51, 51}, {0.5F, 0, 127, 128}, {0.5F, 0.1F, 102, 153},
                  {0, 0.05F, 0, 13}, {1, 3e38F, 0, 255},  {0.5F, -0.1F, 256, 255}};
    for (const auto& c : kCases)
        for (unsigned byte = 0; byte < 256; ++byte) {
            const ColorBox box{{c.centre, c.centre, c.centre}, c.threshold};
            const auto grey = static_cast<unsigned char>(byte);
            EXPECT_EQ(box.contains({grey, grey, grey}), c.first <= byte && byte <= c.last) << byte;
        }
}

TEST(Crop, CountsFromTheTopLeftCorner) {
    const auto original = greys({"0123", "4501", "2345"});
    const auto cropped = [&](const PictureRegion& region) {
        PictureView picture;
        std::string rows = complaintOf([&] { picture = crop(original, region); });
        for (unsigned y = 0; y < picture.height(); ++y, rows += '|')
            for (unsigned x = 0; x < picture.width(); ++x)
                rows += static_cast<char>('0' + picture.row(y)[x].green / 51);
        return rows;
    };
    const std::pair<PictureRegion, const char*> kCases[] = {
        {{{0U, 0U}, {4U, 3U}}, "0123|4501|2345|"},
        {{{1U, 0U}, {2U, 2U}}, "12|50|"},
        {{{3U, 2U}, {1U, 1U}}, "5|"},
        {{{4U, 3U}, {0U, 0U}}, ""},
        {{{0U, 0U}, {0U, 2U}}, "||"},
        {{{1U, 3U}, {4U, 1U}}, "Value (5) out of bound (4). "},
        {{{0U, 3U}, {4U, 1U}}, "Value (4) out of bound (3). "},
        {{{~0U, 0U}, {2U, 1U}}, "Value (4294967295) out of bound (4). "},
    };
    for (const auto& [region, rows] : kCases)
        EXPECT_EQ(cropped(region), rows);
    EXPECT_EQ(pickColor(original, 3, 0), Color(0.6F, 0.6F, 0.6F));
    EXPECT_EQ(complaintOf([&] { pickColor(original, 4, 3); }), "Value (4) out of bound (4). ");
}

TEST(OpaqueRegion, SurroundsAllOpaquePixels) {
    const std::pair<std::vector<std::string>, PictureRegion> kCases[] = {
        {{"0000", "0010", "0200"}, {{1U, 1U}, {2U, 2U}}},
        {{"1000", "0000", "0001"}, {{0U, 0U}, {4U, 3U}}},
        {{"0000", "0300"}, {{1U, 1U}, {1U, 1U}}},
        {{"0000", "0000"}, {{0U, 0U}, {4U, 2U}}},
    };
    for (const auto& [rows, expected] : kCases) {
        const PictureRegion region = opaqueRegion(greys(rows), ColorBox{{0, 0, 0}, 0});
        EXPECT_EQ(region.origin(), expected.origin());
        EXPECT_EQ(region.extent(), expected.extent());
    }
}

/// One axis of `scale`, in double precision: how much each source sample counts.
double weightOf(unsigned source, unsigned from, unsigned target, unsigned to) {
    if (to <= from) {
        const double begin = std::max(double(source) * to, double(target) * from);
        const double end = std::min((source + 1.0) * to, (target + 1.0) * from);
        return std::max(end - begin, 0.0) / from;
    }
    const double centre = std::clamp((target + 0.5) * from / to - 0.5, 0.0, from - 1.0);
    return std::max(1.0 - std::abs(centre - source), 0.0);
}

TEST(Scale, KeepsGreyAsItIs) {
    const Picture scaled = scale(greys({"05", "05"}, 1), 1, 1);
    EXPECT_EQ(PictureView{scaled}.channels(), 1U);
    EXPECT_EQ(PictureView{scaled}.row(0)[0], (Rgb{128, 128, 128}));
}

TEST(Scale, AveragesOrInterpolates) {
    const unsigned kSizes[][4] = {
        {7, 5, 3, 2}, {4, 4, 4, 4}, {3, 2, 8, 7}, {1, 9, 5, 4}, {30, 20, 1, 13}};
    for (const auto& [fromWidth, fromHeight, width, height] : kSizes) {
        const Picture picture = noise(fromWidth, fromHeight);
        const Picture scaled = scale(picture, width, height);
        const auto blue = [](const PictureView& from, unsigned x, unsigned y) {
            return from.row(y)[x].blue;
        };
        for (unsigned y = 0; y < height; ++y)
            for (unsigned x = 0; x < width; ++x) {
                double sum = 0;
                for (unsigned v = 0; v < fromHeight; ++v)
                    for (unsigned u = 0; u < fromWidth; ++u)
                        sum += weightOf(u, fromWidth, x, width) *
                               weightOf(v, fromHeight, y, height) * blue(picture, u, v);
                EXPECT_NEAR(blue(scaled, x, y), sum, 0.5 + 1e-9);
            }
    }
}

} // namespace
} // namespace VORN
