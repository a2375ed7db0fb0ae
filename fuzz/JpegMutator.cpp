#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <numeric>
#include <random>

// How libFuzzer changes JPEG files: by whole segments, tables and scans, whose lengths, counts and
// stuff bytes are kept right, so that what lies behind them is reached.

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

using namespace VORN::Fuzz;

namespace {

using Random = std::minstd_rand;

constexpr std::uint8_t kHuffmanTables = 0xC4;
constexpr std::uint8_t kStartOfScan = 0xDA;

/// A marker with its segment and the entropy-coded data behind it.
struct Part {
    std::uint8_t code = 0;
    Bytes parameters;
    Bytes data; // without stuff bytes; a restart marker is 0xFF and its code
};
using Parts = std::vector<Part>;

bool isRestart(unsigned code) { return code >= 0xD0 && code <= 0xD7; }
bool hasSegment(unsigned code) { return !isRestart(code) && code != 0xD8 && code != 0xD9; }

/// The parts of a file, as far as there are markers.
Parts partsOf(std::span<const std::uint8_t> file) {
    Parts parts;
    while (file.size() >= 2 && file[0] == 0xFF) {
        Part part{.code = file[1], .parameters = {}, .data = {}};
        file = file.subspan(2);
        if (hasSegment(part.code) && file.size() >= 2) {
            const std::size_t length = file[0] * 256U + file[1];
            const auto segment = file.first(std::clamp<std::size_t>(length, 2, file.size()));
            part.parameters.assign(segment.begin() + 2, segment.end());
            file = file.subspan(segment.size());
        }
        while (!file.empty() &&
               (file[0] != 0xFF || file.size() == 1 || file[1] == 0 || isRestart(file[1]))) {
            part.data.push_back(file[0]);
            const bool isStuffed = file.size() > 1 && file[0] == 0xFF && file[1] == 0;
            file = file.subspan(isStuffed ? 2 : 1);
        }
        parts.push_back(std::move(part));
    }
    return parts;
}

void write(const Part& part, Bytes& file) {
    file.insert(file.end(), {0xFF, part.code});
    if (hasSegment(part.code)) {
        const std::size_t length = part.parameters.size() + 2;
        file.push_back(static_cast<std::uint8_t>(length >> 8));
        file.push_back(static_cast<std::uint8_t>(length));
        file.insert(file.end(), part.parameters.begin(), part.parameters.end());
    }
    for (std::size_t i = 0; i < part.data.size(); ++i) {
        file.push_back(part.data[i]);
        const bool isMarker = i + 1 < part.data.size() && isRestart(part.data[i + 1]);
        if (part.data[i] == 0xFF && !isMarker)
            file.push_back(0);
    }
}

/// The file of `parts`, if it fits `out`; else 0.
std::size_t write(const Parts& parts, std::span<std::uint8_t> out) {
    Bytes file;
    for (const Part& part : parts)
        write(part, file);
    if (file.size() > out.size())
        return 0;
    std::ranges::copy(file, out.begin());
    return file.size();
}

void changeBytes(Bytes& bytes) {
    const std::size_t size = bytes.size();
    bytes.resize(size + 16);
    bytes.resize(LLVMFuzzerMutate(bytes.data(), size, bytes.size()));
}

/// Gives each Huffman table of a segment as many symbols as it counts.
void completeTables(Bytes& parameters, Random& random) {
    for (std::size_t at = 0; at + 17 <= parameters.size();) {
        const auto counts = parameters.begin() + static_cast<std::ptrdiff_t>(at) + 1;
        at += 17 + std::accumulate(counts, counts + 16, std::size_t{0});
        while (parameters.size() < at)
            parameters.push_back(static_cast<std::uint8_t>(random()));
    }
}

/// Gives a scan another band or step; the last three parameters say which.
void changeScan(Bytes& parameters, Random& random) {
    constexpr std::uint8_t kBands[][2] = {{0, 0}, {1, 63}, {1, 5}, {6, 63}, {1, 1}, {0, 63}};
    constexpr std::uint8_t kSteps[] = {0x00, 0x01, 0x02, 0x0D, 0x10, 0x21, 0x32, 0xD0};
    if (parameters.size() < 3)
        return;
    const auto& band = kBands[random() % std::size(kBands)];
    const auto last = parameters.end() - 3;
    std::copy_n(band, 2, last);
    last[2] = kSteps[random() % std::size(kSteps)];
}

void change(Parts& parts, Random& random) {
    const std::size_t at = random() % parts.size();
    const auto place = parts.begin() + static_cast<std::ptrdiff_t>(at);
    const auto other = parts.begin() + static_cast<std::ptrdiff_t>(random() % parts.size());
    switch (random() % 6) {
    case 0:
        parts.erase(place);
        break;
    case 1:
        parts.insert(other, Part{*place});
        break;
    case 2:
        std::iter_swap(place, other);
        break;
    case 3:
        if (place->code == kStartOfScan)
            changeScan(place->parameters, random);
        break;
    case 4:
        changeBytes(place->data);
        break;
    default:
        changeBytes(place->parameters);
        if (place->code == kHuffmanTables)
            completeTables(place->parameters, random);
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    Random random{seed};
    Parts parts = partsOf({data, size});
    if (parts.empty() || random() % 4 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    change(parts, random);
    const std::size_t written = write(parts, {data, maxSize});
    return written != 0 ? written : LLVMFuzzerMutate(data, size, maxSize);
}

/// Puts some parts of the second file into the first one.
extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize,
                                                 std::uint8_t* out, std::size_t maxSize,
                                                 unsigned seed) {
    Random random{seed};
    Parts parts = partsOf({first, firstSize});
    const Parts others = partsOf({second, secondSize});
    if (parts.empty() || others.empty())
        return 0;
    const std::size_t begin = random() % others.size();
    const std::size_t count = 1 + random() % std::min<std::size_t>(4, others.size() - begin);
    const auto from = others.begin() + static_cast<std::ptrdiff_t>(begin);
    parts.insert(parts.begin() + static_cast<std::ptrdiff_t>(random() % parts.size()), from,
                 from + static_cast<std::ptrdiff_t>(count));
    return write(parts, {out, maxSize});
}
