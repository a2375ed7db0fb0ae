#pragma once

namespace VORN {

/// A point of the unit circle.
struct UnitCirclePoint {
    double cosine;
    double sine;
};

/// The point of the unit circle at `angle`, in radians from -pi to pi.
///
/// Libraries differ in the last digits of their sine and cosine. This kernel uses additions and
/// multiplications only, which are the same on every machine; it is within 2^-52 of the exact
/// values, and also relatively so where a value is close to 0.
UnitCirclePoint unitCirclePoint(double angle);

} // namespace VORN
