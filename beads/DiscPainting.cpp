#include "beads/DiscPainting.h"

#include "beads/BeadGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace VORN {

namespace {

/// A coordinate in the picture, parted into a pixel and the way from the pixel's corner. Both are
/// exact.
struct PixelPlace {
    explicit PixelPlace(float coordinate)
        : pixel{static_cast<std::int64_t>(std::floor(coordinate))},
          within{coordinate - std::floor(coordinate)} {}

    std::int64_t pixel;
    float within;
};

/// The pixels of a row whose centres lie no further than `r` from (x, dy).
Disc::Run runWithin(double x, double dy, double r) {
    const auto isInside = [&](std::int64_t column) {
        const double dx = static_cast<double>(column) + 0.5 - x;
        return dx * dx + dy * dy <= r * r;
    };
    // The root comes near; the ends are decided by the exact condition.
    const double reach = std::sqrt(std::max(r * r - dy * dy, 0.0));
    Disc::Run run{static_cast<std::int64_t>(std::floor(x - reach + 0.5)),
                  static_cast<std::int64_t>(std::floor(x + reach + 0.5))};
    while (isInside(run.first - 1))
        --run.first;
    while (isInside(run.last))
        ++run.last;
    while (run.first < run.last && !isInside(run.first))
        ++run.first;
    while (run.first < run.last && !isInside(run.last - 1))
        --run.last;
    return run;
}

/// What is painted and how, for one layer.
class DiscPainter {
public:
    DiscPainter(const LayerView& layer, const LayerFrame& frame, float radius,
                const Palette& palette, const Rgb& background, Picture& picture)
        : layer_{layer},
          geometry_{layer.shape},
          frame_{&frame},
          radius_{radius},
          palette_{&palette},
          picture_{&picture},
          background_(std::size_t{3} * frame.width()) {
        PaintedRow{background_}.fill(0, frame.width(), background);
        for (const auto& [symbol, color] : palette)
            pixels_[Palette::slotOf(symbol)] = toRgb(color);
    }

    void paintRings();
    void paintRows();

private:
    /// Where the beads of a column of content characters lie across the picture, and which disc of
    /// a row they have.
    struct Column {
        std::int64_t pixel;
        std::size_t disc;
    };

    void findColumns();
    const std::vector<Disc>& discsAt(float within);
    void paintRow(std::size_t row, std::int64_t& nextLine);
    void paintLine(std::int64_t line, std::int64_t discLine, std::size_t row,
                   const std::vector<Disc>& discs);
    void fillLines(std::int64_t first, std::int64_t last);
    void paintRun(std::int64_t line, std::int64_t pixel, const Disc::Run& run, char symbol);

    /// `line` counts from the bottom of the picture, as memory does.
    std::span<unsigned char> line(std::int64_t line) {
        return picture_->rowSamples(frame_->height() - 1 - static_cast<std::size_t>(line));
    }

    LayerView layer_;
    BeadGeometry geometry_;
    const LayerFrame* frame_;
    double radius_;
    const Palette* palette_;
    Picture* picture_;
    std::vector<unsigned char> background_; // one line of it
    std::array<Rgb, Palette::kSlots> pixels_{};

    std::vector<Column> columns_;              // by content character of a row
    std::vector<float> phases_;                // where in a pixel the centre lies across, by disc
    std::map<float, std::vector<Disc>> discs_; // by where in a pixel it lies upwards; by disc
};

/// Beads of a circle lie anywhere; each is painted on its own.
void DiscPainter::paintRings() {
    fillLines(0, frame_->height());
    for (const Bead& bead : layer_.beads()) {
        const char symbol = layer_.content[bead.position];
        if (!palette_->Contains(symbol))
            continue;
        const Point<2, float> centre = frame_->toPicture(geometry_.position(bead));
        const PixelPlace x{centre[0]};
        const PixelPlace y{centre[1]};
        const Disc disc{x.within, y.within, radius_};
        const std::int64_t first = std::max<std::int64_t>(y.pixel + disc.firstRow(), 0);
        const std::int64_t last =
            std::min<std::int64_t>(y.pixel + disc.lastRow(), frame_->height());
        for (std::int64_t at = first; at < last; ++at)
            paintRun(at, x.pixel, disc.run(at - y.pixel), symbol);
    }
}

/// Rows of beads do not touch each other, as a bead is four fifths of a pitch: the picture is
/// painted from its first line to its last, so that each is in the cache until it is finished.
void DiscPainter::paintRows() {
    findColumns();
    std::int64_t nextLine = 0;
    if (!columns_.empty())
        for (std::size_t row = layer_.shape.rowsIn(layer_.content.size()); row-- > 0;)
            paintRow(row, nextLine);
    fillLines(nextLine, frame_->height());
}

void DiscPainter::findColumns() {
    columns_.resize(layer_.shape.rowLength(0));
    std::map<float, std::size_t> discs; // by place within the pixel
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const PixelPlace x{frame_->toPicture(geometry_.gridPosition(0, column))[0]};
        const auto [disc, isNew] = discs.try_emplace(x.within, phases_.size());
        if (isNew)
            phases_.push_back(x.within);
        columns_[column] = {x.pixel, disc->second};
    }
}

