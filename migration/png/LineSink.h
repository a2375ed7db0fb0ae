#pragma once

#include "core/Stream.h"
#include "migration/deflate/Adler32.h"

#include <optional>
#include <vector>

namespace VORN::Migration::PNG {

/// Takes the image data while it is inflated, undoes the filters and puts the lines into a picture.
///
/// A line of the data is a filter byte and `lineBytes` bytes. The first line becomes the last of
/// the picture. Faults are noted, but reported only by `checkComplete`, so that faults of the
/// compressed data and a wrong checksum are reported first. Data behind the last line is only
/// counted.
class LineSink : public WriteStream {
public:
    /// More data than this behind the last line is refused at once, as a few megabytes of
    /// compressed data can hold gigabytes of it.
    static constexpr std::uint64_t kLargestSurplus = std::uint64_t{64} << 20;

    /// `picture` has `lines` lines of `lineBytes` bytes, which are a multiple of `pixelBytes`. It
    /// must outlive the sink. An empty one stands for a picture that cannot become complete.
    /// `sizeMismatch` is the detail of the `FormatException` for a wrong number of bytes.
    LineSink(std::span<std::uint8_t> picture, std::uint64_t lineBytes, std::uint32_t lines,
             std::size_t pixelBytes, const char* sizeMismatch);

    void write(std::span<const std::uint8_t> data) override;

    /// The Adler-32 of all data so far.
    std::uint32_t checksum() const { return checksum_.value(); }
    /// Throws if the data was not right: a wrong number of bytes is a `FormatException`, a filter
    /// that does not exist a `BoundException`.
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
    std::optional<std::uint8_t> badFilter_; // the first; lines from there on are left as they are
};

} // namespace VORN::Migration::PNG
