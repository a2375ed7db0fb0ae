// The clever loops of the JPEG decoder against their plain twins.

#include "core/Exception.h"
#include "migration/jpeg/CoefficientStore.h"
#include "migration/jpeg/ColorConversion.h"
#include "migration/jpeg/HuffmanTable.h"
#include "migration/jpeg/InverseDct.h"
#include "migration/jpeg/Upsampling.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <numeric>
#include <random>

namespace VORN::Migration::JPEG {
namespace {

// ITU-T T.81, clause A.3.3, as it stands there; `frequencies` by [vertical][horizontal].
double exactSample(const double (&frequencies)[8][8], int x, int y) {
    double sum = 0;
    for (int v = 0; v < 8; ++v)
        for (int u = 0; u < 8; ++u)
            sum += (u == 0 ? std::numbers::sqrt2 / 2 : 1) * (v == 0 ? std::numbers::sqrt2 / 2 : 1) *
                   frequencies[v][u] * std::cos((2 * x + 1) * u * std::numbers::pi / 16) *
                   std::cos((2 * y + 1) * v * std::numbers::pi / 16);
    return std::clamp(std::round(sum / 4 + 128), 0.0, 255.0);
}

TEST(JPEGInverseDct, IsWithinOneOfTheExactTransform) {
    std::mt19937 random{1};
    for (const auto& [step, bound] : std::map<int, int>{{1, 1024}, {16, 64}, {255, 4}}) {
        Bytes parameters(65, static_cast<std::uint8_t>(step));
        parameters[0] = 0;
        Segment segment{parameters};
        const InverseDct inverse{QuantizationTable{segment}};
        for (unsigned round = 0; round < 400; ++round) {
            CoefficientBlock block{};
            double frequencies[8][8] = {};
            for (unsigned count = round % 65; count > 0; --count) {
                const std::size_t place = random() % 64;
                block[place] =
                    static_cast<std::int16_t>(static_cast<int>(random() % (2 * bound + 1)) - bound);
                frequencies[place % 8][place / 8] = block[place] * step;
            }
            std::uint8_t samples[8][8];
            inverse.transform(block, samples[0], 8);
            for (int y = 0; y < 8; ++y)
                for (int x = 0; x < 8; ++x)
                    ASSERT_NEAR(samples[y][x], exactSample(frequencies, x, y), 1);
        }
    }
}

TEST(JPEGColor, IsTheFloatFormulaForAllColors) {
    const auto toByte = [](float value) {
        return static_cast<std::uint8_t>(std::clamp(value, 0.0F, 255.0F));
    };
    Bytes y(256);
    std::iota(y.begin(), y.end(), std::uint8_t{0});
    for (int blue = 0; blue < 256; ++blue)
        for (int red = 0; red < 256; ++red) {
            Bytes pixels(3 * 256);
            convertLine(y, Bytes(256, static_cast<std::uint8_t>(blue)),
                        Bytes(256, static_cast<std::uint8_t>(red)), pixels);
            const auto cb = static_cast<float>(blue - 128);
            const auto cr = static_cast<float>(red - 128);
            Bytes expected;
            for (const float luminance : y)
                append(expected, std::array{toByte(luminance + 1.402F * cr),
                                            toByte(luminance - 0.3441F * cb - 0.7141F * cr),
                                            toByte(luminance + 1.772F * cb)});
            ASSERT_EQ(pixels, expected) << blue << ' ' << red;
        }
}

TEST(JPEGColor, WritesNothingBehindItsLine) {
    for (std::size_t width : {1U, 2U, 255U, 256U, 257U, 513U}) {
        Bytes pixels(3 * width + 1, 77);
        const Bytes grey(width, 128);
        convertLine(grey, grey, grey, std::span{pixels}.first(3 * width));
        EXPECT_EQ(std::ranges::count(pixels, 128), static_cast<std::ptrdiff_t>(3 * width));
        EXPECT_EQ(pixels.back(), 77);
    }
}

TEST(JPEGUpsampling, BlendsThreeQuartersAndOneQuarter) {
    std::mt19937 random{2};
    for (std::size_t width = 2; width < 40; ++width) {
        Bytes nearLine(width), farLine(width), halves[2]{Bytes(width), Bytes(width)};
        Bytes across(2 * width), both(2 * width);
        for (Bytes* line : {&nearLine, &farLine})
            std::ranges::generate(*line, [&] { return static_cast<std::uint8_t>(random()); });
        std::vector<std::uint16_t> sums(width);
        addLines(nearLine, farLine, sums);
        enlargeDown(sums, Half::First, halves[0]);
        enlargeDown(sums, Half::Second, halves[1]);
        enlargeAcross(nearLine, across);
        enlargeBoth(sums, both);
        for (std::size_t i = 0; i < 2 * width; ++i) {
            const std::size_t at = i / 2;
            const std::size_t beside = i % 2 == 0 ? at - (at > 0) : std::min(at + 1, width - 1);
            const int sum = 3 * nearLine[at] + farLine[at];
            const int sumBeside = 3 * nearLine[beside] + farLine[beside];
            const int odd = static_cast<int>(i % 2);
            ASSERT_EQ(halves[odd][at], (sum + 1 + odd) / 4);
            ASSERT_EQ(across[i], (3 * nearLine[at] + nearLine[beside] + 1 + odd) / 4);
            ASSERT_EQ(both[i], (3 * sum + sumBeside + 8 - odd) / 16);
        }
    }
}

TEST(JPEGHuffmanTable, FindsTheSymbolOfEveryCode) {
    // Codes of all lengths, counted up as in ITU-T T.81, annex C; their symbols are 0, 1, 2 ...
    Bytes parameters{0x10, 0, 1, 2, 1, 3, 4, 2, 5, 6, 7, 9, 11, 13, 20, 30, 40};
    for (unsigned i = 0; i < 154; ++i)
        parameters.push_back(static_cast<std::uint8_t>(i));
    Segment segment{parameters};
    const HuffmanTable table{segment};
    unsigned symbol = 0;
    unsigned code = 0;
    for (unsigned length = 1; length <= 16; ++length, code <<= 1)
        for (unsigned i = 0; i < parameters[length]; ++i, ++code, ++symbol) {
            const unsigned word = code << (16 - length);
            Bytes data;
            for (const unsigned byte : {word >> 8, word & 255, 0x80U}) {
                data.push_back(static_cast<std::uint8_t>(byte));
                if (byte == 0xFF)
                    data.push_back(0);
            }
            ByteUnstuffer bits{data};
            EXPECT_EQ(table.takeSymbol(bits), symbol);
            EXPECT_EQ(bits.take(16 - length), 0U);
            EXPECT_TRUE(bits.takeBit());
        }
}

TEST(CoefficientStore, FindsTheNextBlockAsBlockByBlock) {
    std::mt19937 random{4};
    for (std::size_t blocks : {1U, 64U, 65U, 1000U}) {
        CoefficientStore store{blocks};
        for (unsigned count = 0; count < 20; ++count)
            store.addToMask(random() % blocks, std::uint64_t{2} << random() % 63);
        for (unsigned round = 0; round < 300; ++round) {
            const std::uint64_t band = std::uint64_t{0xFFE} << random() % 52;
            const std::size_t end = random() % (blocks + 1);
            const std::size_t begin = random() % (end + 1);
            std::size_t expected = begin;
            while (expected < end && (store.mask(expected) & band) == 0)
                ++expected;
            ASSERT_EQ(store.find(band, begin, end), expected);
        }
    }
}

TEST(ByteUnstuffer, GivesBackTheBytesItDidNotUse) {
    const Bytes data{0xFF, 0x00, 0x12, 0xFF, 0x00, 0xFF, 0x00, 0x34, 0xFF, 0xD9};
    const std::size_t kRests[] = {10, 8, 7, 5, 3, 2}; // by bytes taken
    for (unsigned taken = 0; taken <= 5; ++taken) {
        ByteUnstuffer bits{data};
        for (unsigned i = 0; i < 8 * taken; ++i)
            bits.takeBit();
        EXPECT_EQ(bits.rest().size(), kRests[taken]);
        if (taken < 5) {
            bits.takeBit(); // a byte begun is a byte used
            EXPECT_EQ(bits.rest().size(), kRests[taken + 1]);
        }
    }
}

} // namespace
} // namespace VORN::Migration::JPEG
