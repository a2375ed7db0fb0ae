#include "migration/netpbm/NetPBMExporter.h"
#include "migration/netpbm/NetPBMImporter.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace VORN::Migration {
namespace {

using namespace std::string_literals;

TEST(NetPBM, ReadsEachKindAndWritesItBack) {
    const std::pair<const char*, const char*> kCases[] = {
        {"bitmap-10x3.pbm", kBits}, {"gray8-5x3.pgm", kBytes}, {"gray16-3x2.pgm", kWords},
        {"rgb8-3x3.ppm", kBytes},   {"rgb16-2x2.ppm", kWords},
    };
    for (const auto& [name, type] : kCases) {
        SCOPED_TRACE(name);
        Bytes file = fixture("netpbm/"s + name);
        const Picture picture = imported<NetPBMImporter>(file);
        EXPECT_EQ(picture.metadata.get("Type"), type);
        EXPECT_EQ(picture.metadata.get("Format"), name[0] == 'r' ? "RGBA" : "INTENSITY");
        *std::ranges::find(file, ' ') = '\n'; // the fixtures have width and height on one line
        IncrementalBuffer again;
        exportTo<NetPBMExporter>(again, picture.samples, picture.metadata);
        EXPECT_EQ(bytesOf(again), file);
    }
}

TEST(NetPBM, GivesSamplesOrSaysWhyNot) {
    const std::string end = "Attempted to read over end of buffer. ";
    const std::pair<std::string, std::string> kCases[] = {
        {"P5 2 2 255 abcd", "cdab"},
        {"P5\n# 7 8\n2\t2\r# x\n\n 65535\nabcdefgh", "efghabcd"},
        {"P5\0002\0002\000255\0abcd"s, "cdab"},
        {"P5\n2#2#\n2##\n#\n 1#255\nabcd", "cdab"},
        {"P5\n2 2\r\n256\r\nabcdefg", "defg\nabc"}, // one byte ends a number, not two
        {"P6 1 2 255 abcdef", "defabc"},
        {"P6 1 2 256 aAbBcCdDeEfF", "dDeEfFaAbBcC"},
        {"P4 10 2 \xA5\x7F\x00\x80"s, "\0\0\0\0\0\0\0\0\1\0\1\0\1\0\0\1\0\1\0\1"s},
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
        {"P4 4294967295 4294967295 abc", end},
        {"P5 4294967295 4294967295 255 abc", end},
        {"P6 4294967295 4294967295 65535 abc", "Failed to allocate picture. "},
        {"P6 4294967295 0 65535 abc", ""},
        {"P6 0 4294967295 65535 ", ""},
        {"P4 0 4294967295 ", ""},
    };
    for (const auto& [file, samplesOrComplaint] : kCases) {
        Bytes samples;
        append(samples, bytesOf(complaintOf([&, &bytes = file] {
                   samples = imported<NetPBMImporter>(bytesOf(bytes)).samples;
               })));
        EXPECT_EQ(samples, bytesOf(samplesOrComplaint)) << file;
    }
}

TEST(NetPBM, TakesMetadataAndSamplesInTurn) {
    const Bytes file = bytesOf("P5 1 1 255 aP5 1 x ");
    const BorrowConstBuffer bytes{file};
    ConstBufferStream stream{bytes};
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
    Bytes samples(std::size_t{1021} * 3079);
    std::ranges::generate(samples, [random = std::mt19937{1}]() mutable { return random(); });
    IncrementalBuffer file;
    exportTo<NetPBMExporter>(file, samples, described(1021, 3079, 1));
    EXPECT_TRUE(imported<NetPBMImporter>(file.data()).samples == samples);
}

TEST(NetPBM, WritesEachLayoutOrSaysWhyNot) {
    const auto unsignedBits = [](unsigned bits) {
        return std::to_string(bits) + "-bit unsigned little endian";
    };
    const struct {
        ImageMetadata metadata;
        std::string samples;
        std::string fileOrComplaint;
    } kCases[] = {
        {described(2, 2, 3, kBytes, "BGRA", 0, 64), "abcdef..ghijkl..",
         "P6\n2\n2\n255\nihglkjcbafed"},
        {described(1, 1, 3, kWords, "BGRA"), "aAbBcC", "P6\n1\n1\n65535\ncCbBaA"},
        {described(2, 1, 1, kBits, "INTENSITY", 16), "\0.\7."s, "P4\n2\n1\n\x40"},
        {described(2, 1, 1, unsignedBits(4)), "ab", "P5\n2\n1\n15\nab"},
        {described(1, 2, 1, unsignedBits(9)), "abcd", "P5\n1\n2\n511\ncdab"},
        {described(1, 1, 3, kBits), "\1\0\1"s, "P6\n1\n1\n1\n\1\0\1"s},
        {described(0, 3, 3), "", "P6\n0\n3\n255\n"},
        {described(1, 1, 4), "abcd", "No support for NetPBM PAM. "},
        {described(1, 1, 0), "", "No support for NetPBM PAM. "},
        {described(1, 1, 1, unsignedBits(0)), "a", "No support for samples of 0 bits. "},
        {described(1, 1, 4, unsignedBits(17)), "abcd",
         "NetPBM : NetPBM does not allow more than 16 bits per pixel component. "},
        {described(2, 2, 1), "abc", "More space requested (4) than what is available (3). "},
        {described(~0U, ~0U, 1, unsignedBits(12)), "abc",
         "More space requested (18446744073709551615) than what is available (3). "},
    };
    for (const auto& c : kCases) {
        IncrementalBuffer file;
        const std::string complaint = complaintOf(
            [&] { exportTo<NetPBMExporter>(file, bytesOf(c.samples), textsOf(c.metadata)); });
        const std::string written{file.data().begin(), file.data().end()};
        EXPECT_EQ(written + complaint, c.fileOrComplaint);
    }
}

} // namespace
} // namespace VORN::Migration
