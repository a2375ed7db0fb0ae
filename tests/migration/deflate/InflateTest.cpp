#include "migration/deflate/Inflate.h"
#include "core/Serialization.h"
#include "migration/deflate/Adler32.h"
#include "migration/deflate/DeflateStored.h"
#include "migration/deflate/ZlibHeader.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"
#include "tests/migration/png/PngFile.h"

#include <gtest/gtest.h>
#include <random>

namespace VORN::Migration {
namespace {

constexpr const char* kEnd = "Attempted to read over end of buffer. ";

/// What `input` inflates to; `bytesRead` is what was taken of it.
Bytes inflated(std::span<const std::uint8_t> input, std::size_t& bytesRead) {
    const BorrowConstBuffer buffer{input};
    ConstBufferStream in{buffer};
    const Bytes data = written([&](WriteStream& out) { inflate(in, out); });
    bytesRead = static_cast<std::size_t>(in.tell());
    return data;
}

TEST(Inflate, SaysWhatIsWrong) {
    constexpr const char* kBlock = "deflate : Reserved block type detected. ";
    constexpr const char* kReference =
        "deflate : Back reference refer beyond beginning of buffer. ";
    constexpr const char* kLiteral = "deflate : Invalid code word in literal and length code. ";
    constexpr const char* kDistance = "deflate : Invalid code word in distance code. ";
    constexpr std::pair<const char*, const char*> kCases[] = {
        {"1 10 0000000", ""},
        {"", kEnd},
        {"1 11", kBlock},
        {"0 10 0000000 1 11", kBlock},
        {"1 00 00000 1100000000000000 0011111111111101",
         "deflate : Missmatching length and length complement in no compression block. "},
        {"1 00 00000 1100000000000000 0011111111111111 00000000", kEnd},
        // Length 3 at once; then one literal and the distances 1 and 2.
        {"1 10 0000001 00000 0000000", kReference},
        {"1 10 00110000 0000001 00000 0000000", ""},
        {"1 10 00110000 0000001 00001 0000000", kReference},
        // The symbols 286 and 287, the distances 30 and 31.
        {"1 10 11000110", kLiteral}, // whatever follows, or nothing
        {"1 10 11000110 0000000 0000000", kLiteral},
        {"1 10 11000111 0000000 0000000", kLiteral},
        {"1 10 00110000 0000001 11110", kDistance},
        {"1 10 00110000 0000001 11111 0000000000", kDistance},
        // No code length code at all; one for 0 and 18; one for 0 and 16, which comes first.
        {"1 01 00000 00000 0000 000 000 000 000 0000000",
         "deflate : Invalid code word in code length code. "},
        {"1 01 00000 00000 0000 000 000 100 100 1 1111111 1 1111111",
         "deflate : Invalid number of code length symbols unpacked. "},
        {"1 01 00000 00000 0000 100 000 000 100 1 00",
         "deflate : Repeated code length without a previous one. "},
    };
    std::size_t bytesRead = 0;
    for (const auto& [bits, complaint] : kCases) {
        SCOPED_TRACE(bits);
        Bytes stream = packed(bits);
        EXPECT_EQ(complaintOf([&] { inflated(stream, bytesRead); }), complaint);
        stream.resize(stream.size() + 32); // enough for the loop that looks at whole words
        if (complaint != std::string_view{kEnd}) {
            EXPECT_EQ(complaintOf([&] { inflated(stream, bytesRead); }), complaint);
        }
    }
}

TEST(Inflate, ReachesBackAsFarAsTheFormatAllows) {
    std::mt19937 random{5};
    Bytes stream{0x00, 0x00, 0x80, 0xFF, 0x7F};
    for (int i = 0; i < 32768; ++i)
        stream.push_back(static_cast<std::uint8_t>(random()));
    std::string bits = "1 10";
    for (int i = 0; i < 2000; ++i)
        bits += " 11000101 11101 1111111111111"; // 258 bytes from 32768 before
    std::size_t bytesRead = 0;
    const Bytes data = inflated(packed(bits + " 0000000", stream), bytesRead);
    ASSERT_EQ(data.size(), 32768U + 2000 * 258);
    for (std::size_t i = 0; i < data.size(); ++i)
        ASSERT_EQ(data[i], stream[5 + i % 32768]) << i;
}

TEST(Inflate, TakesWholeStreamsOnly) {
    for (const std::string name : {"stored", "fixed", "dynamic", "runs", "longcodes", "literals"}) {
        SCOPED_TRACE(name);
        const Bytes file = fixture("deflate/" + name + ".zlib");
        const std::span stream = std::span{file}.subspan(2);
        std::size_t bytesRead = 0;
        Adler32 adler;
        adler.update(inflated(stream, bytesRead));
        EXPECT_EQ(adler.value(), fromBigEndian(stream.last<4>()));
        EXPECT_EQ(bytesRead, stream.size() - 4);
        for (std::size_t size = 0; size < stream.size() - 4; ++size)
            EXPECT_EQ(complaintOf([&] { inflated(stream.first(size), bytesRead); }), kEnd);
    }
}

TEST(DeflateStored, CutsTheDataIntoBlocks) {
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 70000U, 131070U}) {
        SCOPED_TRACE(size);
        Bytes data(size);
        for (std::size_t i = 0; i < size; ++i)
            data[i] = static_cast<std::uint8_t>(i * i >> 7);
        IncrementalBuffer stream;
        BufferStream out{stream};
        std::size_t bytesRead = 0;
        DeflateStored blocks{out, size};
        blocks.write(std::span{data}.first(size / 2));
        blocks.write(std::span{data}.subspan(size / 2));
        EXPECT_EQ(stream.size(), DeflateStored::streamBytes(size));
        EXPECT_EQ(stream.size(), size + 5 * ((size + 65534) / 65535));
        EXPECT_TRUE(size == 0 || inflated(stream.data(), bytesRead) == data);
    }
}

TEST(Adler32, EqualsThePlainSums) {
    const Bytes white(20000, 255);
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    Adler32 whole;
    for (std::size_t done = 0, size = 1; done + size <= white.size(); done += size, size += 37) {
        whole.update(std::span{white}.subspan(done, size));
        for (std::size_t i = done; i < done + size; ++i) {
            a = (a + white[i]) % 65521;
            b = (b + a) % 65521;
        }
        ASSERT_EQ(whole.value(), b << 16 | a) << done;
    }
}

TEST(ZlibHeader, NamesTheFirstFieldThatIsWrong) {
    const std::pair<ZlibHeader, const char*> kCases[] = {
        {{0x78, 0x01}, ""},
        {{0x08, 0x1D}, ""},
        {{0x78, 0x00}, "png : invalid zlib header"},
        {{0x79, 0x18}, "png : unexpected zlib header compression method"},
        {{0x88, 0x1C}, "png : unexpected zlib header compression info"},
        {{0x89, 0x14}, "png : unexpected zlib header compression method"},
        {{0x78, 0x20}, "png : zlib header indicates preset dictionary"},
    };
    for (const auto& [header, complaint] : kCases)
        EXPECT_EQ(complaintOf([&tried = header] { tried.check(); }), complaint);
}

} // namespace
} // namespace VORN::Migration
