#include "beads/LayerDrawing.h"
#include "beads/LayerFilling.h"
#include "beads/NearestBead.h"
#include "beads/PanelPacker.h"
#include "beads/Pattern.h"
#include "fuzz/Fuzzing.h"
#include "tests/beads/PlainNearestBead.h"
#include "tests/beads/TextFiles.h"

#include <iostream>
#include <vector>

using namespace VORN;
using namespace VORN::Fuzz;

namespace {

constexpr std::size_t kLargestLayer = 2000; // characters; what is slow is done up to there

void findBeads(const LayerView& layer) {
    const NearestBead nearestBead{layer};
    const auto box = BeadGeometry{layer.shape}.box();
    std::vector<float> columns;
    std::vector<float> rows;
    for (unsigned step = 0; step < 8; ++step) {
        const float part = static_cast<float>(step) / 5.0F - 0.2F;
        columns.push_back(box.origin()[0] + part * box.extent()[0]);
        rows.push_back(box.origin()[1] + (1 - part * part) * box.extent()[1]);
    }
    // All columns, and those inside of the layer only.
    for (const std::span<const float> across :
         {std::span{columns}, std::span{columns}.subspan(1, 5)}) {
        NearestBead::Raster raster{nearestBead, across};
        for (const float y : rows) {
            const std::span found = raster.findRow(y);
            for (std::size_t i = 0; i < across.size(); ++i) {
                const auto expected = nearestByWalk(layer, {across[i], y});
                require(nearestBead.find({across[i], y}) == expected && found[i] == expected,
                        "the nearest bead is the one that the walk finds");
            }
        }
    }
}

void draw(const LayerView& layer) {
    Palette palette;
    palette.Set('a', {1, 0, 0});
    for (const float beadSize : {0.3F, 1.5F, 2.6F}) {
        Picture picture;
        drawLayer(layer, palette, beadSize, {0, 1, 0}, picture);
        for (unsigned y = 0; y < picture.height(); ++y)
            for (unsigned x = 0; x < picture.width(); ++x) {
                const Rgb pixel = PictureView{picture}.row(y)[x];
                require(pixel.red + pixel.green == 255 && pixel.blue == 0,
                        "every pixel is painted");
            }
    }
}

void reshape(const LayerView& layer) {
    for (const PatternStyle target :
         {PatternStyle::Square, PatternStyle::Hex, PatternStyle::Circle}) {
        const LayerShape pegboard{target, {7U, 7U}};
        std::string content(pegboard.contentLength(), kNoBead);
        reshapeLayer(layer, pegboard, content);
        require(content.size() == pegboard.contentLength(), "a pegboard keeps its beads");
    }
}

void pack(const Pattern& pattern, std::size_t layer) {
    Palette palette;
    palette.Set('a', {});
    PanelPacker packer{palette, 9};
    complaintOf([&] { packer.add(pattern, layer); });
}

/// Rows of circles have the length of their ring but for the first, which may have any.
bool isWrittenAsRead(const Pattern& pattern) {
    if (pattern.style != PatternStyle::Circle)
        return pattern.style == PatternStyle::Square;
    for (std::size_t i = 0; i < pattern.layerCount(); ++i) {
        const std::size_t rings = pattern.layer(i).size[0];
        if (pattern.layer(i).content.size() != 3 * rings * (rings - 1) + 1)
            return false;
    }
    return true;
}

void writeAndRead(const Pattern& pattern) {
    const std::string once = writtenText(pattern);
    Pattern again;
    require(readText(again, once) || !isWrittenAsRead(pattern), "what was written can be read");
    if (!isWrittenAsRead(pattern))
        return;
    require(again.style == pattern.style && again.layerCount() == pattern.layerCount(),
            "what was written has the same style and layers");
    for (std::size_t i = 0; i < pattern.layerCount(); ++i)
        require(again.layer(i).content == pattern.layer(i).content &&
                    again.layer(i).size == pattern.layer(i).size,
                "what was written has the same beads");
}

/// Takes what the program says away.
class Silence {
public:
    Silence() : errors_{std::cerr.rdbuf(nullptr)} {}
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    ~Silence() {
        std::cerr.rdbuf(errors_);
        std::cerr.clear();
    }

private:
    std::streambuf* errors_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Silence silence;
    Pattern pattern;
    if (readFile(pattern, {data, size}))
        writeAndRead(pattern);
    constexpr std::size_t kMostLayers = 20;
    for (std::size_t i = 0; i < std::min(pattern.layerCount(), kMostLayers); ++i) {
        const LayerView layer = pattern.view(i);
        if (pattern.style == PatternStyle::Square)
            pack(pattern, i);
        if (layer.content.size() > kLargestLayer)
            continue;
        findBeads(layer);
        reshape(layer);
        draw(layer);
    }
    return 0;
}