/// The discs of a row of beads that lies there within its line of pixels.
const std::vector<Disc>& DiscPainter::discsAt(float within) {
    constexpr std::size_t kMostDiscs = 4096; // kept; a pitch that repeats late makes many
    const auto found = discs_.find(within);
    if (found != discs_.end())
        return found->second;
    if (discs_.size() * phases_.size() >= kMostDiscs)
        discs_.clear();
    std::vector<Disc>& discs = discs_[within];
    for (const float phase : phases_)
        discs.emplace_back(phase, within, radius_);
    return discs;
}

void DiscPainter::paintRow(std::size_t row, std::int64_t& nextLine) {
    const PixelPlace y{frame_->toPicture(geometry_.gridPosition(row, 0))[1]};
    const std::vector<Disc>& discs = discsAt(y.within);
    const std::int64_t height = frame_->height();
    const std::int64_t first = std::clamp(y.pixel + discs[0].firstRow(), nextLine, height);
    const std::int64_t last = std::clamp(y.pixel + discs[0].lastRow(), first, height);
    fillLines(nextLine, first);
    for (std::int64_t at = first; at < last; ++at)
        paintLine(at, at - y.pixel, row, discs);
    nextLine = last;
}

void DiscPainter::paintLine(std::int64_t line, std::int64_t discLine, std::size_t row,
                            const std::vector<Disc>& discs) {
    fillLines(line, line + 1);
    const LayerShape& shape = layer_.shape;
    const std::string_view symbols =
        layer_.content.substr(row * columns_.size(), columns_.size());
    for (std::size_t i = shape.firstBead(row); i < symbols.size(); i += shape.beadStep())
        if (palette_->Contains(symbols[i]))
            paintRun(line, columns_[i].pixel, discs[columns_[i].disc].run(discLine), symbols[i]);
}

void DiscPainter::fillLines(std::int64_t first, std::int64_t last) {
    for (std::int64_t at = first; at < last; ++at)
        std::ranges::copy(background_, line(at).begin());
}

void DiscPainter::paintRun(std::int64_t at, std::int64_t pixel, const Disc::Run& run,
                           char symbol) {
    const std::int64_t width = frame_->width();
    const std::int64_t first = std::clamp<std::int64_t>(pixel + run.first, 0, width);
    const std::int64_t last = std::clamp<std::int64_t>(pixel + run.last, first, width);
    PaintedRow{line(at)}.fill(static_cast<std::size_t>(first), static_cast<std::size_t>(last),
                              pixels_[Palette::slotOf(symbol)]);
}

} // namespace

Disc::Disc(double x, double y, double radius)
    : firstRow_{static_cast<std::int64_t>(std::ceil(y - radius - 0.5))} {
    const auto last = static_cast<std::int64_t>(std::floor(y + radius - 0.5)) + 1;
    for (std::int64_t row = firstRow_; row < last; ++row)
        runs_.push_back(runWithin(x, static_cast<double>(row) + 0.5 - y, radius));
}

void paintDiscs(const LayerView& layer, const LayerFrame& frame, float radius,
                const Palette& palette, const Rgb& background, Picture& picture) {
    DiscPainter painter{layer, frame, radius, palette, background, picture};
    if (layer.shape.style() == PatternStyle::Circle)
        painter.paintRings();
    else
        painter.paintRows();
}

} // namespace VORN
