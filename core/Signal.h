#pragma once

#include "core/CheckedSize.h"
#include "core/Exception.h"
#include "core/Tuple.h"

#include <algorithm>
#include <span>
#include <vector>

namespace VORN {

/// The number of samples of a signal; one beyond 64 bits is an `AllocateException`.
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
    SignalBase() = default;
    SignalBase(const Tuple<N, unsigned>& size, P samples) : size_{size}, samples_{samples} {}

    const Tuple<N, unsigned>& size() const { return size_; }
    std::size_t count() const { return static_cast<std::size_t>(sampleCount(size_)); }

    /// All samples; `flat` indices count from 0 in storage order.
    std::span<const T> samples() const { return {samples_, count()}; }
    const T& operator[](std::size_t flat) const { return samples_[flat]; }
    const T& operator[](const Tuple<N, unsigned>& index) const { return samples_[flatten(index)]; }

protected:
    P data() const { return samples_; }
    std::size_t flatten(const Tuple<N, unsigned>& index) const {
        std::size_t flat = 0;
        for (std::size_t i = N; i-- > 0;)
            flat = flat * size_[i] + index[i];
        return flat;
    }
    void refer(const Tuple<N, unsigned>& size, P samples) {
        size_ = size;
        samples_ = samples;
    }

private:
    Tuple<N, unsigned> size_;
    P samples_ = nullptr;
};

/// A signal whose samples can be changed, and its size too where it owns them.
template <std::size_t N, class T, class P>
class SinglaBaseSerializable : public SignalBase<N, T, P>, public Serializable {
public:
    using SignalBase<N, T, P>::SignalBase;
    using SignalBase<N, T, P>::samples;
    using SignalBase<N, T, P>::operator[];

    std::span<T> samples() { return {this->data(), this->count()}; }
    T& operator[](std::size_t flat) { return this->data()[flat]; }
    T& operator[](const Tuple<N, unsigned>& index) { return this->data()[this->flatten(index)]; }

    /// Sets a new size; the samples keep their flat indices as far as there is room, new ones have
    /// no defined value.
    virtual void Resize(const Tuple<N, unsigned>& size) = 0;

    /// Exchanges the dimensions `a` and `b`, size and samples; equal ones, whatever they are, stay
    /// as they are. One above 2 is a `BoundException`, of the smaller one where both are.
    void SwapDimensions(unsigned a, unsigned b) requires(N == 3 && std::same_as<T, unsigned char>);
    /// New dimension k becomes old dimension `order[k]`; what is not a permutation of 0, 1, 2 is an
    /// `UnexpectedValueException`.
    void Permute(const Tuple<3, unsigned>& order) requires(N == 3 &&
                                                           std::same_as<T, unsigned char>);

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
    Signal() = default;
    explicit Signal(const Tuple<N, unsigned>& size) { Signal::Resize(size); }
    Signal(const Signal& other) : storage_{other.storage_} { refer(other.size()); }
    Signal(Signal&& other) noexcept : storage_{std::move(other.storage_)} {
        refer(other.size());
        other.refer({});
    }
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

/// Samples owned elsewhere, which must outlive the view; its size can only stay as it is.
template <std::size_t N, class T>
class SignalBorrow : public SinglaBaseSerializable<N, T, T*> {
public:
    using SinglaBaseSerializable<N, T, T*>::SinglaBaseSerializable;

    /// Any size but its own is a `SignalSizeException`.
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
    template <class P>
    explicit SignalConstBorrow(const SignalBase<N, T, P>& signal)
        : SignalBase<N, T, const T*>{signal.size(), signal.samples().data()} {}
};

extern template class SinglaBaseSerializable<3, unsigned char, unsigned char*>;

} // namespace VORN
