#pragma once

namespace VORN {

/// A point of the unit circle.
struct UnitCirclePoint {
    double cosine;
    double sine;
};

/// The point of the unit circle at `angle`, in radians from -pi to pi.
///
/// The standard library's sine and cosine differ from system to system in the last digits. This
/// function only adds, multiplies and divides, which is the same on every machine. Its error is at
/// most 2^-52, and near 0 at most that part of the value.
UnitCirclePoint unitCirclePoint(double angle);

} // namespace VORN
