#pragma once

#include "core/Stream.h"
#include "migration/deflate/Adler32.h"

#include <optional>
#include <vector>

namespace VORN::Migration::PNG {

/// Takes the image data as it is inflated and puts its lines, unfiltered, into a picture.
///
/// Every line of the data is a filter byte and `lineBytes` bytes; the first one becomes the last
/// line of the picture. What is wrong is found out at the end, so that faults of the compressed
/// data and a bad checksum are reported first. Data beyond the last line is only counted.
class LineSink : public WriteStream {
public:
    /// More data than this beyond the last line is refused at once: a few megabytes of compressed
    /// data can hold gigabytes of it.
    static constexpr std::uint64_t kLargestSurplus = std::uint64_t{64} << 20;

    /// `picture` holds `lines` lines of `lineBytes` bytes, which `pixelBytes` divides, and must
    /// outlive the sink; an empty one stands for a picture that cannot become complete.
    /// `sizeMismatch` is the detail of the `FormatException` for a wrong number of bytes.
    LineSink(std::span<std::uint8_t> picture, std::uint64_t lineBytes, std::uint32_t lines,
             std::size_t pixelBytes, const char* sizeMismatch);

    void write(std::span<const std::uint8_t> data) override;

    /// The Adler-32 of all data so far.
    std::uint32_t checksum() const { return checksum_.value(); }
    /// A wrong number of bytes is a `FormatException`, a filter that does not exist a
    /// `BoundException`.
    void checkComplete() const;

private:
    std::span<const std::uint8_t> fillLine(std::span<const std::uint8_t> data);
    std::span<std::uint8_t> currentLine() const;
    void finishLine();

    std::span<std::uint8_t> picture_;
    std::uint64_t lineBytes_; // as the header claims, like the number of lines
    std::uint64_t linesLeft_;
    std::uint64_t surplus_ = 0; // bytes beyond the last line
    std::size_t pixelBytes_;
    const char* sizeMismatch_;

    Adler32 checksum_;
    std::uint8_t filter_ = 0;               // of the line that is being filled
    std::uint64_t filled_ = 0;              // its bytes so far, the filter byte included
    std::vector<std::uint8_t> zeros_;       // above the first line
    std::span<const std::uint8_t> prior_;   // the line above; empty: there is none
    std::optional<std::uint8_t> badFilter_; // the first one; lines from there on stay filtered
};

} // namespace VORN::Migration::PNG
