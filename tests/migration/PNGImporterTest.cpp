#include "migration/PNGImporter.h"
#include "core/BufferStream.h"
#include "migration/Adler32.h"
#include "migration/BigEndian.h"
#include "migration/DeflateStored.h"
#include "migration/ZlibHeader.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>
#include <random>

namespace VORN::Migration {
namespace {

using namespace std::string_literals;

struct Picture {
    ImageMetadata metadata;
    IncrementalBuffer buffer;
};

Picture imported(const Bytes& file) {
    const BorrowConstBuffer bytes{file};
    ConstBufferStream stream{bytes};
    PNGImporter importer;
    importer.setStream(&stream);
    Picture picture;
    importer.importImage(picture.buffer, picture.metadata);
    return picture;
}

Bytes bytesOf(const Buffer& buffer) { return {buffer.data().begin(), buffer.data().end()}; }
Bytes bytesOf(const std::string& text) { return {text.begin(), text.end()}; }

void append(Bytes& bytes, std::span<const std::uint8_t> more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

/// The last `count` bytes of a NetPBM file, its samples, with the lines turned around.
Bytes expectedSamples(const std::string& name, std::size_t lineBytes, std::size_t lines) {
    const Bytes file = fixture(name);
    Bytes samples;
    for (std::size_t y = 1; y <= lines; ++y)
        append(samples, std::span{file}.last(y * lineBytes).first(lineBytes));
    return samples;
}

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

Bytes png(const std::vector<Bytes>& chunks) {
    Bytes file = bytesOf("\x89PNG\r\n\x1A\n");
    for (const Bytes& bytes : chunks)
        append(file, bytes);
    return file;
}

/// Gives every chunk the checksum that fits it, so that its data is looked at.
Bytes withChecksums(Bytes file) {
    for (std::size_t at = 8; at + 12 <= file.size();) {
        const std::span<std::uint8_t> rest = std::span{file}.subspan(at);
        const std::uint64_t length = fromBigEndian(rest.first<4>());
        if (length + 12 > rest.size())
            break;
        Crc32 checksum;
        checksum.update(rest.subspan(4, length + 4));
        std::ranges::copy(toBigEndian(checksum.value()), rest.subspan(length + 8).begin());
        at += length + 12;
    }
    return file;
}

constexpr const char* kByte = "8-bit unsigned little endian";
constexpr const char* kWord = "16-bit unsigned big endian";

constexpr struct {
    const char* name;
    std::uint32_t channels; // 0: not to be read
    const char* type;
    const char* format;
} kFixtures[] = {
    {"grey8-9x7", 1, kByte, "INTENSITY"},
    {"grey16-9x7", 1, kWord, "INTENSITY"},
    {"greyalpha8-9x7", 2, kByte, "INTENSITY"},
    {"greyalpha16-9x7", 2, kWord, "INTENSITY"},
    {"rgb8-9x7", 3, kByte, "RGBA"},
    {"rgb16-9x7", 3, kWord, "RGBA"},
    {"rgba8-9x7", 4, kByte, "RGBA"},
    {"rgba16-9x7", 4, kWord, "RGBA"},
    {"palette8-9x7", 3, kByte, "RGBA"},
    {"palette4-9x7", 0, "", ""},
    {"grey1-9x7", 0, "", ""},
    {"interlaced-9x7", 0, "", ""},
};

TEST(PNGImporter, ReadsWhatOthersWrote) {
    for (const auto& c : kFixtures) {
        if (c.channels == 0)
            continue;
        SCOPED_TRACE(c.name);
        const Picture picture = imported(fixture("png/"s + c.name + ".png"));
        EXPECT_EQ(picture.metadata.width, 9U);
        EXPECT_EQ(picture.metadata.height, 7U);
        EXPECT_EQ(picture.metadata.channels, c.channels);
        EXPECT_EQ(picture.metadata.get("Type"), c.type);
        EXPECT_EQ(picture.metadata.get("Format"), c.format);
        EXPECT_EQ(picture.metadata.pixelAlignment + picture.metadata.lineAlignment, 0U);
        const std::size_t lineBytes = 9U * c.channels * picture.metadata.type.bits / 8;
        EXPECT_EQ(bytesOf(picture.buffer),
                  expectedSamples("png/"s + c.name + ".pnm", lineBytes, 7));
    }
}

TEST(PNGImporter, GathersChunksAndSkipsTheAncillaryOnes) {
    const Bytes data = zlibStream({0, 1, 2, 3, 0, 4, 5, 6});
    const auto half = data.begin() + 5;
    const Picture picture =
        imported(png({header(1, 2, 8, 2), chunk("tEXt", bytesOf("Title")), chunk("PLTE", {1, 2, 3}),
                      chunk("IDAT", {data.begin(), half}), chunk("IDAT", {}), chunk("tRNS", {1}),
                      chunk("IDAT", {half, data.end()}), chunk("IEND", {})}));
    EXPECT_EQ(bytesOf(picture.buffer), (Bytes{4, 5, 6, 1, 2, 3}));
}

TEST(PNGImporter, ShowsIndicesBeyondThePaletteInBlack) {
    const Picture picture =
        imported(png({header(3, 1, 8, 3), chunk("PLTE", {9, 8, 7, 6, 5, 4}),
                      chunk("IDAT", zlibStream({0, 1, 2, 255})), chunk("IEND", {})}));
    EXPECT_EQ(bytesOf(picture.buffer), (Bytes{6, 5, 4, 0, 0, 0, 0, 0, 0}));
}

TEST(PNGImporter, SaysWhyAFileIsRefused) {
    const std::string end = "Attempted to read over end of buffer. ";
    const Bytes grey = header(2, 1, 8, 0);
    const Bytes indexed = header(2, 1, 8, 3);
    const Bytes data = chunk("IDAT", zlibStream({0, 1, 2}));
    const Bytes last = chunk("IEND", {});
    Bytes broken = data;
    broken.back() ^= 1;
    const auto palette = [](std::size_t bytes) { return chunk("PLTE", Bytes(bytes)); };
    const auto raw = [&](const Bytes& bytes) {
        return png({grey, chunk("IDAT", zlibStream(bytes)), last});
    };
    struct Case {
        Bytes file;
        std::string complaint;
    };
    const Case kCases[] = {
        {{}, end},
        {bytesOf("\x89PNG\r\n\x1A\r"), "png : signature missmatch"},
        {png({}), "png : unexpected end of file"},
        {png({grey, data}), "png : unexpected end of file"},
        {png({grey, broken, last}), "png : chunk crc missmatch"},
        {png({last}), "png : first chunk is not the header"},
        {png({chunk("tEXt", {}), grey}), "png : first chunk is not the header"},
        {png({chunk("IHDR", Bytes(12))}), "png : header chunk is too short"},
        {png({header(2, 1, 8, 0, 1)}), "No support for PNG compression method 1. "},
        {png({header(2, 1, 8, 0, 0, 64)}), "No support for PNG filter method 64. "},
        {png({header(2, 1, 8, 0, 0, 0, 2)}), "No support for PNG interlace method 2. "},
        {fixture("png/interlaced-9x7.png"), "No support for PNG interlace method 1. "},
        {png({grey, chunk("XYZW", {})}), "png : unsuppored critical chunk"},
        {png({indexed, palette(3), palette(2)}), "png : palette chunk has already appeared"},
        {png({indexed, palette(16)}), "png : palette size not a multiple of 3"},
        {png({indexed, palette(771)}), "png : palette size larger than bit depth support"},
        {png({header(2, 1, 2, 3), palette(21)}),
         "png : palette size larger than bit depth support"},
        {png({header(2, 1, 200, 2), palette(999), chunk("XYZW", {})}),
         "png : unsuppored critical chunk"},
        {png({indexed, palette(0)}), "png : empty palette"},
        {png({indexed, palette(15)}), "png : unexpected end of file"},
        {png({grey, data, chunk("IEND", Bytes(4))}), "png : end chunk is not empty"},
        {png({indexed, data, last}), "png : missing palette indicated by header"},
        {png({header(2, 1, 16, 3), palette(3), data, last}),
         "png : palette indices of more than 8 bits"},
        {png({header(2, 1, 8, 5), data, last}), "No support for PNG color type 5. "},
        {png({grey, last}), end},
        {png({grey, chunk("IDAT", {0x78, 0x00}), last}), "png : invalid zlib header"},
        {png({grey, chunk("IDAT", {0x78, 0x01, 0x07}), last}),
         "deflate : Reserved block type detected. "},
        {png({grey, chunk("IDAT", zlibStream({0, 1, 2}, 1)), last}),
         "png : zlib checksum missmatch"},
        {raw({0, 1}), "png : image data size missmatch"},
        {raw({0, 1, 2, 3}), "png : image data size missmatch"},
        {fixture("png/grey1-9x7.png"), "png : image data size missmatch"},
        {fixture("png/palette4-9x7.png"), "png : palette image data size missmatch"},
        {raw({7, 1, 2}), "Value (7) out of bound (5). "},
        // The checksum and the size come before the filters.
        {png({grey, chunk("IDAT", zlibStream({7, 1, 2}, 1)), last}),
         "png : zlib checksum missmatch"},
        {raw({7, 1}), "png : image data size missmatch"},
        // No memory is taken for what cannot come.
        {png({header(0xFFFFFFFF, 0xFFFFFFFF, 8, 0), data, last}),
         "png : image data size missmatch"},
        {png({header(0xFFFFFFFF, 0xFFFFFFFF, 16, 6), data, last}), "Failed to allocate picture. "},
        {png({header(99999, 99999, 8, 0), chunk("IDAT", zlibStream({0, 1, 2}, 1)), last}),
         "png : zlib checksum missmatch"},
        {png({header(0xFFFFFFFF, 0x10000, 8, 3), palette(3), data, last}),
         "png : palette image data size missmatch"},
    };
    for (const Case& c : kCases)
        EXPECT_EQ(complaintOf([&] { imported(c.file); }), c.complaint)
            << testing::PrintToString(c.file);
    EXPECT_EQ(complaintOf([] {
                  Picture picture;
                  PNGImporter{}.importImage(picture.buffer, picture.metadata);
              }),
              "Migrator was not associated with a stream. ");
}

TEST(PNGImporter, SurvivesWhateverHappensToAFile) {
    std::mt19937 random{17};
    for (const auto& c : kFixtures) {
        SCOPED_TRACE(c.name);
        const Bytes file = fixture("png/"s + c.name + ".png");
        for (std::size_t size = 0; size < file.size(); ++size)
            EXPECT_NE(
                complaintOf([&] {
                    imported({file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size)});
                }),
                "")
                << size;
        for (int i = 0; i < 300; ++i) {
            Bytes flipped = file;
            for (unsigned flips = random() % 4; flips > 0; --flips)
                flipped[random() % flipped.size()] ^= static_cast<std::uint8_t>(1 << random() % 8);
            complaintOf([&] { imported(flipped); });
            complaintOf([&] { imported(withChecksums(flipped)); });
        }
    }
}

} // namespace
} // namespace VORN::Migration
