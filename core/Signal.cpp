#include "core/Signal.h"

#include <array>

namespace VORN {

template <std::size_t N, class T, class P>
void SinglaBaseSerializable<N, T, P>::SwapDimensions(unsigned a, unsigned b) requires(
    N == 3 && std::same_as<T, unsigned char>) {
    if (a == b)
        return;
    if (a > b)
        return SwapDimensions(b, a);
    for (const unsigned dimension : {a, b})
        if (dimension > 2)
            throw BoundException<unsigned>{kNoOrigin, dimension, 2};
    Signal<3, T> old{this->size()};
    std::ranges::copy(this->samples(), old.samples().begin());
    Tuple<3, unsigned> size = this->size();
    std::swap(size[a], size[b]);
    this->refer(size, this->samples().data());

    std::size_t flat = 0;
    Tuple<3, unsigned> index;
    for (index[2] = 0; index[2] < size[2]; ++index[2])
        for (index[1] = 0; index[1] < size[1]; ++index[1])
            for (index[0] = 0; index[0] < size[0]; ++index[0]) {
                Tuple<3, unsigned> from = index;
                std::swap(from[a], from[b]);
                (*this)[flat++] = old[from];
            }
}

template <std::size_t N, class T, class P>
void SinglaBaseSerializable<N, T, P>::Permute(const Tuple<3, unsigned>& order) requires(
    N == 3 && std::same_as<T, unsigned char>) {
    constexpr unsigned kMissing = 3;
    std::array<unsigned, 3> target{kMissing, kMissing, kMissing}; // the inverse of `source`
    std::array<unsigned, 3> source{order[0], order[1], order[2]};
    for (unsigned k = 0; k < 3; ++k)
        if (source[k] < 3)
            target[source[k]] = k;
    if (std::ranges::find(target, kMissing) != target.end())
        throw UnexpectedValueException{kNoOrigin, "order tuple",
                                       "a tuple with all dimensions represented"};
    for (unsigned t = 0; t < 3; ++t) {
        const unsigned from = source[t];
        if (from == t)
            continue;
        SwapDimensions(from, t);
        std::swap(source[t], source[target[t]]);
        std::swap(target[t], target[from]);
    }
}

template class SinglaBaseSerializable<3, unsigned char, unsigned char*>;

} // namespace VORN
