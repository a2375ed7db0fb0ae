#include "beads/NearestBead.h"

#include <benchmark/benchmark.h>

namespace VORN {
namespace {

constexpr unsigned kPoints = 500; // in a row and in a column

Pattern filledPattern(PatternStyle style) {
    Pattern pattern;
    pattern.style = style;
    pattern.AddFilledLayer({200U, 200U}, 'a');
    return pattern;
}

/// The coordinates of the points along an axis; they fill the layer.
std::vector<float> pointsAlong(std::size_t axis, const LayerView& layer) {
    const Hyperrectangle<2, float> box = BeadGeometry{layer.shape}.box();
    std::vector<float> points(kPoints);
    for (unsigned i = 0; i < kPoints; ++i)
        points[i] = box.origin()[axis] + box.extent()[axis] * static_cast<float>(i) / kPoints;
    return points;
}

/// A find for each of the points.
void nearestBead(benchmark::State& state, PatternStyle style) {
    const Pattern pattern = filledPattern(style);
    const NearestBead beads{pattern.view(0)};
    const std::vector<float> columns = pointsAlong(0, pattern.view(0));
    for (auto _ : state)
        for (const float y : pointsAlong(1, pattern.view(0)))
            for (const float x : columns)
                benchmark::DoNotOptimize(beads.find({x, y}));
    state.SetItemsProcessed(state.iterations() * kPoints * kPoints);
}

/// A row of points at a time, as pictures of small beads are drawn.
void nearestBeadRaster(benchmark::State& state, PatternStyle style) {
    const Pattern pattern = filledPattern(style);
    const NearestBead beads{pattern.view(0)};
    const std::vector<float> columns = pointsAlong(0, pattern.view(0));
    NearestBead::Raster raster{beads, columns};
    for (auto _ : state)
        for (const float y : pointsAlong(1, pattern.view(0)))
            benchmark::DoNotOptimize(raster.findRow(y).data());
    state.SetItemsProcessed(state.iterations() * kPoints * kPoints);
}
BENCHMARK_CAPTURE(nearestBead, square, PatternStyle::Square)->Name("NearestBead/square");
BENCHMARK_CAPTURE(nearestBead, hex, PatternStyle::Hex)->Name("NearestBead/hex");
BENCHMARK_CAPTURE(nearestBead, circle, PatternStyle::Circle)->Name("NearestBead/circle");
BENCHMARK_CAPTURE(nearestBeadRaster, square, PatternStyle::Square)->Name("NearestBead/raster");
BENCHMARK_CAPTURE(nearestBeadRaster, hex, PatternStyle::Hex)->Name("NearestBead/hexRaster");

} // namespace
} // namespace VORN
