#include "beads/PictureConversion.h"
#include "beads/Scaling.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace VORN {
namespace {

/// A picture of greys, given from the top row on, digits 0 to 5 standing for 0, 51, ... 255.
Signal<3, unsigned char> greys(std::initializer_list<const char*> rows) {
    const auto height = static_cast<unsigned>(rows.size());
    const auto width = static_cast<unsigned>(std::string_view{*rows.begin()}.size());
    Signal<3, unsigned char> picture{{3U, width, height}};
    unsigned fromTop = 0;
    for (const char* row : rows) {
        for (unsigned x = 0; x < width; ++x)
            for (unsigned c = 0; c < 3; ++c)
                picture[{c, x, height - 1 - fromTop}] =
                    static_cast<unsigned char>(51 * (row[x] - '0'));
        ++fromTop;
    }
    return picture;
}

/// The symbols "0" to "5" for the greys of `greys`.
Palette greyPalette() {
    Palette palette;
    for (int i = 0; i < 6; ++i) {
        const float grey = toComponent(static_cast<unsigned char>(51 * i));
        palette.Set(static_cast<unsigned char>('0' + i), {grey, grey, grey});
    }
    return palette;
}

std::string matched(const Signal<3, unsigned char>& picture, PatternStyle style, unsigned size,
                    const std::optional<ColorBox>& transparent = {}) {
    Pattern pattern;
    pattern.style = style;
    pattern.AddFilledLayer({size, size}, kNoBead);
    matchBeads(PictureView{picture}, {greyPalette(), {}}, transparent, pattern);
    return pattern.layer(0).content;
}

TEST(MatchBeads, KeepsThePictureUpright) {
    const auto picture = greys({"012", "345", "543"});
    EXPECT_EQ(matched(picture, PatternStyle::Square, 3), "012345543");
    EXPECT_EQ(matched(picture, PatternStyle::Square, 2), "0253");
    // Rows of a hex layer end half a bead apart from each other; blanks stay.
    EXPECT_EQ(matched(greys({"05", "05"}), PatternStyle::Hex, 2), "0 3  2 5");
    // The first ring goes around from the right, by way of the bottom, which is row 1 here.
    EXPECT_EQ(matched(greys({"000", "000", "555"}), PatternStyle::Circle, 2), "0044000");
    EXPECT_EQ(matched(greys({"005", "005", "005"}), PatternStyle::Circle, 2), "0520002");
}

TEST(MatchBeads, LosesNoBeadAtTheEdge) {
    const Signal<3, unsigned char> picture = greys({"55555", "55555", "55555", "55555", "55555"});
    for (const auto style : {PatternStyle::Square, PatternStyle::Hex, PatternStyle::Circle})
        for (unsigned size = 1; size < 40; ++size)
            EXPECT_EQ(matched(picture, style, size).find('.'), std::string::npos);
}

TEST(MatchBeads, LeavesTransparentBeadsOut) {
    const auto picture = greys({"012", "345"});
    Pattern pattern;
    pattern.AddFilledLayer({3U, 2U}, kNoBead);
    matchBeads(PictureView{picture}, {greyPalette(), {}}, ColorBox{{0.3F, 0.3F, 0.3F}, 0.15F},
               pattern);
    EXPECT_EQ(pattern.layer(0).content, "0..345");
    EXPECT_EQ(matched({}, PatternStyle::Circle, 2), ".......");
}

TEST(ColorBox, RoundsOutwards) {
    const struct {
        float centre;
        float threshold;
        unsigned first; // byte inside
        unsigned last;
    } kCases[] = {{0.2F, 0, 51, 51}, {0.5F, 0, 127, 128}, {0.5F, 0.1F, 102, 153},
                  {0, 0.05F, 0, 13}, {1, 3e38F, 0, 255},  {0.5F, -0.1F, 256, 255}};
    for (const auto& c : kCases) {
        const ColorBox box{{c.centre, c.centre, c.centre}, c.threshold};
        for (unsigned byte = 0; byte < 256; ++byte) {
            const auto b = static_cast<unsigned char>(byte);
            const unsigned char rgb[] = {b, b, b};
            EXPECT_EQ(box.contains(rgb), c.first <= byte && byte <= c.last) << byte;
        }
    }
}

/// Error diffusion as it is defined, without any haste.
std::string ditheredByWalk(const PictureView& picture, const PaletteMatcher& matcher) {
    const unsigned width = picture.size()[1];
    std::vector<Color> buffer(width);
    Color running;
    std::string symbols;
    for (unsigned y = picture.size()[2]; y-- > 0;) {
        buffer.back() = running;
        running = {};
        for (unsigned x = 0; x < width; ++x) {
            Color q;
            for (unsigned c = 0; c < 3; ++c) {
                float sum = toComponent(picture[{c, x, y}]) + 0.4375F * running[c];
                sum = sum + 0.3125F * buffer[x][c];
                if (x >= 2)
                    sum = sum + 0.1875F * buffer[x - 1][c];
                if (x + 1 < width)
                    sum = sum + 0.0625F * buffer[x + 1][c];
                q[c] = sum;
            }
            const auto [symbol, color] = matcher.match(q);
            symbols += static_cast<char>(symbol);
            if (x >= 2)
                buffer[x - 1] = running;
            running = {q[0] - color[0], q[1] - color[1], q[2] - color[2]};
        }
    }
    return symbols;
}

Signal<3, unsigned char> noise(unsigned width, unsigned height) {
    std::mt19937 random{width * 1000 + height};
    Signal<3, unsigned char> picture{{3U, width, height}};
    for (unsigned char& sample : picture.samples())
        sample = static_cast<unsigned char>(random());
    return picture;
}

TEST(Dither, DiffusesErrorsAsDefined) {
    Palette palette;
    palette.Set('k', {0, 0, 0});
    palette.Set('r', {1, 0.2F, 0});
    palette.Set('w', {1, 1, 1});
    palette.Set('b', {0, 0.1F, 0.9F});
    for (const PaletteMatcher::Weights& weights :
         {PaletteMatcher::Weights{}, PaletteMatcher::Weights{{1, 0.5F, 2}}})
        for (const auto& [width, height] : {std::pair{1U, 9U}, {2U, 9U}, {3U, 5U}, {40U, 30U}}) {
            const auto picture = noise(width, height);
            const PaletteMatcher matcher{palette, weights};
            EXPECT_EQ(dither(PictureView{picture}, matcher),
                      ditheredByWalk(PictureView{picture}, matcher));
        }
    // 0.6 is white; 0.6 - 7/16 of 0.4 black; 0.6 + 7/16 of 0.425 white; 0.6 - 7/16 of 0.214 too.
    Palette blackAndWhite;
    blackAndWhite.Set('k', {0, 0, 0});
    blackAndWhite.Set('w', {1, 1, 1});
    EXPECT_EQ(dither(PictureView{greys({"3333"})}, {blackAndWhite, {}}), "wkww");
}

TEST(Crop, CountsFromTheTopLeftCorner) {
    const auto rowsOf = [](const Signal<3, unsigned char>& picture) {
        std::string rows;
        for (unsigned y = picture.size()[2]; y-- > 0; rows += '|')
            for (unsigned x = 0; x < picture.size()[1]; ++x)
                rows += static_cast<char>('0' + picture[{1U, x, y}] / 51);
        return rows;
    };
    const auto original = greys({"0123", "4501", "2345"});
    const struct {
        PictureRegion region;
        const char* rows;
    } kCases[] = {
        {{{0U, 0U}, {4U, 3U}}, "0123|4501|2345|"},
        {{{1U, 0U}, {2U, 2U}}, "12|50|"},
        {{{3U, 2U}, {1U, 1U}}, "5|"},
        {{{4U, 3U}, {0U, 0U}}, ""},
        {{{0U, 0U}, {0U, 2U}}, "||"},
    };
    for (const auto& c : kCases) {
        Signal<3, unsigned char> picture{original};
        crop(picture, c.region);
        EXPECT_EQ(rowsOf(picture), c.rows);
    }
    const struct {
        PictureRegion region;
        const char* complaint;
    } kRefused[] = {
        {{{1U, 3U}, {4U, 1U}}, "Value (5) out of bound (4). "},
        {{{0U, 3U}, {4U, 1U}}, "Value (4) out of bound (3). "},
        {{{~0U, 0U}, {2U, 1U}}, "Value (4294967295) out of bound (4). "},
    };
    for (const auto& c : kRefused) {
        Signal<3, unsigned char> picture{original};
        EXPECT_EQ(complaintOf([&] { crop(picture, c.region); }), c.complaint);
    }
    EXPECT_EQ(pickColor(PictureView{original}, 3, 0), Color(0.6F, 0.6F, 0.6F));
    EXPECT_EQ(complaintOf([&] { pickColor(PictureView{original}, 4, 3); }),
              "Value (4) out of bound (4). ");
}

TEST(OpaqueRegion, SurroundsAllOpaquePixels) {
    const ColorBox black{{0, 0, 0}, 0};
    const struct {
        std::initializer_list<const char*> rows;
        PictureRegion region;
    } kCases[] = {
        {{"0000", "0010", "0200"}, {{1U, 1U}, {2U, 2U}}},
        {{"1000", "0000", "0001"}, {{0U, 0U}, {4U, 3U}}},
        {{"0000", "0300"}, {{1U, 1U}, {1U, 1U}}},
        {{"0000", "0000"}, {{0U, 0U}, {4U, 2U}}},
    };
    for (const auto& c : kCases) {
        const PictureRegion region = opaqueRegion(PictureView{greys(c.rows)}, black);
        EXPECT_EQ(region.origin(), c.region.origin());
        EXPECT_EQ(region.extent(), c.region.extent());
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

TEST(Scale, AveragesOrInterpolates) {
    const struct {
        Tuple<2, unsigned> from;
        Tuple<2, unsigned> to;
    } kCases[] = {{{7U, 5U}, {3U, 2U}},
                  {{4U, 4U}, {4U, 4U}},
                  {{3U, 2U}, {8U, 7U}},
                  {{1U, 9U}, {5U, 4U}},
                  {{30U, 20U}, {1U, 13U}}};
    for (const auto& c : kCases) {
        const auto picture = noise(c.from[0], c.from[1]);
        const auto scaled = scale(PictureView{picture}, c.to[0], c.to[1]);
        for (unsigned y = 0; y < c.to[1]; ++y)
            for (unsigned x = 0; x < c.to[0]; ++x) {
                double sum = 0;
                for (unsigned v = 0; v < c.from[1]; ++v)
                    for (unsigned u = 0; u < c.from[0]; ++u)
                        sum += weightOf(u, c.from[0], x, c.to[0]) *
                               weightOf(v, c.from[1], y, c.to[1]) * picture[{2U, u, v}];
                EXPECT_NEAR((scaled[{2U, x, y}]), sum, 0.5 + 1e-9);
            }
    }
}

} // namespace
} // namespace VORN
