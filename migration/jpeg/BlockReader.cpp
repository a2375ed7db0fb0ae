#include "migration/jpeg/BlockReader.h"

#include "migration/jpeg/ProgressiveDCTMode.h"
#include "migration/jpeg/SequentialDCTMode.h"

namespace VORN::Migration::JPEG {

BlockReader::BlockReader(const FrameHeader& header, Process process, DynamicBuffer& picture) {
    if (process == Process::Sequential)
        mode_ = std::make_unique<SequentialDCTMode>(header, picture);
    else
        mode_ = std::make_unique<ProgressiveDCTMode>(header, picture);
}

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
            require(tables.quantization, layout_.components[component].quantizationTable));
}

std::span<std::uint8_t> BlockReader::Mode::resizedPicture() {
    picture_->resize(layout_.pictureBytes());
    return picture_->writableData();
}

} // namespace VORN::Migration::JPEG
