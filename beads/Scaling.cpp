#include "beads/Scaling.h"

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
template <class Sum>
void reduceRow(std::span<const Sum> columns, const Resampling& across, std::uint64_t total,
               std::span<unsigned char> row) {
    for (std::size_t x = 0; 3 * x < row.size(); ++x) {
        std::array<std::uint64_t, 3> sums{};
        across.forEach(x, [&](std::uint64_t from, std::uint64_t weight) {
            for (std::size_t channel = 0; channel < 3; ++channel)
                sums[channel] += weight * columns[3 * from + channel];
        });
        for (std::size_t channel = 0; channel < 3; ++channel)
            row[3 * x + channel] = static_cast<unsigned char>((sums[channel] + total / 2) / total);
    }
}

template <class Sum>
void scaleRows(const PictureView& picture, const Resampling& down, Signal<3, unsigned char>& out) {
    const Resampling across{picture.size()[1], out.size()[1]};
    const std::uint64_t total = down.total() * across.total();
    const std::size_t rowBytes = std::size_t{3} * picture.size()[1];
    const std::size_t outBytes = std::size_t{3} * out.size()[1];
    std::vector<Sum> columns(rowBytes);
    for (std::size_t y = 0; y < out.size()[2]; ++y) {
        std::ranges::fill(columns, Sum{0});
        down.forEach(y, [&](std::uint64_t from, std::uint64_t weight) {
            accumulate<Sum>(picture.samples().subspan(from * rowBytes, rowBytes),
                            static_cast<Sum>(weight), columns);
        });
        reduceRow<Sum>(columns, across, total, out.samples().subspan(y * outBytes, outBytes));
    }
}

} // namespace

Signal<3, unsigned char> scale(const PictureView& picture, unsigned width, unsigned height) {
    Signal<3, unsigned char> scaled{{3U, width, height}};
    const Resampling down{picture.size()[2], height};
    // Column sums stay below 256 times the total weight of a column.
    constexpr std::uint64_t kNarrow = std::uint64_t{1} << 24;
    if (down.total() <= kNarrow)
        scaleRows<std::uint32_t>(picture, down, scaled);
    else
        scaleRows<std::uint64_t>(picture, down, scaled);
    return scaled;
}

} // namespace VORN
