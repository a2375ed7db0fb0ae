#include "migration/JPEGImporter.h"

#include "core/BufferStream.h"
#include "migration/ImageMetadata.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

namespace VORN::Migration {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr const char* kFixtures[] = {
    "rgb444",
    "rgb422",
    "rgb440",
    "rgb420",
    "rgb411",
    "grey",
    "quality1",
    "quality100",
    "rgb420-3x5",
    "rgb420-1x1",
    "restart",
    "rgb444-progressive",
    "rgb420-progressive",
    "grey-progressive",
};
constexpr const char* kEnd = "jpeg : Unexpected end of stream, no end of image segment detected. ";

Bytes fixture(const std::string& name) {
    std::ifstream in{KAVRIN_TEST_DATA "/jpeg/" + name, std::ios::binary};
    EXPECT_TRUE(in) << name;
    return {std::istreambuf_iterator<char>{in}, {}};
}

struct Picture {
    ImageMetadata metadata;
    IncrementalBuffer buffer;
};

void import(const Bytes& file, Picture& picture) {
    const BorrowConstBuffer bytes{file};
    ConstBufferStream stream{bytes};
    JPEGImporter importer;
    importer.setStream(&stream);
    importer.importImage(picture.buffer, picture.metadata);
}

std::string complaintAbout(const Bytes& file) {
    Picture picture;
    return complaintOf([&] { import(file, picture); });
}

/// The samples of a binary PGM or PPM file without comments.
Bytes expectedSamples(const std::string& name, const ImageMetadata& metadata) {
    const Bytes file = fixture(name + (metadata.channels == 1 ? ".pgm" : ".ppm"));
    const std::size_t count = std::size_t{metadata.width} * metadata.height * metadata.channels;
    std::ostringstream head;
    head << (metadata.channels == 1 ? "P5\n" : "P6\n") << metadata.width << ' ' << metadata.height
         << "\n255\n";
    EXPECT_EQ(std::string(file.begin(), file.end() - static_cast<std::ptrdiff_t>(count)),
              head.str());
    return {file.end() - static_cast<std::ptrdiff_t>(count), file.end()};
}

// An independent decoder rounds colours where this one truncates them, so that samples differ by 1;
// where its inverse DCT rounds a half the other way, by 2.
TEST(JPEGImporter, DecodesAsAnIndependentDecoderDoes) {
    for (const std::string name : kFixtures) {
        SCOPED_TRACE(name);
        Picture picture;
        ASSERT_EQ(complaintOf([&] { import(fixture(name + ".jpg"), picture); }), "");
        const std::string original =
            name == "restart" ? "rgb444" : name.substr(0, name.find("-progressive"));
        const bool isGrey = original == "grey";
        ASSERT_EQ(picture.metadata.get("Format"), isGrey ? "INTENSITY" : "RGBA");
        ASSERT_EQ(picture.metadata.get("Type"), "8-bit unsigned little endian");
        ASSERT_EQ(picture.metadata.channels, isGrey ? 1U : 3U);
        const Bytes expected = expectedSamples(original, picture.metadata);
        const auto samples = picture.buffer.data();
        ASSERT_EQ(samples.size(), expected.size());

        const std::size_t lineBytes = expected.size() / picture.metadata.height;
        std::size_t total = 0;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::size_t line = picture.metadata.height - 1 - i / lineBytes;
            const int difference = samples[line * lineBytes + i % lineBytes] - expected[i];
            ASSERT_LE(std::abs(difference), 2) << "at " << i;
            total += static_cast<std::size_t>(std::abs(difference));
        }
        EXPECT_LT(static_cast<double>(total),
                  (isGrey ? 0.01 : 0.9) * static_cast<double>(expected.size()));
    }
}

