#include "beads/UnitCircle.h"

#include <array>
#include <cmath>

namespace VORN {

namespace {

// Half of pi as the sum of two doubles. Multiples by -2 to 2 of either are exact.
constexpr double kHalfPi = 0x1.921fb54442d18p0;
constexpr double kHalfPiRest = 0x1.1a62633145c07p-54;

/// The coefficients of the Taylor series whose terms are `x^n / n!` with alternating signs, n being
/// `first`, `first` + 2, ...; the last one is below 1e-18 for |x| up to pi / 4.
consteval std::array<double, 8> seriesFrom(int first) {
    std::array<double, 8> coefficients{};
    double factorial = 1.0;
    for (int n = 2; n <= first; ++n)
        factorial *= n;
    double sign = -1.0;
    for (int k = 0; k < 8; ++k, sign = -sign) {
        coefficients[static_cast<std::size_t>(k)] = sign / factorial;
        factorial *= (first + 2 * k + 1) * (first + 2 * k + 2);
    }
    return coefficients;
}

constexpr std::array<double, 8> kSine = seriesFrom(3);   // behind the term x
constexpr std::array<double, 8> kCosine = seriesFrom(2); // behind the term 1

/// The sum of the `coefficients` times 1, `square`, `square` squared and so on.
double sumOf(const std::array<double, 8>& coefficients, double square) {
    double sum = 0.0;
    for (std::size_t k = coefficients.size(); k-- > 0;)
        sum = sum * square + coefficients[k];
    return sum;
}

} // namespace

UnitCirclePoint unitCirclePoint(double angle) {
    const double quarters = std::floor(angle / kHalfPi + 0.5); // -2 to 2
    // The first difference is exact, as the angle is near the multiple.
    const double x = angle - quarters * kHalfPi - quarters * kHalfPiRest;
    const double square = x * x;
    const double sine = x + x * square * sumOf(kSine, square);
    const double cosine = 1.0 + square * sumOf(kCosine, square);
    switch (static_cast<int>(quarters)) {
    case 0:
        return {cosine, sine};
    case 1:
        return {-sine, cosine};
    case -1:
        return {sine, -cosine};
    default:
        return {-cosine, -sine};
    }
}

} // namespace VORN
