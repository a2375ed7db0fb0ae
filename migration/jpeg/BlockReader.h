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

/// The tables and the restart interval that the segments before a scan have set.
///
/// Each table has a number, its destination. Asking for one that was not defined is a
/// `FormatException`, and so is asking for a Huffman table whose codes are contradictory
/// (`HuffmanTable::isCode`).
struct Tables {
    template <class Table>
    using Slots = std::array<std::optional<Table>, kTableDestinations>;

    Slots<HuffmanTable> dc;
    Slots<HuffmanTable> ac;
    Slots<QuantizationTable> quantization;
    std::uint16_t restartInterval = 0; // MCUs; 0: none

    /// The Huffman table for DC coefficients at a destination.
    const HuffmanTable& dcTable(std::uint8_t selector) const;
    /// The Huffman table for AC coefficients at a destination.
    const HuffmanTable& acTable(std::uint8_t selector) const;
    /// The quantisation table at a destination.
    const QuantizationTable& quantizationTable(std::uint8_t selector) const;
};

/// Decodes the blocks of a frame, scan after scan, and writes the picture they make.
class BlockReader {
public:
    /// How the scans of a frame hold its coefficients: sequential or progressive.
    class Mode;

    /// A reader of the frame that `mode` was made for.
    explicit BlockReader(std::unique_ptr<Mode> mode);
    ~BlockReader();

    /// Decodes the scan that `data` begins with; returns the bytes behind it. Malformed data is a
    /// `FormatException`.
    std::span<const std::uint8_t> readScan(const ScanHeader& header, const Tables& tables,
                                           std::span<const std::uint8_t> data);
    /// Completes the picture: a byte for each sample, the bottom line first. A component that was
    /// in no scan is a `FormatException`.
    void finish();

    /// The size of the picture and its components.
    const FrameLayout& layout() const;

private:
    std::unique_ptr<Mode> mode_;
};

/// Decodes scans of one kind; this base holds what both kinds need: the layout that follows from
/// the frame header, the transforms and the picture.
class BlockReader::Mode {
public:
    virtual ~Mode() = default;
    /// Decodes a scan; leaves `bits` behind its last bit. Malformed data is a `FormatException`.
    virtual void readScan(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits) = 0;
    /// As `BlockReader::finish`.
    virtual void finish() = 0;

    const FrameLayout& layout() const { return layout_; }

protected:
    /// `picture` is borrowed and must outlive the mode. It is resized only when there is enough
    /// data for a picture of that size.
    Mode(const FrameHeader& header, DynamicBuffer& picture);

    /// Keeps the quantisation table of a component as it is in the component's first scan.
    void keepTransform(std::size_t component, const Tables& tables);
    /// The transform with the table that was kept for a component.
    const InverseDct& transform(std::size_t component) const { return *transforms_[component]; }
    /// Refuses the file if `keepTransform` was not called for each component.
    void requireScans() const;

    /// Resizes the picture to its final size and returns its bytes.
    std::span<std::uint8_t> resizedPicture();

private:
    FrameLayout layout_;
    std::vector<std::optional<InverseDct>> transforms_; // by component
    DynamicBuffer* picture_;
};

} // namespace VORN::Migration::JPEG
