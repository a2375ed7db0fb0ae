#pragma once

#include "core/CheckedSize.h"
#include "core/Exception.h"
#include "core/Tuple.h"

#include <concepts>
#include <span>
#include <utility>
#include <vector>

namespace VORN {

/// The number of samples in a signal of that size; more than 64 bits can count are an
/// `AllocateException`.
template <std::size_t N, class S>
std::uint64_t sampleCount(const TupleBase<N, unsigned, S>& size) {
    CheckedSize count = 1;
    for (std::size_t i = 0; i < N; ++i)
        count = count * size[i];
    return count.sizeOf("signal");
}

/// An N-dimensional array of samples, reached through P, a pointer to T or to constant T.
///
/// Samples are contiguous and dimension 0 varies fastest: the sample (i0, i1, i2) of a signal of
/// size (s0, s1, s2) has the index (i2 * s1 + i1) * s0 + i0.
template <std::size_t N, class T, class P>
class SignalBase {
public:
    /// A signal without samples.
    SignalBase() = default;
    /// The signal of that size at `samples`, which must outlive it.
    SignalBase(const Tuple<N, unsigned>& size, P samples) : size_{size}, samples_{samples} {}

    const Tuple<N, unsigned>& size() const { return size_; }
    /// The number of samples.
    std::size_t count() const { return static_cast<std::size_t>(sampleCount(size_)); }

    /// All samples in storage order.
    std::span<const T> samples() const { return {samples_, count()}; }
    /// The sample number `flat` in storage order, from 0 on; not checked.
    const T& operator[](std::size_t flat) const { return samples_[flat]; }
    /// The sample at `index`, which is below the size in each dimension; not checked.
    const T& operator[](const Tuple<N, unsigned>& index) const { return samples_[flatten(index)]; }

protected:
    P data() const { return samples_; }
    /// The number of the sample at `index` in storage order.
    std::size_t flatten(const Tuple<N, unsigned>& index) const {
        std::size_t flat = 0;
        for (std::size_t i = N; i-- > 0;)
            flat = flat * size_[i] + index[i];
        return flat;
    }
    /// Makes this the signal of that size at `samples`, which must outlive it.
    void refer(const Tuple<N, unsigned>& size, P samples) {
        size_ = size;
        samples_ = samples;
    }

private:
    Tuple<N, unsigned> size_;
    P samples_ = nullptr;
};

/// A signal whose samples can be changed and which can be written. One that owns its samples can
/// also change its size.
template <std::size_t N, class T, class P>
class SinglaBaseSerializable : public SignalBase<N, T, P>, public Serializable {
public:
    using SignalBase<N, T, P>::SignalBase;
    using SignalBase<N, T, P>::samples;
    using SignalBase<N, T, P>::operator[];

    /// As the operations of the base, for samples that are to be changed.
    std::span<T> samples() { return {this->data(), this->count()}; }
    /// As above.
    T& operator[](std::size_t flat) { return this->data()[flat]; }
    /// As above.
    T& operator[](const Tuple<N, unsigned>& index) { return this->data()[this->flatten(index)]; }

    /// Sets a new size. Samples keep their number in storage order as far as there is room; new
    /// ones have no defined value.
    virtual void Resize(const Tuple<N, unsigned>& size) = 0;

    /// Exchanges the dimensions `a` and `b`: their sizes, and the samples with them. Nothing
    /// happens if they are equal, whatever their value. A dimension above 2 is a `BoundException`;
    /// if both are above, it names the smaller one.
    void SwapDimensions(unsigned a, unsigned b)
        requires(N == 3 && std::same_as<T, unsigned char>);
    /// Reorders the dimensions: new dimension k is old dimension `order[k]`. An order that is no
    /// permutation of 0, 1 and 2 is an `UnexpectedValueException`.
    void Permute(const Tuple<3, unsigned>& order)
        requires(N == 3 && std::same_as<T, unsigned char>);

    void serialize(Serializer& out) const override {
        this->size().serialize(out);
        for (const T& sample : this->samples())
            out.put(sample);
    }
};

/// A signal that owns its samples, all 0 at first.
template <std::size_t N, class T>
class Signal : public SinglaBaseSerializable<N, T, T*> {
public:
    /// A signal without samples.
    Signal() = default;
    /// A signal of that size; too large a one is an `AllocateException` or a `std::bad_alloc`.
    explicit Signal(const Tuple<N, unsigned>& size) { Signal::Resize(size); }
    /// Copies the samples.
    Signal(const Signal& other) : storage_{other.storage_} { refer(other.size()); }
    /// Takes over the samples; `other` has none afterwards.
    Signal(Signal&& other) noexcept : storage_{std::move(other.storage_)} {
        refer(other.size());
        other.refer({});
    }
    /// Takes over the samples of the argument, which is a copy unless it was moved.
    Signal& operator=(Signal other) noexcept {
        storage_.swap(other.storage_);
        refer(other.size());
        return *this;
    }
    ~Signal() override = default;

    void Resize(const Tuple<N, unsigned>& size) override {
        const std::uint64_t count = sampleCount(size);
        if (count > storage_.max_size())
            throw AllocateException{kNoOrigin, "signal"};
        storage_.resize(static_cast<std::size_t>(count));
        refer(size);
    }

private:
    void refer(const Tuple<N, unsigned>& size) {
        SinglaBaseSerializable<N, T, T*>::refer(size, storage_.data());
    }

    std::vector<T> storage_;
};

/// View of samples owned elsewhere, which must outlive it. Samples can be changed, the size cannot.
template <std::size_t N, class T>
class SignalBorrow : public SinglaBaseSerializable<N, T, T*> {
public:
    using SinglaBaseSerializable<N, T, T*>::SinglaBaseSerializable;

    /// Any size but the present one is a `SignalSizeException`.
    void Resize(const Tuple<N, unsigned>& size) override {
        if (!(size == this->size()))
            throw SignalSizeException{kNoOrigin};
    }
};

/// Read-only view of samples owned elsewhere, which must outlive it.
template <std::size_t N, class T>
class SignalConstBorrow : public SignalBase<N, T, const T*> {
public:
    using SignalBase<N, T, const T*>::SignalBase;
    /// A view of all samples of `signal`.
    template <class P>
    explicit SignalConstBorrow(const SignalBase<N, T, P>& signal)
        : SignalBase<N, T, const T*>{signal.size(), signal.samples().data()} {}
};

extern template class SinglaBaseSerializable<3, unsigned char, unsigned char*>;

} // namespace VORN
