#include "core/Crc32.h"
#include "tests/app/ChildProgram.h"

#include "core/Serialization.h"
#include "migration/deflate/Adler32.h"

#include <algorithm>
#include <filesystem>

namespace VORN {
namespace {

using namespace std::string_literals;

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string bigEndian(std::uint32_t number) {
    const auto bytes = toBigEndian(number);
    return {bytes.begin(), bytes.end()};
}

std::span<const std::uint8_t> bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string pngChunk(const std::string& typeAndData) {
    Crc32 crc;
    crc.update(bytesOf(typeAndData));
    return bigEndian(static_cast<std::uint32_t>(typeAndData.size() - 4)) + typeAndData +
           bigEndian(crc.value());
}

/// A picture of 8-bit samples of colour type `type` around the chunks given.
std::string png(std::uint32_t width, std::uint32_t height, char type, const std::string& chunks) {
    return "\x89PNG\r\n\x1A\n" +
           pngChunk("IHDR" + bigEndian(width) + bigEndian(height) + "\x08"s + type + "\0\0\0"s) +
           chunks + pngChunk("IEND");
}

/// Bits as DEFLATE and the other way round as JPEG packs them.
class Bits {
public:
    enum class First { Least, Most };
    explicit Bits(First first) : first_{first} {}

    /// Appends `count` times the bits of `word`, its first character first.
    void put(std::string_view word, std::size_t count = 1) {
        for (std::size_t n = 0; n < count; ++n)
            for (const char bit : word) {
                if (filled_ % 8 == 0)
                    bytes_ += '\0';
                const std::size_t shift = first_ == First::Least ? filled_ % 8 : 7 - filled_ % 8;
                bytes_.back() = static_cast<char>(bytes_.back() | (bit - '0') << shift);
                ++filled_;
            }
    }
    void number(unsigned value, unsigned count) {
        for (unsigned i = 0; i < count; ++i)
            put((value >> i & 1) != 0 ? "1" : "0");
    }
    const std::string& bytes() const { return bytes_; }

private:
    First first_;
    std::size_t filled_ = 0;
    std::string bytes_;
};

/// A zlib stream of 1 + 258 `runs` zeros in two bits a run (RFC 1951, section 3.2.7).
///
/// Code words: 0 for the length 258, 10 for the literal 0, 11 for the end, 0 for the distance 1.
std::string bomb(std::size_t runs) {
    Bits bits{Bits::First::Least};
    bits.put("1");      // the last block,
    bits.number(2, 2);  // with codes of its own:
    bits.number(29, 5); // 286 literals and lengths,
    bits.number(0, 5);  // 1 distance,
    bits.number(14, 4); // 18 lengths of code lengths: 1 for 18, 2 for 1 and 2
    for (const unsigned length : {0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 2})
        bits.number(length, 3);
    const auto zeros = [&](unsigned count) {
        bits.put("0");
        bits.number(count - 11, 7);
    };
    bits.put("11"); // literal 0 has 2 bits
    zeros(138);
    zeros(117);
    bits.put("11"); // the end has 2
    zeros(28);
    bits.put("10"); // 285 has 1
    bits.put("10"); // and so has the distance
    bits.put("10");
    bits.put("00", runs);
    bits.put("11");
    Migration::Adler32 checksum;
    const std::vector<std::uint8_t> samples(1 + 258 * runs);
    checksum.update(samples);
    return "\x78\x01" + bits.bytes() + bigEndian(checksum.value());
}

/// A zlib stream of a million empty blocks with the fixed code, and one that holds a pixel.
std::string emptyBlocks() {
    Bits bits{Bits::First::Least};
    bits.put("0100000000", 8); // not the last block, the fixed code, the end
    return "\x78\x01" + repeated(bits.bytes(), 125000) +
           "\x01\x02\x00\xFD\xFF\x00\x07\x00\x09\x00\x08"s;
}

/// A grey progressive picture of `across` x `down` blocks with a scan for the DC coefficients and,
/// as often as `rounds` says, for each of the others 14 that refine it bit by bit.
std::string manyScans(unsigned across, unsigned down, unsigned rounds) {
    const auto word = [](unsigned value) { return bigEndian(value).substr(2); };
    std::string file = "\xFF\xD8\xFF\xDB"s + word(67) + '\0' + std::string(64, '\x01');
    file += "\xFF\xC2"s + word(11) + '\x08' + word(8 * down) + word(8 * across) + "\1\1\x11\0"s;
    // One code word each, 0: no difference; an end-of-band run of 2^14 blocks and more.
    const std::string lengths = "\1"s + std::string(15, '\0');
    file += "\xFF\xC4"s + word(20) + '\0' + lengths + '\0';
    file += "\xFF\xC4"s + word(20) + '\x10' + lengths + '\xE0';
    const std::size_t blocks = std::size_t{across} * down;
    const auto scan = [&](unsigned start, unsigned end, unsigned bits, const Bits& data) {
        file += "\xFF\xDA"s + word(8) + "\1\1\0"s + static_cast<char>(start) +
                static_cast<char>(end) + static_cast<char>(bits) + data.bytes();
    };
    Bits dc{Bits::First::Most};
    dc.put("0", blocks);
    scan(0, 0, 0, dc);
    Bits runs{Bits::First::Most};
    runs.put("0" + std::string(14, '0'), (blocks + 16383) / 16384);
    for (unsigned round = 0; round < rounds; ++round)
        for (unsigned k = 1; k < 64; ++k)
            for (unsigned low = 14; low-- > 0;)
                scan(k, k, low == 13 ? low : (low + 1) << 4 | low, runs);
    return file + "\xFF\xD9";
}

std::string native(const std::string& width, const std::string& height, std::uint32_t stored) {
    const auto number = [](std::uint32_t n) {
        const std::string bytes = bigEndian(n);
        return std::string{bytes.rbegin(), bytes.rend()};
    };
    const auto text = [&](const std::string& s) {
        return number(static_cast<std::uint32_t>(s.size())) + s;
    };
    std::string file = number(7);
    for (const char* key :
         {"Channels", "Format", "Height", "Line alignment", "Pixel alignment", "Type", "Width"})
        file += text(key);
    for (const std::string& value :
         {"3"s, "RGBA"s, height, "0"s, "0"s, "8-bit unsigned little endian"s, width})
        file += text(value);
    return file + number(stored) + "samples";
}

/// Writes a file in a process of its own: what this one ever had resident counts as the program's,
/// which is forked from it.
void write(const std::string& name, const std::function<std::string()>& file) {
    const pid_t child = fork();
    if (child == 0) {
        std::ofstream{name, std::ios::binary} << file();
        _exit(0);
    }
    waitpid(child, nullptr, 0);
}

struct Case {
    const char* name;
    std::vector<std::string> arguments; // IN stands for the file, OUT for one to be written
    std::function<std::string()> file;
    int status;
    std::string complaint; // what standard error begins with
    long megabytes;        // what the run may take beyond what any run takes
    double seconds;        // of the processor, with the sanitizers
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

class HostileInputTest : public testing::TestWithParam<Case> {};

TEST_P(HostileInputTest, EndsInTheMemoryAndTimeThatItJustifies) {
    // The program with its libraries and the 16 MB that remember the colours of a picture.
    constexpr long kAnyRun = kHasAddressSanitizer ? 64 : 40;
    const Case& c = GetParam();
    const std::string in = temporaryFile("in" + std::to_string(getpid()));
    const std::string out = temporaryFile("out.txt");
    write(in, c.file);
    std::vector<std::string> arguments = c.arguments;
    std::ranges::replace(arguments, "IN", in);
    std::ranges::replace(arguments, "OUT", out);
    const ChildRun run = runChild(arguments, [&] {
        const rlim_t bytes = static_cast<rlim_t>(c.megabytes + kAnyRun) << 20;
        const rlimit limit{bytes, bytes};
        if (!kHasAddressSanitizer)
            setrlimit(RLIMIT_AS, &limit);
    });
    std::filesystem::remove(in);
    std::filesystem::remove(out);
    EXPECT_EQ(run.status, c.status);
    EXPECT_EQ(run.err.substr(0, c.complaint.size()), c.complaint);
    EXPECT_EQ(run.err.empty(), c.complaint.empty()) << run.err.substr(0, 1000);
    // Sanitized memory has an eighth more of shadow, and small blocks have borders.
    EXPECT_LE(run.peakMegabytes,
              kHasAddressSanitizer ? c.megabytes * 3 / 2 + kAnyRun : c.megabytes + kAnyRun);
    EXPECT_LE(run.seconds, c.seconds);
}

const std::vector<std::string> kPalette{"palette", "IN", "OUT"};
const std::vector<std::string> kShow{"show", "IN", "nowhere", "OUT"};
const std::vector<std::string> kReshape{"create", "square", "1", "--reshape", "IN", "-o", "OUT"};
const std::vector<std::string> kPack{"pack", "square", "1", "palettes/hama.txt", "-o", "OUT", "IN"};
const std::string kFormat = "VORN class VORN::Migration::FormatException: ";
const std::string kStream =
    "VORN class VORN::StreamException: Failed to read from input stream. \n";
const std::string kParse = "VORN class VORN::ParseException: String \"";

const Case kCases[] = {
    // Without an extension the picture is recognised by its content, NetPBM is not: see below.
    {"PngClaimsMuch", kPalette,
     [] { return png(0x7FFFFFFF, 0x7FFFFFFF, 2, pngChunk("IDAT" + bomb(1))); }, 1,
     kFormat + "png : image data size missmatch\n", 1, 2},
    {"PngChunkClaimsMuch", kPalette, [] { return png(1, 1, 0, bigEndian(0xFFFFFFFF) + "IDATx"); },
     1, kStream, 1, 2},
    {"PngHoldsThousandfold", kPalette,
     [] { return png(5160, 4903, 0, pngChunk("IDAT" + bomb(98079))); }, 0, "", 80, 20},
    {"PngInflatesThousandfold", kPalette,
     [] { return png(1, 1, 0, pngChunk("IDAT" + bomb(400000))); }, 1,
     kFormat + "png : image data size missmatch\n", 2, 10},
    {"PngOfAMillionChunks", kPalette,
     [] { return png(1, 1, 0, repeated(pngChunk("tEXt"), 1000000) + pngChunk("IDAT" + bomb(0))); },
     1, kFormat, 1, 10},
    {"PngOfAMillionBlocks", kPalette, [] { return png(1, 1, 0, pngChunk("IDAT" + emptyBlocks())); },
     0, "", 2, 10},
    {"JpegOfManyScans", kPalette, [] { return manyScans(200, 200, 1); }, 0, "", 16, 20},
    {"JpegOfRepeatedScans", kPalette, [] { return manyScans(1, 8191, 800); }, 0, "", 24, 20},
    {"JpegClaimsMuch", kPalette, [] { return manyScans(8191, 8191, 1).substr(0, 4000); }, 1,
     kFormat, 10, 20},
    {"NativeClaimsMuch", kPalette, [] { return native("4294967295", "1431655765", 0xFFFFFFFF); }, 1,
     kFormat, 1, 2},
    {"NativeStoresLess", kPalette, [] { return native("35791394", "40", 0xFFFFFFF0); }, 1, kStream,
     2, 2},
    {"PaletteOfOneLine", kShow, [] { return "a" + std::string(100000000, ' ') + "1 1 1"; }, 1,
     "Failed to open nowhere\n", 160, 20},
    {"PaletteOfOneBadLine", kShow, [] { return std::string(100000000, 'a'); }, 1, kParse + "aaaa",
     900, 20},
    {"PatternOfAMillionLayers", kReshape, [] { return repeated("a\n\n", 1000000); }, 0, "", 220,
     20},
    {"PatternOfAMillionPanels", kPack, [] { return repeated(".\n\n", 1000000); }, 0, "", 220, 20},
};

INSTANTIATE_TEST_SUITE_P(Files, HostileInputTest, testing::ValuesIn(kCases),
                         [](const auto& row) { return std::string{row.param.name}; });

TEST(HostileInput, NetPbmClaimsMuch) {
    const std::string out = temporaryFile("out.txt");
    for (const char* header : {"P4\n4294967295 4294967295\n", "P5\n4294967295 4294967295\n255\n",
                               "P6\n4294967295 1431655765\n65535\n", "P6\n2000000000 2\n255\n"}) {
        const std::string in = makeFile("in.pnm", header + std::string(1000, 'x'));
        const ChildRun run = runChild({"palette", in, out});
        EXPECT_EQ(run.status, 1);
        EXPECT_TRUE(run.err.starts_with("VORN class VORN::")) << run.err;
        EXPECT_LE(run.peakMegabytes, 80) << header;
    }
}

} // namespace
} // namespace VORN
