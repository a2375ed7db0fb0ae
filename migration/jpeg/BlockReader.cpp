#include "migration/jpeg/BlockReader.h"

namespace VORN::Migration::JPEG {

namespace {

template <class Table>
const Table& require(const Tables::Slots<Table>& slots, std::uint8_t selector) {
    if (selector >= slots.size() || !slots[selector])
        refuse("Table that was not defined. ");
    return *slots[selector];
}

const HuffmanTable& requireCode(const Tables::Slots<HuffmanTable>& slots, std::uint8_t selector) {
    const HuffmanTable& table = require(slots, selector);
    if (!table.isCode())
        refuse("Huffman table with more codes than its lengths allow. ");
    return table;
}

} // namespace

const HuffmanTable& Tables::dcTable(std::uint8_t selector) const {
    return requireCode(dc, selector);
}

const HuffmanTable& Tables::acTable(std::uint8_t selector) const {
    return requireCode(ac, selector);
}

const QuantizationTable& Tables::quantizationTable(std::uint8_t selector) const {
    return require(quantization, selector);
}

BlockReader::BlockReader(std::unique_ptr<Mode> mode) : mode_{std::move(mode)} {}

BlockReader::BlockReader(BlockReader&&) noexcept = default;
BlockReader& BlockReader::operator=(BlockReader&&) noexcept = default;
BlockReader::~BlockReader() = default;

std::span<const std::uint8_t> BlockReader::readScan(const ScanHeader& header, const Tables& tables,
                                                    std::span<const std::uint8_t> data) {
    ByteUnstuffer bits{data};
    mode_->readScan(header, tables, bits);
    return bits.rest();
}

void BlockReader::finish() { mode_->finish(); }

const FrameLayout& BlockReader::layout() const { return mode_->layout(); }

BlockReader::Mode::Mode(const FrameHeader& header, DynamicBuffer& picture)
    : layout_{header},
      transforms_(header.components.size()),
      picture_{&picture} {}

void BlockReader::Mode::keepTransform(std::size_t component, const Tables& tables) {
    if (!transforms_[component])
        transforms_[component].emplace(
            tables.quantizationTable(layout_.components[component].quantizationTable));
}

void BlockReader::Mode::requireScans() const {
    for (const std::optional<InverseDct>& transform : transforms_)
        if (!transform)
            refuse("Component without any scan. ");
}

std::span<std::uint8_t> BlockReader::Mode::resizedPicture() {
    picture_->resize(layout_.pictureBytes());
    return picture_->writableData();
}

} // namespace VORN::Migration::JPEG
