#include "beads/LayerDrawing.h"
#include "beads/LayerFilling.h"
#include "beads/NearestBead.h"
#include "beads/PanelPacker.h"
#include "beads/Pattern.h"
#include "fuzz/FuzzedArtwork.h"
#include "migration/ImageSignal.h"
#include "tests/beads/PlainNearestBead.h"

#include <iostream>

using namespace VORN;
using namespace VORN::Fuzz;

namespace {

constexpr std::size_t kLargestLayer = 2000; // characters; what is slow is done up to there

void findBeads(PatternStyle style, const Pattern::Layer& layer) {
    const BeadGeometry geometry{style, layer.size};
    const NearestBead nearestBead{style, layer};
    const auto box = geometry.box();
    for (unsigned step = 0; step < 8; ++step) {
        const float part = static_cast<float>(step) / 5.0F - 0.2F;
        const Point<2, float> place{box.origin()[0] + part * box.extent()[0],
                                    box.origin()[1] + (1 - part * part) * box.extent()[1]};
        require(nearestBead.find(place) == nearestByWalk(geometry, layer.content.size(), place),
                "the nearest bead is the one that the walk finds");
    }
}

void draw(const Pattern& pattern, std::size_t layer) {
    Palette palette;
    palette.Set('a', {1, 0, 0});
    for (const float beadSize : {0.3F, 1.5F, 2.6F}) {
        Migration::ImageSignal<unsigned char> picture;
        drawLayer(pattern, layer, palette, beadSize, {0, 1, 0}, picture);
        for (std::size_t i = 0; i < picture.count(); i += 3)
            require(picture[i] + picture[i + 1] == 255 && picture[i + 2] == 0,
                    "every pixel is painted");
    }
}

void reshape(PatternStyle style, const Pattern::Layer& layer) {
    for (const PatternStyle target :
         {PatternStyle::Square, PatternStyle::Hex, PatternStyle::Circle}) {
        Pattern pegboard;
        pegboard.style = target;
        pegboard.AddFilledLayer({7U, 7U}, kNoBead);
        const std::size_t length = pegboard.layer(0).content.size();
        reshapeLayer(style, layer, target, pegboard.layer(0));
        require(pegboard.layer(0).content.size() == length, "a pegboard keeps its beads");
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
    const Bytes once = writtenArtwork(pattern);
    Pattern again;
    require(readArtwork(again, once) || !isWrittenAsRead(pattern), "what was written can be read");
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
    if (readArtwork(pattern, {data, size}))
        writeAndRead(pattern);
    constexpr std::size_t kMostLayers = 20;
    for (std::size_t i = 0; i < std::min(pattern.layerCount(), kMostLayers); ++i) {
        const Pattern::Layer& layer = pattern.layer(i);
        if (pattern.style == PatternStyle::Square)
            pack(pattern, i);
        if (layer.content.size() > kLargestLayer)
            continue;
        findBeads(pattern.style, layer);
        reshape(pattern.style, layer);
        draw(pattern, i);
    }
    return 0;
}
