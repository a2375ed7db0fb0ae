#include "bench/SampleData.h"
#include "migration/deflate/DeflateStored.h"
#include "migration/deflate/DeflateTables.h"
#include "migration/deflate/Inflate.h"

#include <benchmark/benchmark.h>

namespace VORN::Migration {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// Writes one block of the fixed code (RFC 1951, section 3.2.6).
class FixedBlock {
public:
    FixedBlock() { putNumber(0b011, 3); } // the last block

    void putSymbol(unsigned symbol) {
        if (symbol < 144)
            putCode(0x30 + symbol, 8);
        else if (symbol < 256)
            putCode(0x190 + symbol - 144, 9);
        else if (symbol < 280)
            putCode(symbol - 256, 7);
        else
            putCode(0xC0 + symbol - 280, 8);
    }
    /// A match: the first length and distance of their symbols, plus `extra` as far as it has room.
    void putMatch(unsigned lengthSymbol, unsigned distanceSymbol, unsigned extra) {
        putSymbol(kFirstLength + lengthSymbol);
        putNumber(extra, kLengthCodes[lengthSymbol].extraBits);
        putCode(distanceSymbol, 5);
        putNumber(extra, kDistanceCodes[distanceSymbol].extraBits);
    }
    Bytes finish() {
        putSymbol(kEndOfBlock);
        return std::move(bytes_);
    }

private:
    void putNumber(unsigned number, unsigned count) {
        for (unsigned i = 0; i < count; ++i)
            putBit(number >> i & 1U);
    }
    void putCode(unsigned code, unsigned count) {
        while (count-- > 0)
            putBit(code >> count & 1U);
    }
    void putBit(unsigned bit) {
        if (filled_ % 8 == 0)
            bytes_.push_back(0);
        bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | bit << filled_++ % 8);
    }

    Bytes bytes_;
    std::size_t filled_ = 0; // bits
};

/// As filtered photographs are packed: literals, and now and then a short match.
Bytes photoStream() {
    std::mt19937 random{1};
    FixedBlock block;
    for (unsigned i = 0; i < 300'000; ++i)
        if (i > 1000 && random() % 8 == 0)
            block.putMatch(random() % 4, random() % 18, random());
        else
            block.putSymbol(random() % 256);
    return block.finish();
}

/// As drawings are packed: long matches between single literals.
Bytes drawingStream() {
    std::mt19937 random{2};
    FixedBlock block;
    for (unsigned i = 0; i < 30'000; ++i)
        if (i > 1000 && random() % 4 != 0)
            block.putMatch(random() % 29, random() % 18, random());
        else
            block.putSymbol(random() % 256);
    return block.finish();
}

Bytes storedStream() {
    const Bytes bytes = Bench::noise(1U << 20U);
    IncrementalBuffer buffer;
    BufferStream out{buffer};
    DeflateStored stored{out, bytes.size()};
    stored.write(bytes);
    return {buffer.data().begin(), buffer.data().end()};
}

/// Counts the bytes that it is given and forgets them.
class CountStream : public WriteStream {
public:
    void write(std::span<const std::uint8_t> source) override { count_ += source.size(); }
    std::size_t count() const { return count_; }

private:
    std::size_t count_ = 0;
};

void inflateStream(benchmark::State& state, const Bytes& packed) {
    const BorrowConstBuffer buffer{packed};
    CountStream out;
    for (auto _ : state) {
        ConstBufferStream in{buffer};
        inflate(in, out);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(out.count())); // unpacked
}
BENCHMARK_CAPTURE(inflateStream, photo, photoStream())->Name("Inflate/photo");
BENCHMARK_CAPTURE(inflateStream, drawing, drawingStream())->Name("Inflate/drawing");
BENCHMARK_CAPTURE(inflateStream, stored, storedStream())->Name("Inflate/stored");

} // namespace
} // namespace VORN::Migration
