#include "beads/LayerDrawing.h"
#include "tests/Complaint.h"
#include "tests/beads/TextFiles.h"

#include <gtest/gtest.h>

#include <random>

namespace VORN {
namespace {

TEST(DrawDisc, PaintsThePixelsWhoseCentresItHolds) {
    std::mt19937 random{1};
    std::uniform_real_distribution<float> place{-4, 14};
    std::uniform_real_distribution<float> size{0, 6};
    for (int i = 0; i < 300; ++i) {
        const bool isExact = i % 3 == 0; // centres and radii that meet pixel centres
        const Point<2, float> centre{isExact ? std::floor(place(random)) : place(random),
                                     isExact ? std::floor(place(random)) : place(random)};
        const float radius = isExact ? std::floor(size(random)) + 0.5F : size(random);
        Signal<3, unsigned char> picture{{3U, 11U, 9U}};
        drawDisc(picture, centre, radius, {1, 0, 0.2F});
        for (unsigned y = 0; y < 9; ++y)
            for (unsigned x = 0; x < 11; ++x) {
                const double dx = x + 0.5 - centre[0];
                const double dy = y + 0.5 - centre[1];
                const bool isPainted = dx * dx + dy * dy <= double{radius} * radius;
                ASSERT_EQ((picture[{0U, x, y}]), isPainted ? 255 : 0);
                ASSERT_EQ((picture[{2U, x, y}]), isPainted ? 51 : 0);
            }
    }
}

/// The red samples of a drawn layer, from the top row on: "#" for 255, "-" for the background.
std::string drawn(const std::string& patternFile, float beadSize) {
    Pattern pattern;
    readText(pattern, patternFile);
    Palette palette;
    palette.Set('a', {1, 0, 0});
    palette.Set('b', {0, 1, 0});
    Signal<3, unsigned char> picture;
    drawLayer(pattern, 0, palette, beadSize, {0.5F, -1, 2}, picture);
    std::string rows;
    for (unsigned y = picture.size()[2]; y-- > 0; rows += '\n')
        for (unsigned x = 0; x < picture.size()[1]; ++x) {
            const unsigned char red = picture[{0U, x, y}];
            rows += red == 255 ? '#' : red == 127 ? '-' : '0';
        }
    return rows;
}

TEST(DrawLayer, DrawsDiscsUpright) {
    // A pitch is 2 pixels and a radius 0.8, more than the 0.71 to the centres of four pixels.
    EXPECT_EQ(drawn("square\n\na.\nab\n", 1.6F), "##--\n##--\n##00\n##00\n");
    EXPECT_EQ(drawn("circle\n\n.\n......\n", 1.6F),
              "------\n------\n------\n------\n------\n------\n");
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
