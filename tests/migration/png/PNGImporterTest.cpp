#include "migration/png/PNGImporter.h"
#include "core/Crc32.h"
#include "core/Serialization.h"
#include "migration/deflate/Adler32.h"
#include "migration/deflate/DeflateStored.h"
#include "migration/deflate/ZlibHeader.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

using namespace std::string_literals;

Bytes chunk(const std::string& type, const Bytes& data) {
    Bytes bytes = bytesOf(type);
    append(bytes, data);
    Crc32 checksum;
    checksum.update(bytes);
    Bytes whole;
    append(whole, toBigEndian(static_cast<std::uint32_t>(data.size())));
    append(whole, bytes);
    append(whole, toBigEndian(checksum.value()));
    return whole;
}

Bytes header(std::uint32_t width, std::uint32_t height, std::uint8_t depth, std::uint8_t type,
             std::uint8_t compression = 0, std::uint8_t filter = 0, std::uint8_t interlace = 0) {
    Bytes data;
    append(data, toBigEndian(width));
    append(data, toBigEndian(height));
    append(data, std::array{depth, type, compression, filter, interlace});
    return chunk("IHDR", data);
}

/// A zlib stream that holds `raw`; `flaw` is added to its checksum.
Bytes zlibStream(const Bytes& raw, std::uint32_t flaw = 0) {
    IncrementalBuffer stream;
    BufferStream out{stream};
    ZlibHeader{}.write(out);
    deflateStored(BorrowConstBuffer{raw}, out);
    Adler32 checksum;
    checksum.update(raw);
    ZlibChecksum{checksum.value() + flaw}.write(out);
    return bytesOf(stream);
}

/// A zlib stream that holds as many mebibytes, with a wrong checksum.
Bytes zlibRun(std::size_t mebibytes) {
    Bytes stream = packed("1 10 110010000 110010000 110010000 110010000 110010000", {0x78, 0x01});
    std::string digits;
    for (int i = 0; i < 8; ++i)
        digits += "11000101 00000"; // 258 times the byte before
    const Bytes runs = packed(digits);
    for (std::size_t bytes = 0; bytes < mebibytes << 20; bytes += std::size_t{8} * 258)
        append(stream, runs);
    return packed("0000000 00000000 00000000 00000000 00000000", stream);
}

Bytes png(const std::vector<Bytes>& chunks) {
    Bytes file = bytesOf("\x89PNG\r\n\x1A\n");
    for (const Bytes& bytes : chunks)
        append(file, bytes);
    return file;
}

TEST(PNGImporter, ReadsWhatOthersWrote) {
    const std::string kWord = "16-bit unsigned big endian";
    const struct {
        const char* name;
        std::uint32_t channels;
        std::string type;
    } kFixtures[] = {
        {"grey8", 1, kBytes}, {"grey16", 1, kWord}, {"greyalpha8", 2, kBytes},
        {"rgb8", 3, kBytes},  {"rgb16", 3, kWord},  {"greyalpha16", 2, kWord},
        {"rgba8", 4, kBytes}, {"rgba16", 4, kWord}, {"palette8", 3, kBytes},
    };
    for (const auto& c : kFixtures) {
        SCOPED_TRACE(c.name);
        const auto [metadata, samples] =
            imported<PNGImporter>(fixture("png/"s + c.name + "-9x7.png"));
        const auto expected =
            described(9, 7, c.channels, c.type, c.channels < 3 ? "INTENSITY" : "RGBA");
        for (const std::string& key : expected.keys())
            EXPECT_EQ(metadata.get(key), expected.get(key)) << key;
        // The samples stand at the end of the other file, the top line first.
        const Bytes pnm = fixture("png/"s + c.name + "-9x7.pnm");
        const std::size_t lineBytes = 9U * c.channels * metadata.type.bits / 8;
        Bytes flipped;
        for (std::size_t y = 1; y <= 7; ++y)
            append(flipped, std::span{pnm}.last(y * lineBytes).first(lineBytes));
        EXPECT_EQ(samples, flipped);
    }
}

TEST(PNGImporter, GathersChunksAndSkipsTheAncillaryOnes) {
    const Bytes data = zlibStream({0, 1, 2, 3, 0, 4, 5, 6});
    const auto half = data.begin() + 5;
    const Bytes file =
        png({header(1, 2, 8, 2), chunk("tEXt", bytesOf("Title")), chunk("PLTE", {1, 2, 3}),
             chunk("IDAT", {data.begin(), half}), chunk("IDAT", {}), chunk("tRNS", {1}),
             chunk("IDAT", {half, data.end()}), chunk("IEND", {})});
    EXPECT_EQ(imported<PNGImporter>(file).samples, (Bytes{4, 5, 6, 1, 2, 3}));
    // Indices beyond the palette are black.
    const Bytes indexed = png({header(3, 1, 8, 3), chunk("PLTE", {9, 8, 7, 6, 5, 4}),
                               chunk("IDAT", zlibStream({0, 1, 2, 255})), chunk("IEND", {})});
    EXPECT_EQ(imported<PNGImporter>(indexed).samples, (Bytes{6, 5, 4, 0, 0, 0, 0, 0, 0}));
}

