#include "core/BufferStream.h"
#include "migration/NetPBMExporter.h"
#include "migration/NetPBMImporter.h"
#include "tests/Complaint.h"

#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace VORN::Migration {
namespace {

using namespace std::string_literals;

struct Picture {
    ImageMetadata metadata;
    IncrementalBuffer buffer;
};

std::span<const std::uint8_t> bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string textOf(const Buffer& buffer) { return {buffer.data().begin(), buffer.data().end()}; }

Picture importText(const std::string& file) {
    const BorrowConstBuffer bytes{bytesOf(file)};
    ConstBufferStream stream{bytes};
    NetPBMImporter importer;
    importer.setStream(&stream);
    Picture picture;
    importer.importImage(picture.buffer, picture.metadata);
    return picture;
}

std::string exportText(const std::string& samples, const Metadata& metadata) {
    IncrementalBuffer file;
    BufferStream stream{file};
    NetPBMExporter exporter;
    exporter.setStream(&stream);
    exporter.exportImage(BorrowConstBuffer{bytesOf(samples)}, metadata);
    return textOf(file);
}

std::string fixture(const std::string& name) {
    std::ifstream in{KAVRIN_TEST_DATA "/netpbm/" + name, std::ios::binary};
    EXPECT_TRUE(in) << name;
    return {std::istreambuf_iterator<char>{in}, {}};
}

/// What the buffer has to hold for the samples of a plain NetPBM file.
std::string samplesOf(const std::string& name, std::size_t lines, bool isWide) {
    std::ifstream in{KAVRIN_TEST_DATA "/netpbm/" + name};
    std::string magic;
    unsigned number = 0;
    in >> magic >> number >> number;
    if (magic != "P1")
        in >> number;
    std::string samples;
    while (in >> number) {
        if (isWide)
            samples += static_cast<char>(number >> 8);
        samples += static_cast<char>(number & 255);
    }
    std::string flipped;
    const std::size_t lineBytes = samples.size() / lines;
    for (std::size_t y = lines; y-- > 0;)
        flipped += samples.substr(y * lineBytes, lineBytes);
    return flipped;
}

ImageMetadata metadataOf(std::uint32_t width, std::uint32_t height, std::uint32_t channels,
                         std::uint32_t bits) {
    ImageMetadata metadata;
    metadata.width = width;
    metadata.height = height;
    metadata.channels = channels;
    metadata.type.bits = bits;
    return metadata;
}

constexpr const char* kFixtures[] = {"bitmap-10x3.pbm", "gray8-5x3.pgm", "gray16-3x2.pgm",
                                     "rgb8-3x3.ppm", "rgb16-2x2.ppm"};

TEST(NetPBM, ReadsEachKindAndWritesItBack) {
    struct Case {
        const char* name;
        const char* extension;
        std::uint32_t width, height, channels, bits;
    };
    constexpr Case kCases[] = {
        {"bitmap-10x3", ".pbm", 10, 3, 1, 1}, {"gray8-5x3", ".pgm", 5, 3, 1, 8},
        {"gray16-3x2", ".pgm", 3, 2, 1, 16},  {"rgb8-3x3", ".ppm", 3, 3, 3, 8},
        {"rgb16-2x2", ".ppm", 2, 2, 3, 16},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        const std::string file = fixture(c.name + std::string{c.extension});
        const Picture picture = importText(file);
        EXPECT_EQ(picture.metadata.width, c.width);
        EXPECT_EQ(picture.metadata.height, c.height);
        EXPECT_EQ(picture.metadata.channels, c.channels);
        EXPECT_EQ(picture.metadata.get("Type"),
                  std::to_string(c.bits) + "-bit unsigned little endian");
        EXPECT_EQ(picture.metadata.get("Format"), c.channels == 3 ? "RGBA" : "INTENSITY");
        EXPECT_EQ(textOf(picture.buffer), samplesOf(c.name + ".txt"s, c.height, c.bits == 16));

        // The fixtures' headers put width and height on one line.
        std::string expected = file;
        expected[expected.find(' ')] = '\n';
        EXPECT_EQ(exportText(textOf(picture.buffer), picture.metadata), expected);
    }
}

TEST(NetPBM, ReadsHeadersHoweverTheyAreSpaced) {
    struct Case {
        std::string file;
        std::uint32_t bits;
        std::string samples;
    };
    const Case kCases[] = {
        {"P5 2 2 255 abcd", 8, "cdab"},
        {"P5\n# 7 8\n2\t2\r# x\n\n 65535\nabcdefgh", 16, "efghabcd"},
        {"P5\0002\0002\000255\0abcd"s, 8, "cdab"},
        {"P5\n2#2#\n2##\n#\n 1#255\nabcd", 8, "cdab"},
        {"P5\n2 2\r\n256\r\nabcdefg", 16, "defg\nabc"}, // one byte ends a number, not two
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.file);
        const Picture picture = importText(c.file);
        EXPECT_EQ(picture.metadata.width, 2U);
        EXPECT_EQ(picture.metadata.height, 2U);
        EXPECT_EQ(picture.metadata.type.bits, c.bits);
        EXPECT_EQ(textOf(picture.buffer), c.samples);
    }
}

