#pragma once

#include "core/Tuple.h"

#include <concepts>

namespace VORN {

/// A box, from its origin up to, but not including, origin + extent.
template <std::size_t N, class T>
class Hyperrectangle : public Serializable {
public:
    Hyperrectangle() = default;
    Hyperrectangle(const Point<N, T>& origin, const Vector<N, T>& extent)
        : origin_{origin},
          extent_{extent} {}

    const Point<N, T>& origin() const { return origin_; }
    const Vector<N, T>& extent() const { return extent_; }

    /// origin + extent * 0.5.
    Point<N, T> centre() const requires std::floating_point<T> {
        return origin_ + extent_ * static_cast<T>(0.5);
    }
    /// Whether origin <= point < origin + extent in every dimension.
    template <class S>
    bool contains(const PointBase<N, T, S>& point) const {
        for (std::size_t i = 0; i < N; ++i)
            if (!(origin_[i] <= point[i] && point[i] < origin_[i] + extent_[i]))
                return false;
        return true;
    }
    void serialize(Serializer& out) const override {
        origin_.serialize(out);
        extent_.serialize(out);
    }

private:
    Point<N, T> origin_;
    Vector<N, T> extent_;
};

} // namespace VORN