TEST(JPEGImporter, RefusesEveryTruncation) {
    for (const std::string name : kFixtures) {
        const Bytes file = fixture(name + ".jpg");
        for (std::size_t size = 0; size < file.size(); ++size) {
            const Bytes part(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
            ASSERT_EQ(complaintAbout(part), kEnd) << name << " cut to " << size;
        }
    }
}

TEST(JPEGImporter, SurvivesChangedBits) {
    std::mt19937 random{4};
    unsigned refused = 0;
    for (const std::string name : kFixtures) {
        const Bytes file = fixture(name + ".jpg");
        for (unsigned round = 0; round < 150; ++round) {
            Bytes changed = file;
            for (unsigned flips = 1 + random() % 4; flips > 0; --flips) {
                // Every other change goes into the first third, where the headers are.
                const std::size_t reach = random() % 2 == 0 ? changed.size() : changed.size() / 3;
                changed[random() % reach] ^= static_cast<std::uint8_t>(1U << random() % 8);
            }
            const std::string complaint = complaintAbout(changed);
            EXPECT_TRUE(complaint.empty() || complaint.starts_with("jpeg : ") ||
                        complaint.starts_with("No support for "))
                << complaint;
            refused += complaint.empty() ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 500U);
}

/// The place of the first byte behind the `count`th marker with this code.
std::size_t behindMarker(const Bytes& file, std::uint8_t code, unsigned count = 1) {
    for (std::size_t i = 0; i + 1 < file.size(); ++i)
        if (file[i] == 0xFF && file[i + 1] == code && --count == 0)
            return i + 2;
    ADD_FAILURE() << "no marker " << +code;
    return 0;
}

TEST(JPEGImporter, NamesWhatIsWrong) {
    struct Case {
        const char* fixture;
        std::uint8_t marker; // the bytes to be replaced are `offset` behind this marker
        std::ptrdiff_t offset;
        Bytes bytes;
        std::string complaint;
    };
    const auto unsupported = [](const std::string& what) {
        return "No support for " + what + ". ";
    };
    const Case kCases[] = {
        {"rgb444", 0xD8, 0, {0x00}, "jpeg : Expected start of marker segment. "},
        {"rgb444", 0xD8, 1, {0xC1}, unsupported("JPEG marker C1")},
        {"rgb444", 0xD8, 1, {0x0A}, unsupported("JPEG marker A")},
        {"rgb444", 0xD8, 1, {0xDC}, unsupported("JPEG marker DC")},
        {"rgb444", 0xD8, 1, {0xD7}, unsupported("JPEG marker D7")},
        {"rgb444", 0xD8, 1, {0xFF, 0xFF, 0xCC}, unsupported("JPEG marker CC")},
        {"rgb444", 0xE0, 0, {0x00, 0x01}, "jpeg : Marker segment smaller than expected. "},
        // Frame header: length, precision, height, width, count, then three bytes a component.
        {"rgb444", 0xC0, 1, {18}, "jpeg : Frame header larger than expected. "},
        {"rgb444", 0xC0, 1, {16}, "jpeg : Marker segment smaller than expected. "},
        {"rgb444", 0xC0, 2, {12}, unsupported("JPEG with other than 8-bit sample precision")},
        {"rgb444", 0xC0, 3, {0, 0}, "jpeg : Frame without pixels. "},
        {"rgb444", 0xC0, 5, {0, 0}, "jpeg : Frame without pixels. "},
        {"rgb444", 0xC0, 7, {4}, unsupported("JPEG with channels other than 1 or 3")},
        {"rgb444", 0xC0, 9, {0x10}, "jpeg : Sampling factor out of range. "},
        {"rgb444", 0xC0, 9, {0x51}, "jpeg : Sampling factor out of range. "},
        {"rgb444", 0xC0, 10, {4}, "jpeg : Quantization table selector out of range. "},
        {"rgb444", 0xC0, 10, {3}, "jpeg : Table that was not defined. "},
        {"rgb444", 0xC0, -1, {0xE0}, "jpeg : Scan before its frame. "},
        {"rgb444",
         0xC4,
         -1,
         {0xC2, 0, 11, 8, 0, 1, 0, 1, 1, 1, 0x11, 0},
         "jpeg : Image with more than one frame. "},
        {"rgb444", 0xC4, -1, {0xD9}, "jpeg : Component without any scan. "},
        {"rgb444", 0xC0, -1, {0xD9}, "jpeg : Image without frame. "},
        // Huffman table: length, class and destination, counts, symbols.
        {"rgb444", 0xC4, 2, {0x20}, "jpeg : Huffman table class out of range. "},
        {"rgb444", 0xC4, 2, {0x04}, "jpeg : Huffman table destination out of range. "},
        {"rgb444", 0xC4, 2, Bytes(17, 0), "jpeg : Empty huffman table. "},
        {"rgb444",
         0xC4,
         3,
         {3, 0, 3},
         "jpeg : Huffman table with more codes than its lengths allow. "},
        {"rgb444", 0xC4, 18, {255}, "jpeg : Huffman table with more than 256 codes. "},
        {"rgb444", 0xC4, 2, {0x03}, "jpeg : Table that was not defined. "},
        {"rgb444", 0xC4, 19, Bytes(12, 12), "jpeg : More than 11 DC extend bits encountered. "},
        {"rgb420",
         0xDB,
         2,
         {0x10},
         unsupported("JPEG with other than 8-bit quantization table precision")},
        {"rgb420", 0xDB, 2, {0x04}, "jpeg : Quantization table destination out of range. "},
        {"restart", 0xDD, 1, {5}, "jpeg : Define restart interval segment larger than expected. "},
        // Scan header: length, count, two bytes a component, spectral selection, approximation.
        {"rgb444", 0xDA, 1, {13}, "jpeg : Scan header larger than expected. "},
        {"rgb444",
         0xDA,
         0,
         {0, 8, 1, 1, 0x00, 0, 63, 0},
         "jpeg : Sequential DCT scan does not have same number of components as frame. "},
        {"rgb444",
         0xDA,
         3,
         {2},
         "jpeg : Sequential DCT scan component does not match frame component. "},
        {"rgb444", 0xDA, 4, {0x04}, "jpeg : Huffman table selector out of range. "},
        {"rgb444", 0xDA, 4, {0x02}, "jpeg : Table that was not defined. "},
        {"rgb444",
         0xDA,
         9,
         {1},
         unsupported("Sequential DCT JPEG with other than 0 start spectral selection")},
        {"rgb444",
         0xDA,
         10,
         {62},
         unsupported("Sequential DCT JPEG with other than 63 end spectral selection")},
        {"rgb444",
         0xDA,
         11,
         {0x01},
         unsupported("Sequential DCT JPEG with other than 0 successive approximation")},
        // Entropy-coded data. In the standard tables of luminance, 00 is DC category 0 and
        // 1111 1111 001 a run of 16 zeros.
        {"grey", 0xDA, 8, {0xFF, 0x01}, "jpeg : Expected stuff byte (0x00), got 0x1"},
        {"grey", 0xDA, 8, {0xFF, 0xD0}, "jpeg : Expected stuff byte (0x00), got 0xD0"},
        {"grey",
         0xDA,
         8,
         {0x3F, 0xCF, 0xF9, 0xFF, 0x00, 0x3F, 0xCF},
         "jpeg : Coefficient beyond the end of its block. "},
        {"grey", 0xDA, 8, {0xFF, 0x00, 0xFF, 0x00}, "jpeg : Bits that are no huffman code. "},
        {"restart", 0xD0, -2, {0x01}, "jpeg : Expected marker. "},
        {"restart", 0xD0, -1, {0xD9}, "jpeg : Expected reset marker, got 0xD9"},
        {"restart", 0xD0, -1, {0xD1}, "jpeg : Expected reset count 0, got 1"},
        {"restart", 0xD1, -1, {0xD7}, "jpeg : Expected reset count 1, got 7"},
        // Progressive scans; the first holds all DC coefficients, the second some of one component.
        {"rgb444-progressive",
         0xDA,
         10,
         {5},
         "jpeg : DC component of progressive JPEG not alone. "},
        {"rgb444-progressive",
         0xDA,
         3,
         {9},
         "jpeg : Scan component that the frame does not have. "},
        {"rgb444-progressive", 0xDA, 3, {2}, "jpeg : Scan component out of order. "},
        {"rgb444-progressive",
         0xDA,
         0,
         {0, 8, 1, 1, 0x00, 0, 0, 0},
         "jpeg : All components must be specified for DC in single scan of progressive JPEG. "},
        {"rgb444-progressive",
         0xDA,
         9,
         {1, 5},
         "jpeg : Only one component may be specified per AC scan of progressive JPEG. "},
        {"rgb444-progressive", 0xDA, 11, {0x0E}, "jpeg : Successive approximation out of range. "},
        {"rgb444-progressive", 0xDA, 11, {0x31}, "jpeg : Scan that refines by more than one bit. "},
        {"rgb444-progressive",
         0xDA,
         11,
         {0x21},
         "jpeg : Scan that does not continue the scans before it. "},
        {"grey-progressive", 0xDA, 5, {5, 64}, "jpeg : Spectral selection out of range. "},
        {"grey-progressive",
         0xDA,
         5,
         {1, 5},
         "jpeg : AC scan before the DC scan of its component. "},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << c.fixture << ": " << c.complaint);
        Bytes file = fixture(std::string{c.fixture} + ".jpg");
        const auto at = static_cast<std::ptrdiff_t>(behindMarker(file, c.marker)) + c.offset;
        std::ranges::copy(c.bytes, file.begin() + at);
        EXPECT_EQ(complaintAbout(file), c.complaint);
    }
}

TEST(JPEGImporter, NamesWrongAcSymbols) {
    // Every symbol of the table becomes this one, so that the first AC code has it.
    const auto complaintAboutSymbol = [](const char* name, unsigned table, std::uint8_t symbol) {
        Bytes file = fixture(name);
        const std::size_t counts = behindMarker(file, 0xC4, table) + 3;
        std::size_t codes = 0;
        for (std::size_t i = 0; i < 16; ++i)
            codes += file[counts + i];
        std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(counts) + 16, codes, symbol);
        return complaintAbout(file);
    };
    EXPECT_EQ(complaintAboutSymbol("grey.jpg", 2, 0x10),
              "jpeg : Encountered larger than EOB0 in sequential mode. ");
    EXPECT_EQ(complaintAboutSymbol("grey.jpg", 2, 0x0B),
              "jpeg : More than 10 AC extend bits encountered. ");
    EXPECT_EQ(complaintAboutSymbol("grey-progressive.jpg", 2, 0x0B),
              "jpeg : More than 10 AC extend bits encountered. ");
    EXPECT_EQ(complaintAboutSymbol("grey-progressive.jpg", 2, 0xF1),
              "jpeg : Coefficient beyond the end of its band. ");
    EXPECT_EQ(complaintAboutSymbol("grey-progressive.jpg", 4, 0x02),
              "jpeg : More than 1 AC extend bits encountered. ");
}

TEST(JPEGImporter, RefusesRestartIntervalsInProgressiveFiles) {
    Bytes file = fixture("rgb444-progressive.jpg");
    const Bytes interval{0xFF, 0xDD, 0x00, 0x04, 0x00, 0x04};
    file.insert(file.begin() + 2, interval.begin(), interval.end());
    EXPECT_EQ(complaintAbout(file), "No support for restart interval in progressive JPEG. ");
}

TEST(JPEGImporter, TakesNoMemoryForSizesThatAreOnlyClaimed) {
    for (const char* name : {"rgb420.jpg", "grey.jpg", "rgb420-progressive.jpg"}) {
        Bytes file = fixture(name);
        const std::uint8_t frame =
            std::string{name}.find("progressive") == std::string::npos ? 0xC0 : 0xC2;
        std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(behindMarker(file, frame)) + 3, 4,
                    std::uint8_t{0xFF});
        Picture picture;
        EXPECT_NE(complaintOf([&] { import(file, picture); }), "");
        EXPECT_EQ(picture.buffer.capacity(), 0U);
    }
}

} // namespace
} // namespace VORN::Migration
