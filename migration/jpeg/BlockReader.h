#pragma once

#include "core/Buffer.h"
#include "migration/jpeg/ByteUnstuffer.h"
#include "migration/jpeg/FrameLayout.h"
#include "migration/jpeg/Headers.h"
#include "migration/jpeg/HuffmanTable.h"
#include "migration/jpeg/InverseDct.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace VORN::Migration::JPEG {

/// What the segments before a scan have set, each by its destination.
///
/// A table that a frame or scan names is a `FormatException` if it was not defined, or if it is of
/// a Huffman code that cannot be.
struct Tables {
    template <class Table>
    using Slots = std::array<std::optional<Table>, kTableDestinations>;

    Slots<HuffmanTable> dc;
    Slots<HuffmanTable> ac;
    Slots<QuantizationTable> quantization;
    std::uint16_t restartInterval = 0; // MCUs; 0: none

    const HuffmanTable& dcTable(std::uint8_t selector) const;
    const HuffmanTable& acTable(std::uint8_t selector) const;
    const QuantizationTable& quantizationTable(std::uint8_t selector) const;
};

/// Decodes the blocks of a frame, scan after scan, and writes the picture they make.
class BlockReader {
public:
    /// The way in which the scans of a frame hold its coefficients.
    class Mode;

    /// A reader of the frame that `mode` was made for.
    explicit BlockReader(std::unique_ptr<Mode> mode);
    BlockReader(BlockReader&&) noexcept;
    BlockReader& operator=(BlockReader&&) noexcept;
    ~BlockReader();

    /// Decodes a scan whose data is at the beginning of `data`; returns what follows it.
    std::span<const std::uint8_t> readScan(const ScanHeader& header, const Tables& tables,
                                           std::span<const std::uint8_t> data);
    /// Completes the picture, a byte a sample, the bottom line first. A component that no scan had
    /// is a `FormatException`.
    void finish();

    /// The size of the picture and its components.
    const FrameLayout& layout() const;

private:
    std::unique_ptr<Mode> mode_;
};

/// What follows from the frame header for each mode, and the picture's memory.
class BlockReader::Mode {
public:
    virtual ~Mode() = default;
    /// Leaves `bits` behind the last bit of the scan.
    virtual void readScan(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits) = 0;
    /// As `BlockReader::finish`.
    virtual void finish() = 0;

    const FrameLayout& layout() const { return layout_; }

protected:
    /// `picture` is borrowed and must outlive the mode. It is resized once there is enough data for
    /// a picture of that size.
    Mode(const FrameHeader& header, DynamicBuffer& picture);

    /// Keeps the quantisation table that a component has in its first scan.
    void keepTransform(std::size_t component, const Tables& tables);
    const InverseDct& transform(std::size_t component) const { return *transforms_[component]; }
    /// Refuses the file unless each component had its `keepTransform`.
    void requireScans() const;

    /// The bytes of the picture, once made to fit.
    std::span<std::uint8_t> resizedPicture();

private:
    FrameLayout layout_;
    std::vector<std::optional<InverseDct>> transforms_; // by component
    DynamicBuffer* picture_;
};

} // namespace VORN::Migration::JPEG