TEST(PNGImporter, SaysWhyAFileIsRefused) {
    const std::string end = "Attempted to read over end of buffer. ";
    const std::string size = "png : image data size missmatch";
    const std::string checksum = "png : zlib checksum missmatch";
    const std::string paletteSize = "png : palette image data size missmatch";
    const std::string tooManyColors = "png : palette size larger than bit depth support";
    const Bytes grey = header(2, 1, 8, 0);
    const Bytes indexed = header(2, 1, 8, 3);
    const Bytes data = chunk("IDAT", zlibStream({0, 1, 2}));
    const Bytes flawed = chunk("IDAT", zlibStream({0, 1, 2}, 1));
    const Bytes last = chunk("IEND", {});
    const Bytes unknown = chunk("XYZW", {});
    Bytes broken = data;
    broken.back() ^= 1;
    const auto palette = [](std::size_t bytes) { return chunk("PLTE", Bytes(bytes)); };
    const auto raw = [&](const Bytes& bytes, std::uint32_t flaw = 0) {
        return png({grey, chunk("IDAT", zlibStream(bytes, flaw)), last});
    };
    const std::pair<Bytes, std::string> kCases[] = {
        {{}, end},
        {bytesOf("\x89PNG\r\n\x1A\r"), "png : signature missmatch"},
        {png({}), "png : unexpected end of file"},
        {png({grey, data}), "png : unexpected end of file"},
        {png({grey, broken, last}), "png : chunk crc missmatch"},
        {png({chunk("IHDR", Bytes(12))}), end},
        // Until a header comes all of its fields are 0.
        {png({unknown, grey}), "png : unsuppored critical chunk"},
        {png({chunk("IEND", Bytes(4))}), "png : end chunk is not empty"},
        {png({palette(16), indexed}), "png : palette size not a multiple of 3"},
        {png({palette(15), indexed}), tooManyColors},
        {png({palette(0), indexed}), "png : empty palette"},
        {png({palette(3), indexed, data, last}), ""},
        {png({chunk("tEXt", {}), data, grey, last}), ""},
        {png({chunk("IDAT", zlibStream({})), last}), end},
        {png({last}), end},
        {png({indexed, grey, data, last}), ""}, // the last one counts
        {png({header(2, 1, 8, 0, 1)}), "No support for PNG compression method 1. "},
        {png({header(2, 1, 8, 0, 0, 64)}), "No support for PNG filter method 64. "},
        {png({header(2, 1, 8, 0, 0, 0, 2)}), "No support for PNG interlace method 2. "},
        {fixture("png/interlaced-9x7.png"), "No support for PNG interlace method 1. "},
        {png({grey, unknown}), "png : unsuppored critical chunk"},
        {png({indexed, palette(3), palette(2)}), "png : palette chunk has already appeared"},
        {png({indexed, palette(16)}), "png : palette size not a multiple of 3"},
        {png({indexed, palette(771)}), tooManyColors},
        {png({header(2, 1, 2, 3), palette(21)}), tooManyColors},
        {png({header(2, 1, 200, 2), palette(999), unknown}), "png : unsuppored critical chunk"},
        {png({indexed, palette(0)}), "png : empty palette"},
        {png({indexed, palette(15)}), "png : unexpected end of file"},
        {png({grey, data, chunk("IEND", Bytes(4))}), "png : end chunk is not empty"},
        {png({indexed, data, last}), "png : missing palette indicated by header"},
        {png({header(2, 1, 16, 3), palette(3), data, last}), ""},
        {png({header(1, 1, 16, 3), palette(3), data, last}), paletteSize},
        {png({header(2, 1, 8, 5), data, last}), "No support for PNG color type 5. "},
        {png({grey, last}), end},
        {png({grey, chunk("IDAT", {0x78, 0x00}), last}), "png : invalid zlib header"},
        {png({grey, chunk("IDAT", {0x78, 0x01, 0x07}), last}),
         "deflate : Reserved block type detected. "},
        {png({grey, flawed, last}), checksum},
        {raw({0, 1}), size},
        {raw({0, 1, 2, 3}), size},
        // Surplus data does not hide what else is wrong, unless there is too much of it.
        {raw({0, 1, 2, 3}, 1), checksum},
        {png({grey, chunk("IDAT", {0x78, 0x01, 0x00, 0x04, 0x00, 0xFB, 0xFF, 0, 1, 2, 3, 0x07}),
              last}),
         "deflate : Reserved block type detected. "},
        {png({grey, chunk("IDAT", zlibRun(63)), last}), checksum},
        {png({grey, chunk("IDAT", zlibRun(65)), last}), size},
        {fixture("png/grey1-9x7.png"), size},
        {fixture("png/palette4-9x7.png"), paletteSize},
        {raw({7, 1, 2}), "Value (7) out of bound (5). "},
        // The checksum and the size come before the filters.
        {raw({7, 1, 2}, 1), checksum},
        {raw({7, 1}), size},
        // No memory is taken for what cannot come.
        {png({header(~0U, ~0U, 8, 0), data, last}), size},
        {png({header(~0U, ~0U, 16, 6), data, last}), "Failed to allocate picture. "},
        {png({header(99999, 99999, 8, 0), flawed, last}), checksum},
        {png({header(~0U, 0x10000, 8, 3), palette(3), data, last}), paletteSize},
    };
    for (const auto& [file, complaint] : kCases)
        EXPECT_EQ(complaintOf([&bytes = file] { imported<PNGImporter>(bytes); }), complaint)
            << testing::PrintToString(file);
}

} // namespace
} // namespace VORN::Migration