TEST(NetPBM, SaysWhyAFileIsRefused) {
    const std::string end = "Attempted to read over end of buffer. ";
    struct Case {
        std::string file;
        std::string complaint;
    };
    const Case kCases[] = {
        {"", end},
        {"P5", end},
        {"Q5x", "NetPBM : Data is not recognized as NetPBM."},
        {"P5x", "NetPBM : Expected NetPBM magic number to end with whitespace."},
        {"P5#", "NetPBM : Expected NetPBM magic number to end with whitespace."},
        {"Px ", "Failed to convert \"x\" to unsigned int."},
        {"P1 ", "No support for plain ASCII. "},
        {"P3 ", "No support for plain ASCII. "},
        {"P7\n", "No support for NetPBM PAM. "},
        {"P9 ", "No support for PGM type P9. "},
        {"P0 ", "No support for PGM type P0. "},
        {"P5 2 -2 255 abcd", "Failed to convert \"-2\" to unsigned int."},
        {"P5 4294967296 2 255 abcd", "Failed to convert \"4294967296\" to unsigned int."},
        {"P5 2 2 255", end},
        {"P5 2 2 255 abc", end},
        {"P4 9 2 abc", end},
        // Sizes that nothing could hold cost nothing.
        {"P4 4294967295 4294967295 abc", end},
        {"P5 4294967295 4294967295 255 abc", end},
        {"P6 4294967295 4294967295 65535 abc", "Failed to allocate picture. "},
        {"P6 4294967295 0 65535 abc", ""},
        {"P6 0 4294967295 65535 ", ""},
        {"P4 0 4294967295 ", ""},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.file);
        EXPECT_EQ(complaintOf([&] { EXPECT_EQ(importText(c.file).buffer.size(), 0U); }),
                  c.complaint);
    }
}

TEST(NetPBM, KeepsTheOrderOfItsSteps) {
    const std::string file = "P5 1 1 255 aP5 1 x ";
    const BorrowConstBuffer bytes{bytesOf(file)};
    ConstBufferStream stream{bytes};
    NetPBMImporter importer;
    IncrementalBuffer buffer;
    ImageMetadata metadata;
    EXPECT_EQ(complaintOf([&] { importer.readMetadata(metadata); }),
              "Migrator was not associated with a stream. ");
    EXPECT_EQ(complaintOf([&] { NetPBMExporter{}.exportImage(buffer, metadataOf(0, 0, 1, 8)); }),
              "Migrator was not associated with a stream. ");
    importer.setStream(&stream);
    const std::string noMetadata = "Meta data not provided before attempting to read data. ";
    EXPECT_EQ(complaintOf([&] { importer.readData(buffer); }), noMetadata);
    importer.readMetadata(metadata);
    importer.readData(buffer);
    EXPECT_EQ(textOf(buffer), "a");
    EXPECT_EQ(complaintOf([&] { importer.readData(buffer); }), noMetadata);

    Metadata untouched;
    EXPECT_NE(complaintOf([&] { importer.readMetadata(untouched); }), "");
    EXPECT_TRUE(untouched.keys().empty());
    importer.resetStream();
    EXPECT_EQ(complaintOf([&] { importer.readMetadata(metadata); }),
              "Migrator was not associated with a stream. ");
}

