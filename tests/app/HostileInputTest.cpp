#include "tests/app/ChildProgram.h"
#include "tests/migration/png/PngFile.h"

#include <algorithm>
#include <filesystem>

namespace VORN {
namespace {

using namespace std::string_literals;
using namespace Migration;

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string textOf(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

/// A picture of 8-bit samples of colour type `type` whose chunks of data are `data`.
std::string png(std::uint32_t width, std::uint32_t height, std::uint8_t type,
                const std::string& chunks) {
    return textOf(
        Migration::png({header(width, height, 8, type), bytesOf(chunks), chunk("IEND", {})}));
}

std::string dataChunk(const Bytes& data) { return textOf(chunk("IDAT", data)); }

/// A zlib stream of 1 + 258 `runs` zeros in two bits a run (RFC 1951, section 3.2.7).
///
/// Code words: 0 for the length 258, 10 for the literal 0, 11 for the end, 0 for the distance 1.
Bytes bomb(std::size_t runs) {
    const std::string lengths = // of the code lengths 18, 2 and 1; the rest is not used
        "000 000 1 00 000 000 000 000 000 000 000 000 000 000 000 000 010 000 010";
    const std::string code = "11 0 1111111 0 0101011 11 0 1000100 10 10";
    Bytes stream =
        packed("1 01 10111 00000 0111" + lengths + code + "10" + repeated("00", runs) + "11",
               {0x78, 0x01});
    append(stream, toBigEndian(static_cast<std::uint32_t>((1 + 258 * runs) % 65521 << 16 | 1)));
    return stream;
}

/// A zlib stream of a million empty blocks with the fixed code, and one that holds a pixel.
Bytes emptyBlocks() {
    const std::string blocks = textOf(packed(repeated("0100000000", 8)));
    return bytesOf("\x78\x01" + repeated(blocks, 125000) +
                   "\x01\x02\x00\xFD\xFF\x00\x07\x00\x09\x00\x08"s);
}

/// A grey progressive picture of `across` x `down` blocks with a scan for the DC coefficients and,
/// as often as `rounds` says, for each of the others 14 that refine it bit by bit.
std::string manyScans(unsigned across, unsigned down, unsigned rounds) {
    const auto word = [](unsigned value) {
        return std::string{static_cast<char>(value >> 8), static_cast<char>(value)};
    };
    std::string file = "\xFF\xD8\xFF\xDB"s + word(67) + '\0' + std::string(64, '\x01');
    file += "\xFF\xC2"s + word(11) + '\x08' + word(8 * down) + word(8 * across) + "\1\1\x11\0"s;
    // One code word each, 0: no difference; an end-of-band run of 2^14 blocks and more.
    const std::string lengths = "\1"s + std::string(15, '\0');
    file += "\xFF\xC4"s + word(20) + '\0' + lengths + '\0';
    file += "\xFF\xC4"s + word(20) + '\x10' + lengths + '\xE0';
    const auto scan = [&](unsigned start, unsigned bits, std::size_t dataBits) {
        file += "\xFF\xDA"s + word(8) + "\1\1\0"s + static_cast<char>(start) +
                static_cast<char>(start) + static_cast<char>(bits) +
                std::string((dataBits + 7) / 8, '\0');
    };
    const std::size_t blocks = std::size_t{across} * down;
    scan(0, 0, blocks);
    for (unsigned round = 0; round < rounds; ++round)
        for (unsigned k = 1; k < 64; ++k)
            for (unsigned low = 14; low-- > 0;)
                scan(k, low == 13 ? low : (low + 1) << 4 | low, 15 * ((blocks + 16383) / 16384));
    return file + "\xFF\xD9";
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
    std::vector<std::string> arguments; // IN begins the file's name, OUT is one to be written
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
    const std::string out = temporaryFile("out.txt");
    std::string in;
    std::vector<std::string> arguments = c.arguments;
    std::ranges::replace(arguments, "OUT", out);
    for (std::string& argument : arguments)
        if (argument.starts_with("IN"))
            in = argument = temporaryFile(argument);
    write(in, c.file);
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
    // Without an extension the picture is recognised by its content, but not NetPBM.
    {"PngChunkClaimsMuch", kPalette, [] { return png(1, 1, 0, "\xFF\xFF\xFF\xFFIDATx"); }, 1,
     kStream, 1, 2},
    {"PngHoldsThousandfold", kPalette, [] { return png(5160, 4903, 0, dataChunk(bomb(98079))); }, 0,
     "", 80, 20},
    {"PngInflatesThousandfold", kPalette, [] { return png(1, 1, 0, dataChunk(bomb(400000))); }, 1,
     kFormat + "png : image data size missmatch\n", 2, 10},
    {"PngOfAMillionChunks", kPalette,
     [] { return png(1, 1, 0, repeated(textOf(chunk("tEXt", {})), 1000000) + dataChunk(bomb(0))); },
     1, kFormat, 1, 10},
    {"PngOfAMillionBlocks", kPalette, [] { return png(1, 1, 0, dataChunk(emptyBlocks())); }, 0, "",
     2, 10},
    {"JpegOfManyScans", kPalette, [] { return manyScans(200, 200, 1); }, 0, "", 16, 20},
    {"JpegOfRepeatedScans", kPalette, [] { return manyScans(1, 8191, 800); }, 0, "", 24, 20},
    {"JpegClaimsMuch", kPalette, [] { return manyScans(8191, 8191, 1).substr(0, 4000); }, 1,
     kFormat, 10, 20},
    {"MapClaimsMuch",
     {"palette", "IN.pnm", "OUT"},
     [] { return "P6\n2000000000 2\n255\n" + std::string(1000, 'x'); },
     1,
     kStream,
     1,
     2},
    {"PaletteOfOneLine", kShow,
     [] { return std::string{"a"}.append(100000000, ' ').append("1 1 1"); }, 1,
     "Failed to open nowhere\n", 160, 20},
    {"PaletteOfOneBadLine", kShow, [] { return std::string(100000000, 'a'); }, 1, kParse + "aaaa",
     900, 20},
    {"PatternOfAMillionLayers", kReshape, [] { return repeated("a\n\n", 1000000); }, 0, "", 220,
     20},
    {"PatternOfAMillionPanels", kPack, [] { return repeated(".\n\n", 1000000); }, 0, "", 220, 20},
};

INSTANTIATE_TEST_SUITE_P(Files, HostileInputTest, testing::ValuesIn(kCases),
                         [](const auto& row) { return std::string{row.param.name}; });

} // namespace
} // namespace VORN
