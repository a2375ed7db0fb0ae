#pragma once

#include "core/PlainArithmetic.h"
#include "core/Serialization.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <type_traits>

namespace VORN {

/// N numbers of type T, stored as S: an owned array T[N], or a pointer to constants kept elsewhere
/// that must outlive the tuple.
template <std::size_t N, class T, class S>
class TupleBase {
public:
    TupleBase() = default;
    explicit TupleBase(const T* borrowed) requires std::is_pointer_v<S> : components_{borrowed} {}
    template <std::convertible_to<T>... Values>
    requires(std::is_array_v<S> && sizeof...(Values) == N) explicit(N == 1)
        TupleBase(Values... values)
        : components_{static_cast<T>(values)...} {}

    /// `index` is 0 to N - 1.
    const T& operator[](std::size_t index) const { return components_[index]; }
    T& operator[](std::size_t index) requires std::is_array_v<S> { return components_[index]; }
    const T* data() const { return components_; }

private:
    S components_{};
};

template <std::size_t N, class T, class S, class R>
bool operator==(const TupleBase<N, T, S>& a, const TupleBase<N, T, R>& b) {
    for (std::size_t i = 0; i < N; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

/// A tuple that stands for a difference or direction.
template <std::size_t N, class T, class S>
class VectorBase : public TupleBase<N, T, S> {
public:
    using TupleBase<N, T, S>::TupleBase;
};

/// A tuple that stands for a position.
template <std::size_t N, class T, class S>
class PointBase : public TupleBase<N, T, S> {
public:
    using TupleBase<N, T, S>::TupleBase;
};

/// Writes the components in order.
template <std::size_t N, class T, class S>
void serializeComponents(const TupleBase<N, T, S>& tuple, Serializer& out) {
    for (std::size_t i = 0; i < N; ++i)
        out.put(tuple[i]);
}

/// A tuple that can be written; the vector and the point below likewise.
template <std::size_t N, class T, class S>
class TupleBaseSerializable : public TupleBase<N, T, S>, public Serializable {
public:
    using TupleBase<N, T, S>::TupleBase;
    void serialize(Serializer& out) const override { serializeComponents(*this, out); }
};

template <std::size_t N, class T, class S>
class VectorBaseSerializable : public VectorBase<N, T, S>, public Serializable {
public:
    using VectorBase<N, T, S>::VectorBase;
    void serialize(Serializer& out) const override { serializeComponents(*this, out); }
};

template <std::size_t N, class T, class S>
class PointBaseSerializable : public PointBase<N, T, S>, public Serializable {
public:
    using PointBase<N, T, S>::PointBase;
    void serialize(Serializer& out) const override { serializeComponents(*this, out); }
};

/// N numbers of its own, all 0 unless given.
template <std::size_t N, class T>
class Tuple : public TupleBaseSerializable<N, T, T[N]> {
public:
    using TupleBaseSerializable<N, T, T[N]>::TupleBaseSerializable;
};

/// A difference or direction.
template <std::size_t N, class T>
class Vector : public VectorBaseSerializable<N, T, T[N]> {
public:
    using VectorBaseSerializable<N, T, T[N]>::VectorBaseSerializable;
};

/// A position.
template <std::size_t N, class T>
class Point : public PointBaseSerializable<N, T, T[N]> {
public:
    using PointBaseSerializable<N, T, T[N]>::PointBaseSerializable;
};

/// Read-only view of N numbers owned by someone else, who must outlive it.
template <std::size_t N, class T>
class TupleConstBorrow : public TupleBase<N, T, const T*> {
public:
    explicit TupleConstBorrow(const T* components) : TupleBase<N, T, const T*>{components} {}
    template <class S>
    explicit TupleConstBorrow(const TupleBase<N, T, S>& tuple) : TupleConstBorrow{tuple.data()} {}
};

/// Read-only view of a vector owned by someone else, who must outlive it.
template <std::size_t N, class T>
class VectorConstBorrow : public VectorBase<N, T, const T*> {
public:
    explicit VectorConstBorrow(const T* components) : VectorBase<N, T, const T*>{components} {}
    template <class S>
    explicit VectorConstBorrow(const VectorBase<N, T, S>& vector)
        : VectorConstBorrow{vector.data()} {}
};

/// Read-only view of the components B to E - 1 of a longer tuple, which must outlive it.
template <std::size_t B, std::size_t E, class T>
class TupleConstSlice : public TupleConstBorrow<E - B, T> {
public:
    template <std::size_t N, class S>
    requires(B < E && E <= N) explicit TupleConstSlice(const TupleBase<N, T, S>& tuple)
        : TupleConstBorrow<E - B, T>{tuple.data() + B} {}
};

template <std::size_t N, class T, class S, class R>
Vector<N, T> operator-(const PointBase<N, T, S>& a, const PointBase<N, T, R>& b) {
    Vector<N, T> difference;
    for (std::size_t i = 0; i < N; ++i)
        difference[i] = a[i] - b[i];
    return difference;
}

template <std::size_t N, class T, class S, class R>
Point<N, T> operator+(const PointBase<N, T, S>& point, const VectorBase<N, T, R>& vector) {
    Point<N, T> sum;
    for (std::size_t i = 0; i < N; ++i)
        sum[i] = point[i] + vector[i];
    return sum;
}

template <std::size_t N, class T, class S>
Vector<N, T> operator*(const VectorBase<N, T, S>& vector, T scalar) {
    Vector<N, T> product;
    for (std::size_t i = 0; i < N; ++i)
        product[i] = vector[i] * scalar;
    return product;
}

/// The squared Euclidean distance, summed in component order from 0.
template <std::size_t N, class T, class S, class R>
T squaredDistance(const PointBase<N, T, S>& a, const PointBase<N, T, R>& b) {
    T sum = 0;
    for (std::size_t i = 0; i < N; ++i)
        sum += (a[i] - b[i]) * (a[i] - b[i]);
    return sum;
}

} // namespace VORN
