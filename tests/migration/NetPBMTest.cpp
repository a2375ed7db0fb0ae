#include "core/CppInStream.h"
#include "core/CppOutStream.h"
#include "migration/NetPBMExporter.h"
#include "migration/NetPBMImporter.h"
#include "tests/Complaint.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace VORN::Migration {
namespace {

using namespace std::string_literals;

const std::string kEnd = "Failed to read from input stream. ";

/// Reads a picture; returns its buffer.
std::string importText(const std::string& file, ImageMetadata& metadata) {
    std::istringstream in{file};
    CppInStream stream{in};
    NetPBMImporter importer;
    importer.setStream(&stream);
    IncrementalBuffer buffer;
    importer.importImage(buffer, metadata);
    return {buffer.data().begin(), buffer.data().end()};
}

std::string exportText(const std::string& samples, const Metadata& metadata) {
    std::ostringstream out;
    CppOutStream stream{out};
    NetPBMExporter exporter;
    exporter.setStream(&stream);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(samples.data());
    exporter.exportImage(BorrowConstBuffer{{bytes, samples.size()}}, metadata);
    return out.str();
}

std::string fixture(const std::string& name) {
    std::ifstream in{KAVRIN_TEST_DATA "/netpbm/" + name, std::ios::binary};
    EXPECT_TRUE(in) << name;
    return {std::istreambuf_iterator<char>{in}, {}};
}

/// The buffer that belongs to a plain NetPBM file: the bottom row first.
std::string bufferOf(const std::string& name, bool isWide) {
    std::istringstream in{fixture(name)};
    std::string magic, samples, flipped;
    unsigned number = 0, height = 0;
    in >> magic >> number >> height;
    if (magic != "P1")
        in >> number;
    while (in >> number) {
        if (isWide)
            samples += static_cast<char>(number >> 8);
        samples += static_cast<char>(number & 255);
    }
    const std::size_t lineBytes = samples.size() / height;
    for (std::size_t y = height; y-- > 0;)
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

TEST(NetPBM, ReadsEachKindWritesItBackAndSurvivesDamage) {
    struct Case {
        const char* name;
        const char* extension;
        const char* type;
    };
    constexpr Case kCases[] = {
        {"bitmap-10x3", ".pbm", "1-bit unsigned little endian"},
        {"gray8-5x3", ".pgm", "8-bit unsigned little endian"},
        {"gray16-3x2", ".pgm", "16-bit unsigned little endian"},
        {"rgb8-3x3", ".ppm", "8-bit unsigned little endian"},
        {"rgb16-2x2", ".ppm", "16-bit unsigned little endian"},
    };
    std::mt19937 random{7};
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        std::string file = fixture(c.name + std::string{c.extension});
        ImageMetadata metadata;
        const std::string buffer = importText(file, metadata);
        EXPECT_EQ(buffer, bufferOf(c.name + ".txt"s, c.type[1] == '6'));
        EXPECT_EQ(metadata.get("Type"), c.type);
        EXPECT_EQ(metadata.get("Format"), c.name[0] == 'r' ? "RGBA" : "INTENSITY");
        file[file.find(' ')] = '\n'; // the fixtures have width and height on one line
        EXPECT_EQ(exportText(buffer, metadata), file);

        for (std::size_t size = 0; size < file.size(); ++size)
            EXPECT_EQ(complaintOf([&] { importText(file.substr(0, size), metadata); }), kEnd);
        for (int i = 0; i < 2000; ++i) {
            std::string damaged = file;
            for (int flips = 0; flips < 3; ++flips)
                damaged[random() % damaged.size()] ^= static_cast<char>(1U << random() % 8);
            static_cast<void>(complaintOf([&] { importText(damaged, metadata); }));
        }
    }
}

TEST(NetPBM, ReadsHeadersHoweverTheyAreSpaced) {
    struct Case {
        std::string file;
        std::string buffer;
    };
    const Case kCases[] = {
        {"P5 2 2 255 abcd", "cdab"},
        {"P5\n# 7 8\n2\t2\r# x\n\n 65535\nabcdefgh", "efghabcd"},
        {"P5\0002\0002\000255\0abcd"s, "cdab"},
        {"P5\n2#2#\n2##\n#\n 1#255\nabcd", "cdab"},
        {"P5\n2 2\r\n256\r\nabcdefg", "defg\nabc"}, // one byte ends a number, not two
    };
    ImageMetadata metadata;
    for (const Case& c : kCases)
        EXPECT_EQ(importText(c.file, metadata), c.buffer) << c.file;
}

TEST(NetPBM, SaysWhyAFileIsRefused) {
    struct Case {
        const char* file;
        std::string complaint;
    };
    const Case kCases[] = {
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
        // Sizes that nothing could hold cost nothing.
        {"P4 4294967295 4294967295 abc", kEnd},
        {"P5 4294967295 4294967295 255 abc", kEnd},
        {"P6 4294967295 4294967295 65535 abc", "Failed to allocate picture. "},
        {"P6 4294967295 0 65535 abc", ""},
        {"P6 0 4294967295 65535 ", ""},
        {"P4 0 4294967295 ", ""},
    };
    ImageMetadata metadata;
    for (const Case& c : kCases)
        EXPECT_EQ(complaintOf([&] { EXPECT_EQ(importText(c.file, metadata), ""); }), c.complaint);
}

TEST(NetPBM, TakesMetadataAndSamplesInTurn) {
    std::istringstream in{"P5 1 1 255 aP5 1 x "};
    CppInStream stream{in};
    NetPBMImporter importer;
    IncrementalBuffer buffer;
    Metadata metadata, untouched;
    const std::string noMetadata = "Meta data not provided before attempting to read data. ";
    importer.setStream(&stream);
    EXPECT_EQ(complaintOf([&] { importer.readData(buffer); }), noMetadata);
    importer.readMetadata(metadata);
    importer.readData(buffer);
    EXPECT_EQ(complaintOf([&] { importer.readData(buffer); }), noMetadata);
    EXPECT_NE(complaintOf([&] { importer.readMetadata(untouched); }), "");
    EXPECT_TRUE(untouched.keys().empty());
    importer.resetStream();
    EXPECT_EQ(complaintOf([&] { importer.readMetadata(untouched); }),
              "Migrator was not associated with a stream. ");
}

TEST(NetPBM, ReadsWhatComesInSeveralPieces) {
    const ImageMetadata metadata = metadataOf(1021, 3079, 1, 8);
    std::string samples(std::size_t{1021} * 3079, '\0');
    std::ranges::generate(samples, [random = std::mt19937{1}]() mutable { return random(); });
    ImageMetadata again;
    EXPECT_TRUE(importText(exportText(samples, metadata), again) == samples);
}

TEST(NetPBM, WritesEachLayoutOrSaysWhyNot) {
    ImageMetadata bgra = metadataOf(2, 2, 3, 8);
    bgra.format = ImageMetadata::Format::Bgra;
    bgra.lineAlignment = 64;
    ImageMetadata bgra16 = metadataOf(1, 1, 3, 16);
    bgra16.format = ImageMetadata::Format::Bgra;
    ImageMetadata padded = metadataOf(2, 1, 1, 1);
    padded.pixelAlignment = 16;
    struct Case {
        ImageMetadata metadata;
        std::string samples;
        std::string fileOrComplaint;
    };
    const Case kCases[] = {
        {bgra, "abcdef..ghijkl..", "P6\n2\n2\n255\nihglkjcbafed"},
        {bgra16, "aAbBcC", "P6\n1\n1\n65535\ncCbBaA"},
        {padded, "\0.\7."s, "P4\n2\n1\n\x40"},
        {metadataOf(2, 1, 1, 4), "ab", "P5\n2\n1\n15\nab"},
        {metadataOf(1, 2, 1, 9), "abcd", "P5\n1\n2\n511\ncdab"},
        {metadataOf(1, 1, 3, 1), "\1\0\1"s, "P6\n1\n1\n1\n\1\0\1"s},
        {metadataOf(0, 3, 3, 8), "", "P6\n0\n3\n255\n"},
        {metadataOf(1, 1, 4, 8), "abcd", "No support for NetPBM PAM. "},
        {metadataOf(1, 1, 0, 8), "", "No support for NetPBM PAM. "},
        {metadataOf(1, 1, 1, 0), "a", "No support for samples of 0 bits. "},
        {metadataOf(1, 1, 4, 17), "abcd",
         "NetPBM : NetPBM does not allow more than 16 bits per pixel component. "},
        {metadataOf(2, 2, 1, 8), "abc", "More space requested (4) than what is available (3). "},
        {metadataOf(4294967295, 4294967295, 1, 12), "abc",
         "More space requested (18446744073709551615) than what is available (3). "},
    };
    for (const Case& c : kCases) {
        Metadata texts;
        texts.assign(c.metadata);
        std::string file;
        const std::string complaint = complaintOf([&] { file = exportText(c.samples, texts); });
        EXPECT_EQ(file + complaint, c.fileOrComplaint);
    }
}

} // namespace
} // namespace VORN::Migration
