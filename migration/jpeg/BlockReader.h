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
struct Tables {
    template <class Table>
    using Slots = std::array<std::optional<Table>, kTableDestinations>;

    Slots<HuffmanTable> dc;
    Slots<HuffmanTable> ac;
    Slots<QuantizationTable> quantization;
    std::uint16_t restartInterval = 0; // MCUs; 0: none
};

/// Decodes the blocks of a frame, scan after scan, and writes the picture they make.
class BlockReader {
public:
    /// The way in which the scans of a frame hold its coefficients.
    class Mode;

    enum class Process { Sequential, Progressive };

    /// `picture` is borrowed and must outlive the reader. It is resized once there is enough data
    /// for a picture of that size.
    BlockReader(const FrameHeader& header, Process process, DynamicBuffer& picture);
    BlockReader(BlockReader&&) noexcept;
    BlockReader& operator=(BlockReader&&) noexcept;
    ~BlockReader();

    /// Decodes a scan whose data is at the beginning of `data`; returns what follows it.
    std::span<const std::uint8_t> readScan(const ScanHeader& header, const Tables& tables,
                                           std::span<const std::uint8_t> data);
    /// Completes the picture, a byte a sample, the bottom line first.
    void finish();

    const FrameLayout& layout() const;

private:
    std::unique_ptr<Mode> mode_;
};

class BlockReader::Mode {
public:
    virtual ~Mode() = default;
    /// Leaves `bits` behind the last bit of the scan.
    virtual void readScan(const ScanHeader& header, const Tables& tables, ByteUnstuffer& bits) = 0;
    virtual void finish() = 0;

    const FrameLayout& layout() const { return layout_; }

protected:
    Mode(const FrameHeader& header, DynamicBuffer& picture);

    /// The table that a scan or frame names; `FormatException` if none was defined.
    template <class Table>
    static const Table& require(const Tables::Slots<Table>& slots, std::uint8_t selector) {
        if (!slots[selector])
            refuse("Table that was not defined. ");
        return *slots[selector];
    }
    /// Keeps the quantisation table that a component has in its first scan.
    void keepTransform(std::size_t component, const Tables& tables);
    const InverseDct& transform(std::size_t component) const { return *transforms_[component]; }

    /// The bytes of the picture, once made to fit.
    std::span<std::uint8_t> resizedPicture();

private:
    FrameLayout layout_;
    std::vector<std::optional<InverseDct>> transforms_; // by component
    DynamicBuffer* picture_;
};

} // namespace VORN::Migration::JPEG
