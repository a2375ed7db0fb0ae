#pragma once

#include "core/Tuple.h"

namespace VORN {

/// An ellipsoid with its axes along the coordinate axes, its surface included.
template <std::size_t N, class T>
class Hyperellipsoid : public Serializable {
public:
    Hyperellipsoid() = default;
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
