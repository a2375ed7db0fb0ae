#pragma once

#include "core/Stream.h"
#include "migration/deflate/Adler32.h"

#include <optional>
#include <vector>

namespace VORN::Migration::PNG {

/// Takes the image data as it is inflated and puts its lines, unfiltered, into a picture.
///
/// Every line of the data is a filter byte and `lineBytes` bytes; the first one becomes the last
/// line of the picture. More data than the picture has lines for is refused at once with `misfit`;
/// what else is wrong is found out at the end, so that a bad checksum is reported first.
class LineSink : public WriteStream {
public:
    /// `picture` holds `lines` lines of `lineBytes` bytes, which `pixelBytes` divides, and must
    /// outlive the sink; an empty one stands for a picture that cannot become complete. `misfit` is
    /// what a wrong number of bytes is called.
    LineSink(std::span<std::uint8_t> picture, std::uint64_t lineBytes, std::uint32_t lines,
             std::size_t pixelBytes, const char* misfit);

    void write(std::span<const std::uint8_t> data) override;

    /// The Adler-32 of all data so far.
    std::uint32_t checksum() const { return checksum_.value(); }
    /// Too few bytes are a `FormatException`, a filter that does not exist is a `BoundException`.
    void checkComplete() const;

private:
    std::span<std::uint8_t> currentLine() const;
    void finishLine();

    std::span<std::uint8_t> picture_;
    std::uint64_t lineBytes_; // as the header claims, like the number of lines
    std::uint64_t linesLeft_;
    std::size_t pixelBytes_;
    const char* misfit_;

    Adler32 checksum_;
    std::uint8_t filter_ = 0;               // of the line that is being filled
    std::uint64_t filled_ = 0;              // its bytes so far, the filter byte included
    std::vector<std::uint8_t> zeros_;       // above the first line
    std::span<const std::uint8_t> prior_;   // the line above; empty: there is none
    std::optional<std::uint8_t> badFilter_; // the first one; lines from there on stay filtered
};

} // namespace VORN::Migration::PNG
