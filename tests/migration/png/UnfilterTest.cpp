#include "migration/png/Unfilter.h"
#include "tests/migration/Fixture.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace VORN::Migration::PNG {
namespace {

/// As PNG, clause 9.4, words it.
int paeth(int a, int b, int c) {
    const int p = a + b - c;
    const int pa = std::abs(p - a);
    const int pb = std::abs(p - b);
    const int pc = std::abs(p - c);
    if (pa <= pb && pa <= pc)
        return a;
    return pb <= pc ? b : c;
}

Bytes unfilteredPlainly(unsigned filter, Bytes line, const Bytes& prior, std::size_t pixelBytes) {
    for (std::size_t x = 0; x < line.size(); ++x) {
        const bool isFirst = x < pixelBytes;
        const int a = isFirst ? 0 : line[x - pixelBytes];
        const int b = prior[x];
        const int c = isFirst ? 0 : prior[x - pixelBytes];
        const int predictions[] = {0, a, b, (a + b) / 2, paeth(a, b, c)};
        line[x] = static_cast<std::uint8_t>(line[x] + predictions[filter]);
    }
    return line;
}

TEST(PNGUnfilter, EqualsThePlainFiltersForEveryPixelSize) {
    std::mt19937 random{3};
    for (const std::size_t pixelBytes : {1U, 2U, 3U, 4U, 5U, 6U, 8U, 127U})
        for (unsigned filter = 0; filter < kFilterTypes; ++filter)
            for (const std::size_t pixels : {0U, 1U, 2U, 41U}) {
                SCOPED_TRACE(testing::Message() << "filter " << filter << ", " << pixels
                                                << " pixels of " << pixelBytes << " bytes");
                Bytes line(pixels * pixelBytes);
                Bytes prior(line.size());
                for (std::size_t i = 0; i < line.size(); ++i) {
                    line[i] = static_cast<std::uint8_t>(random());
                    prior[i] = static_cast<std::uint8_t>(random());
                }
                const Bytes expected = unfilteredPlainly(filter, line, prior, pixelBytes);
                unfilterLine(filter, line, prior, pixelBytes);
                EXPECT_EQ(line, expected);
            }
}

TEST(PNGUnfilter, PredictsAsPaethForAllNeighbours) {
    // The first pixel of a line predicts from what is above it, so that filtered bytes of `left`
    // minus `upperLeft` make it `left`; the second is 0 and becomes its prediction.
    for (int left = 0; left < 256; ++left)
        for (int above = 0; above < 256; ++above)
            for (int upperLeft = 0; upperLeft < 256; ++upperLeft) {
                std::array line{static_cast<std::uint8_t>(left - upperLeft), std::uint8_t{0}};
                const std::array prior{static_cast<std::uint8_t>(upperLeft),
                                       static_cast<std::uint8_t>(above)};
                unfilterLine(4, line, prior, 1);
                ASSERT_EQ(line[1], paeth(left, above, upperLeft))
                    << left << ' ' << above << ' ' << upperLeft;
            }
}

} // namespace
} // namespace VORN::Migration::PNG
