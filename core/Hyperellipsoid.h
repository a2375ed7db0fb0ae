#pragma once

#include "core/Tuple.h"

namespace VORN {

/// An ellipsoid whose axes are parallel to the coordinate axes; its surface belongs to it.
template <std::size_t N, class T>
class Hyperellipsoid : public Serializable {
public:
    /// A single point, the origin.
    Hyperellipsoid() = default;
    /// `semiAxes` holds the radius along each coordinate axis.
    Hyperellipsoid(const Point<N, T>& centre, const Vector<N, T>& semiAxes)
        : centre_{centre},
          semiAxes_{semiAxes} {}

    const Point<N, T>& centre() const { return centre_; }
    const Vector<N, T>& semiAxes() const { return semiAxes_; }

    void serialize(Serializer& out) const override {
        centre_.serialize(out);
        semiAxes_.serialize(out);
    }

private:
    Point<N, T> centre_;
    Vector<N, T> semiAxes_;
};

} // namespace VORN
