#include "beads/Scaling.h"

#include <vector>

namespace VORN {

namespace {

/// How the samples of one axis are made of source samples, with whole weights.
class Resampling {
public:
    Resampling(std::uint64_t source, std::uint64_t target) : source_{source}, target_{target} {}

    /// The sum of the weights of every target sample.
    std::uint64_t total() const { return shrinks() ? source_ : 2 * target_; }

    /// Calls `visit(sourceIndex, weight)` for the source samples that `target` is made of.
    template <class Visit>
    void forEach(std::uint64_t target, Visit visit) const {
        if (shrinks())
            forEachCovered(target, visit);
        else
            forEachNeighbour(target, visit);
    }

private:
    bool shrinks() const { return target_ <= source_; }

    // In units of which a source sample takes `target_` and a target sample `source_`.
    template <class Visit>
    void forEachCovered(std::uint64_t target, Visit visit) const {
        const std::uint64_t begin = target * source_;
        const std::uint64_t end = begin + source_;
        for (std::uint64_t s = begin / target_; s * target_ < end; ++s)
            visit(s, std::min((s + 1) * target_, end) - std::max(s * target_, begin));
    }

    // In units of which a source sample takes 2 `target_`; the ends of the axis are repeated.
    template <class Visit>
    void forEachNeighbour(std::uint64_t target, Visit visit) const {
        const std::uint64_t unit = 2 * target_;
        const std::uint64_t doubled = (2 * target + 1) * source_; // centre, half a sample too far
        const std::uint64_t last = (source_ - 1) * unit;
        const std::uint64_t at = doubled > target_ ? std::min(doubled - target_, last) : 0;
        visit(at / unit, unit - at % unit);
        if (at % unit != 0)
            visit(at / unit + 1, at % unit);
    }

    std::uint64_t source_;
    std::uint64_t target_;
};

/// Adds `weight` times each sample of `row` to `sums`.
template <class Sum>
void accumulate(std::span<const unsigned char> row, Sum weight, std::span<Sum> sums) {
    const unsigned char* samples = row.data();
    Sum* const totals = sums.data();
    for (std::size_t i = 0; i < row.size(); ++i)
        totals[i] += weight * samples[i];
}

/// Makes the pixels of one target row out of the weighted column sums of its source rows.
template <class Sum, unsigned Channels>
void reduceRow(std::span<const Sum> columns, const Resampling& across, std::uint64_t total,
               std::span<unsigned char> row) {
    for (std::size_t x = 0; Channels * x < row.size(); ++x) {
        std::array<std::uint64_t, Channels> sums{};
        across.forEach(x, [&](std::uint64_t from, std::uint64_t weight) {
            for (std::size_t channel = 0; channel < Channels; ++channel)
                sums[channel] += weight * columns[Channels * from + channel];
        });
        for (std::size_t channel = 0; channel < Channels; ++channel)
            row[Channels * x + channel] =
                static_cast<unsigned char>((sums[channel] + total / 2) / total);
    }
}

template <class Sum, unsigned Channels>
void scaleRows(const PictureView& picture, const Resampling& down, Picture& out) {
    const Resampling across{picture.width(), out.width()};
    const std::uint64_t total = down.total() * across.total();
    std::vector<Sum> columns(std::size_t{Channels} * picture.width());
    // Weights lean neither up nor down, so counting rows from the top or the bottom is the same.
    for (std::size_t y = 0; y < out.height(); ++y) {
        std::ranges::fill(columns, Sum{0});
        down.forEach(y, [&](std::uint64_t from, std::uint64_t weight) {
            accumulate<Sum>(picture.row(from).samples(), static_cast<Sum>(weight), columns);
        });
        reduceRow<Sum, Channels>(columns, across, total, out.rowSamples(y));
    }
}

} // namespace

Picture scale(const PictureView& picture, unsigned width, unsigned height) {
    Picture scaled{width, height, picture.channels()};
    const Resampling down{picture.height(), height};
    const bool isGrey = picture.channels() == 1;
    // Column sums stay below 256 times the total weight of a column.
    constexpr std::uint64_t kNarrow = std::uint64_t{1} << 24;
    if (down.total() <= kNarrow)
        (isGrey ? scaleRows<std::uint32_t, 1> : scaleRows<std::uint32_t, 3>)(picture, down, scaled);
    else
        (isGrey ? scaleRows<std::uint64_t, 1> : scaleRows<std::uint64_t, 3>)(picture, down, scaled);
    return scaled;
}

} // namespace VORN