TEST(NetPBM, ReadsWhatIsLargerThanOnePiece) {
    constexpr std::uint32_t kWidth = 1021;
    constexpr std::uint32_t kHeight = 3079;
    std::string samples(std::size_t{kWidth} * kHeight, '\0');
    std::mt19937 random{1};
    for (char& sample : samples)
        sample = static_cast<char>(random());
    const std::string file = exportText(samples, metadataOf(kWidth, kHeight, 1, 8));
    EXPECT_EQ(file.substr(file.size() - kWidth), samples.substr(0, kWidth));
    EXPECT_TRUE(textOf(importText(file).buffer) == samples);
}

TEST(NetPBM, WritesOtherLayouts) {
    ImageMetadata bgra = metadataOf(2, 2, 3, 8);
    bgra.format = ImageMetadata::Format::Bgra;
    bgra.lineAlignment = 64;
    ImageMetadata bgr16 = metadataOf(1, 1, 3, 16);
    bgr16.format = ImageMetadata::Format::Bgra;
    ImageMetadata padded = metadataOf(2, 1, 1, 1);
    padded.pixelAlignment = 16;
    struct Case {
        ImageMetadata metadata;
        std::string samples;
        std::string file;
        std::string complaint;
    };
    const Case kCases[] = {
        {bgra, "abcdef..ghijkl..", "P6\n2\n2\n255\nihglkjcbafed", ""},
        {bgr16, "aAbBcC", "P6\n1\n1\n65535\ncCbBaA", ""},
        {padded, "\0.\7."s, "P4\n2\n1\n\x40", ""},
        {metadataOf(9, 1, 1, 1), "\1\0\0\0\0\0\0\0\2"s, "P4\n9\n1\n\x80\x80", ""},
        {metadataOf(2, 1, 1, 4), "ab", "P5\n2\n1\n15\nab", ""},
        {metadataOf(1, 2, 1, 9), "abcd", "P5\n1\n2\n511\ncdab", ""},
        {metadataOf(1, 1, 3, 1), "\1\0\1"s, "P6\n1\n1\n1\n\1\0\1"s, ""},
        {metadataOf(1, 1, 3, 12), "abcdef", "P6\n1\n1\n4095\nabcdef", ""},
        {metadataOf(0, 3, 3, 8), "", "P6\n0\n3\n255\n", ""},
        {metadataOf(1, 1, 4, 8), "abcd", "", "No support for NetPBM PAM. "},
        {metadataOf(1, 1, 2, 8), "ab", "", "No support for NetPBM PAM. "},
        {metadataOf(1, 1, 0, 8), "", "", "No support for NetPBM PAM. "},
        {metadataOf(1, 1, 1, 0), "a", "", "No support for samples of 0 bits. "},
        {metadataOf(1, 1, 4, 17), "abcd", "",
         "NetPBM : NetPBM does not allow more than 16 bits per pixel component. "},
        {metadataOf(2, 2, 1, 8), "abc", "",
         "More space requested (4) than what is available (3). "},
        {metadataOf(4294967295, 4294967295, 1, 12), "abc", "",
         "More space requested (18446744073709551615) than what is available (3). "},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.file + c.complaint);
        Metadata texts;
        texts.assign(c.metadata);
        std::string file;
        EXPECT_EQ(complaintOf([&] { file = exportText(c.samples, texts); }), c.complaint);
        EXPECT_EQ(file, c.file);
    }
}

TEST(NetPBM, SurvivesDamage) {
    std::mt19937 random{7};
    for (const char* name : kFixtures) {
        const std::string file = fixture(name);
        for (std::size_t size = 0; size < file.size(); ++size)
            EXPECT_EQ(complaintOf([&] { importText(file.substr(0, size)); }),
                      "Attempted to read over end of buffer. ")
                << name << " of " << size << " bytes";
        for (int i = 0; i < 2000; ++i) {
            std::string damaged = file;
            for (int flips = 0; flips < 3; ++flips)
                damaged[random() % damaged.size()] ^= static_cast<char>(1U << random() % 8);
            static_cast<void>(complaintOf([&] { importText(damaged); }));
        }
    }
}

} // namespace
} // namespace VORN::Migration
