#pragma once

#include "migration/jpeg/FrameLayout.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace VORN::Migration::JPEG {

/// Turns the samples of all components into the lines of the picture while they arrive.
///
/// It holds the samples of one row of MCUs at a time. For each row: write all its blocks to where
/// `block` says, then call `finishUnitRow`. Layout and lines are borrowed and must outlive it.
class PictureWriter {
public:
    /// `lines` is the whole picture, 3 bytes a pixel for three components and 1 for one, the bottom
    /// line first; if it is empty, nothing is written.
    PictureWriter(const FrameLayout& layout, std::span<std::uint8_t> lines);

    /// The first sample of a block of the present row of MCUs; `column` and `row` count blocks.
    std::uint8_t* block(std::size_t component, std::uint32_t column, std::uint32_t row) {
        return windows_[component].block(column, row);
    }
    /// The distance of two sample lines of a component.
    std::size_t lineBytes(std::size_t component) const { return windows_[component].lineBytes(); }

    /// Writes the lines that the blocks of a row of MCUs complete.
    void finishUnitRow();

private:
    /// The samples of one component in the present row of MCUs, and the line above them.
    class Window {
    public:
        explicit Window(const ComponentLayout& component);

        std::uint8_t* block(std::uint32_t column, std::uint32_t row) {
            return &samples_[(1 + row * kBlockSide) * lineBytes_ + column * kBlockSide];
        }
        std::size_t lineBytes() const { return lineBytes_; }
        /// The samples of a line that belong to the picture. `line` counts in the whole component;
        /// above the first and below the last line those are repeated.
        std::span<const std::uint8_t> line(std::int64_t line) const;
        void advance();

    private:
        std::uint32_t width_;
        std::uint32_t height_;
        std::size_t lineBytes_;
        std::int64_t first_ = 0; // number of the line that follows the line above
        std::vector<std::uint8_t> samples_;
    };

    /// How a component is brought to the size of the picture along one axis.
    enum class Enlargement { None, Triangle, Repeat };
    struct Plan {
        Enlargement across;
        Enlargement down;
        std::vector<std::uint16_t> sums; // scratch line of the component's width
        std::vector<std::uint8_t> line;  // scratch line of the component's width
        std::vector<std::uint8_t> wide;  // scratch line of at least the picture's width
    };

    Plan planFor(const ComponentLayout& component) const;
    std::span<const std::uint8_t> enlargedLine(std::size_t component, std::uint32_t y);
    std::span<const std::uint8_t> enlargedDown(std::size_t component, std::uint32_t y);
    void blendLines(std::size_t component, std::uint32_t y);
    void writeLine(std::uint32_t y);

    const FrameLayout* layout_;
    std::span<std::uint8_t> lines_;
    std::size_t lineStride_;
    std::vector<Window> windows_; // by component, as are the plans
    std::vector<Plan> plans_;
    std::uint32_t unitRow_ = 0;
    std::uint32_t nextLine_ = 0; // the first line of the picture that is not yet written
};

} // namespace VORN::Migration::JPEG
