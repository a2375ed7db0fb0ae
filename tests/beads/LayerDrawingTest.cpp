#include "beads/LayerDrawing.h"
#include "beads/BeadGeometry.h"
#include "beads/DiscPainting.h"
#include "tests/Complaint.h"
#include "tests/beads/TextFiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace VORN {
namespace {

TEST(Disc, HoldsThePixelsWhoseCentresLieInIt) {
    std::mt19937 random{1};
    std::uniform_real_distribution<float> place{0, 1};
    std::uniform_real_distribution<float> size{0, 6};
    for (int i = 0; i < 300; ++i) {
        const bool isExact = i % 3 == 0; // centres and radii that meet pixel centres
        const float x = isExact ? 0 : place(random);
        const float y = isExact ? 0.5F : place(random);
        const float radius = isExact ? std::floor(size(random)) + 0.5F : size(random);
        const Disc disc{x, y, radius};
        for (std::int64_t row = -8; row < 9; ++row)
            for (std::int64_t column = -8; column < 9; ++column) {
                const double dx = static_cast<double>(column) + 0.5 - x;
                const double dy = static_cast<double>(row) + 0.5 - y;
                const bool isHeld = disc.firstRow() <= row && row < disc.lastRow() &&
                                    disc.run(row).first <= column && column < disc.run(row).last;
                ASSERT_EQ(isHeld, dx * dx + dy * dy <= double{radius} * radius);
            }
    }
}

/// A layer as discs, painted one by one on a picture of background, from the top left corner on.
std::vector<Rgb> drawnPlainly(const LayerView& layer, const Palette& palette, float beadSize,
                              const Rgb& background) {
    const BeadGeometry geometry{layer.shape};
    const LayerFrame frame{geometry.box(), beadSize};
    std::vector<Rgb> pixels(std::size_t{frame.width()} * frame.height(), background);
    for (const Bead& bead : layer.beads()) {
        if (!palette.Contains(layer.content[bead.position]))
            continue;
        const Point<2, float> centre = frame.toPicture(geometry.position(bead));
        for (unsigned y = 0; y < frame.height(); ++y)
            for (unsigned x = 0; x < frame.width(); ++x) {
                const double dx = x + 0.5 - centre[0];
                const double dy = y + 0.5 - centre[1];
                const double radius = 0.5F * beadSize;
                if (dx * dx + dy * dy <= radius * radius)
                    pixels[(frame.height() - 1 - y) * std::size_t{frame.width()} + x] =
                        toRgb(palette.Get(layer.content[bead.position]));
            }
    }
    return pixels;
}

TEST(DrawLayer, PaintsEveryDiscWhereItLies) {
    Palette palette;
    palette.Set('a', {1, 0, 0});
    palette.Set('b', {0, 1, 0.5F});
    Picture picture;
    for (const char* file :
         {"square\n\nab.ab\n.abba\nbbaa.\n", "hex\n\na b . a \n b a . b\n. a b b \n",
          "circle\n\na\nbab.ab\nabbab.bbaaba\n", "hex\n\na b\n b \na  \n"})
        for (const float beadSize : {1.51F, 3.37F, 5.0F, 8.0F}) {
            Pattern pattern;
            readText(pattern, file);
            drawLayer(pattern.view(0), palette, beadSize, {0, 0, 1}, picture);
            std::vector<Rgb> pixels;
            for (unsigned y = 0; y < picture.height(); ++y)
                for (unsigned x = 0; x < picture.width(); ++x)
                    pixels.push_back(PictureView{picture}.row(y)[x]);
            EXPECT_EQ(pixels, drawnPlainly(pattern.view(0), palette, beadSize, {0, 0, 255}))
                << file;
        }
}

/// The red samples of a drawn layer, from the top row on: "#" for 255, "-" for the background.
std::string drawn(const std::string& patternFile, float beadSize) {
    Pattern pattern;
    readText(pattern, patternFile);
    Palette palette;
    palette.Set('a', {1, 0, 0});
    palette.Set('b', {0, 1, 0});
    Picture picture;
    drawLayer(pattern.view(0), palette, beadSize, {0.5F, -1, 2}, picture);
    std::string rows;
    for (unsigned y = 0; y < picture.height(); ++y, rows += '\n')
        for (unsigned x = 0; x < picture.width(); ++x) {
            const unsigned char red = PictureView{picture}.row(y)[x].red;
            rows += red == 255 ? '#' : red == 127 ? '-' : '0';
        }
    return rows;
}

TEST(DrawLayer, DrawsDiscsUpright) {
    // A pitch is 2 pixels and a radius 0.8, more than the 0.71 to the centres of four pixels.
    EXPECT_EQ(drawn("square\n\na.\nab\n", 1.6F), "##--\n##--\n##00\n##00\n");
}

TEST(DrawLayer, TakesTheBeadNearestToThePixelsCorner) {
    // With a pitch of 1, columns lie between two beads, of which the one to the left is taken; rows
    // count from the bottom, where the bead above is.
    EXPECT_EQ(drawn("square\n\nab.\nba.\n..b\n", 0.8F), "##0\n00#\n---\n");
}

TEST(LayerFrame, GrowsWithTheBeadSize) {
    const Hyperrectangle<2, float> box{{0, 0}, {28, 9}};
    const struct {
        float beadSize;
        unsigned width, height;
    } kCases[] = {{0.8F, 29, 10}, {4, 145, 50}, {1.5F, 55, 19}, {1e-30F, 1, 1}};
    for (const auto& c : kCases) {
        const LayerFrame frame{box, c.beadSize};
        EXPECT_EQ(frame.width(), c.width);
        EXPECT_EQ(frame.height(), c.height);
        const Point<2, float> place = frame.toBeads(frame.toPicture({3, 4}));
        EXPECT_NEAR(place[0], 3, 1e-5);
        EXPECT_NEAR(place[1], 4, 1e-5);
    }
    for (const float beadSize : {2e8F, 1e30F, 3e38F})
        EXPECT_EQ(complaintOf([&] { LayerFrame{box, beadSize}; }), "Failed to allocate picture. ");
}

} // namespace
} // namespace VORN
