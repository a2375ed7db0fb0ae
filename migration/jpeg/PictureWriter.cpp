#include "migration/jpeg/PictureWriter.h"

#include "migration/jpeg/ColorConversion.h"
#include "migration/jpeg/Upsampling.h"

#include <algorithm>

namespace VORN::Migration::JPEG {

PictureWriter::Window::Window(const ComponentLayout& component)
    : width_{component.width},
      height_{component.height},
      lineBytes_{std::size_t{component.paddedBlocksAcross} * kBlockSide},
      samples_((1 + component.verticalSampling * kBlockSide) * lineBytes_) {}

std::span<const std::uint8_t> PictureWriter::Window::line(std::int64_t line) const {
    const std::int64_t existing = std::clamp<std::int64_t>(line, 0, std::int64_t{height_} - 1);
    const auto index = static_cast<std::size_t>(existing - first_ + 1);
    return std::span{samples_}.subspan(index * lineBytes_, width_);
}

void PictureWriter::Window::advance() {
    const std::size_t lines = samples_.size() / lineBytes_;
    std::ranges::copy(std::span{samples_}.last(lineBytes_), samples_.begin());
    first_ += static_cast<std::int64_t>(lines) - 1;
}

PictureWriter::PictureWriter(const FrameLayout& layout, std::span<std::uint8_t> lines)
    : layout_{&layout},
      lines_{lines},
      lineStride_{layout.components.size() * layout.width} {
    for (const ComponentLayout& component : layout.components) {
        windows_.emplace_back(component);
        plans_.push_back(planFor(component));
    }
}

PictureWriter::Plan PictureWriter::planFor(const ComponentLayout& component) const {
    const auto choose = [](std::uint32_t sampling, std::uint32_t most) {
        return sampling == most       ? Enlargement::None
               : sampling * 2 == most ? Enlargement::Triangle
                                      : Enlargement::Repeat;
    };
    Plan plan{.across = choose(component.horizontalSampling, layout_->horizontalSampling),
              .down = choose(component.verticalSampling, layout_->verticalSampling),
              .sums = {},
              .line = {},
              .wide = {}};
    // The filter is for components of at least half the size along both axes, and not for those
    // that have too few samples for it. Common decoders draw the line in the same places.
    const bool isTooNarrow = plan.across == Enlargement::Triangle && component.width <= 2;
    if (isTooNarrow || plan.across == Enlargement::Repeat || plan.down == Enlargement::Repeat)
        for (Enlargement* axis : {&plan.across, &plan.down})
            if (*axis == Enlargement::Triangle)
                *axis = Enlargement::Repeat;
    plan.sums.resize(component.width);
    plan.line.resize(component.width);
    plan.wide.resize(std::max(2 * component.width, layout_->width));
    return plan;
}

void PictureWriter::finishUnitRow() {
    ++unitRow_;
    // The last line waits for the samples below it.
    const std::uint32_t end = unitRow_ == layout_->unitsDown
                                  ? layout_->height
                                  : unitRow_ * layout_->verticalSampling * kBlockSide - 1;
    for (; nextLine_ < end && !lines_.empty(); ++nextLine_)
        writeLine(nextLine_);
    for (Window& window : windows_)
        window.advance();
}

void PictureWriter::writeLine(std::uint32_t y) {
    const std::span<std::uint8_t> line =
        lines_.subspan((layout_->height - 1 - y) * lineStride_, lineStride_);
    const std::span<const std::uint8_t> first = enlargedLine(0, y);
    if (windows_.size() == 1)
        std::ranges::copy(first, line.begin());
    else
        convertLine(first, enlargedLine(1, y), enlargedLine(2, y), line);
}

/// Line `y` of the picture in one component, at the picture's width.
std::span<const std::uint8_t> PictureWriter::enlargedLine(std::size_t component, std::uint32_t y) {
    const ComponentLayout& layout = layout_->components[component];
    Plan& plan = plans_[component];
    const std::span<std::uint8_t> wide{plan.wide};
    if (plan.across == Enlargement::None)
        return enlargedDown(component, y);
    if (plan.across == Enlargement::Repeat) {
        repeatAcross(enlargedDown(component, y), layout.horizontalSampling,
                     layout_->horizontalSampling, wide.first(layout_->width));
    } else if (plan.down == Enlargement::Triangle) {
        blendLines(component, y);
        enlargeBoth(plan.sums, wide.first(2 * plan.sums.size()));
    } else {
        enlargeAcross(enlargedDown(component, y), wide.first(2 * layout.width));
    }
    return wide.first(layout_->width);
}

/// Line `y` of the picture in one component, at the component's own width.
std::span<const std::uint8_t> PictureWriter::enlargedDown(std::size_t component, std::uint32_t y) {
    Plan& plan = plans_[component];
    if (plan.down != Enlargement::Triangle) {
        const std::uint32_t sampling = layout_->components[component].verticalSampling;
        return windows_[component].line(y * sampling / layout_->verticalSampling);
    }
    blendLines(component, y);
    enlargeDown(plan.sums, y % 2 == 0 ? Half::First : Half::Second, plan.line);
    return plan.line;
}

/// Blends the line of the component that is nearest to line `y` of the picture with the next one.
void PictureWriter::blendLines(std::size_t component, std::uint32_t y) {
    const Window& window = windows_[component];
    const std::int64_t nearLine = y / 2;
    const std::int64_t farLine = y % 2 == 0 ? nearLine - 1 : nearLine + 1;
    addLines(window.line(nearLine), window.line(farLine), plans_[component].sums);
}

} // namespace VORN::Migration::JPEG
