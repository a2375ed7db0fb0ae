#include "core/CppStream.h"
#include "core/Crc32.h"
#include "tests/Bytes.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <fstream>
#include <numeric>

namespace VORN {
namespace {

std::string take(ReadStream& in, std::size_t count) {
    std::string text(count, '?');
    in.read({reinterpret_cast<std::uint8_t*>(text.data()), count});
    return text;
}

// Every source of bytes behaves alike.
void checkReading(RandomReadStream& in, const char* pastEnd) {
    EXPECT_EQ(in.size(), 10U);
    EXPECT_EQ(take(in, 3), "012");
    in.skip(2);
    in.skip(2, 1);
    EXPECT_EQ(in.tell(), 7U);
    EXPECT_EQ(take(in, 3), "789");
    EXPECT_TRUE(in.atEnd());
    EXPECT_EQ(take(in, 0), "");
    EXPECT_EQ(complaintOf([&] { take(in, 1); }), pastEnd);
    in.seek(9);
    EXPECT_FALSE(in.atEnd());
    std::array<std::uint8_t, 4> some{};
    EXPECT_EQ(in.readSome(some), 1U);
    EXPECT_EQ(in.readSome(some), 0U);
}

TEST(Streams, ReadAlike) {
    const Bytes digits = bytesOf("0123456789");
    BorrowConstBuffer buffer{digits};
    ConstBufferStream memory{buffer};
    checkReading(memory, "Attempted to read over end of buffer. ");
    EXPECT_EQ(complaintOf([&] { buffer.writableData(); }),
              "Failed to access buffer fully because it is const. ");
    std::istringstream text{"0123456789"};
    CppInStream file{text};
    checkReading(file, "Failed to read from input stream. ");
}

// Every place for bytes behaves alike.
void checkWriting(RandomWriteStream& out) {
    out.write(bytesOf("0123456789"));
    out.seek(3);
    out.write(bytesOf("ab"));
    EXPECT_EQ(out.tell(), 5U);
    EXPECT_EQ(out.size(), 10U);
    EXPECT_EQ(out.tell(), 5U);
    out.seek(10);
    out.write(bytesOf("c"));
    out.flush();
    EXPECT_EQ(out.size(), 11U);
}

TEST(Streams, WriteAlike) {
    IncrementalBuffer buffer;
    BufferStream memory{buffer};
    checkWriting(memory);
    memory.seek(2);
    EXPECT_EQ(take(memory, 9), "2ab56789c");
    EXPECT_TRUE(memory.atEnd());
    EXPECT_EQ(complaintOf([&] { take(memory, 1); }), "Attempted to read over end of buffer. ");
    std::ostringstream text;
    CppOutStream file{text};
    checkWriting(file);
    EXPECT_EQ(text.str(), "012ab56789c");
    text.setstate(std::ios::badbit);
    EXPECT_EQ(complaintOf([&] { file.write(bytesOf("x")); }), "Failed to write to output stream. ");
}

TEST(Streams, TellWhatFailed) {
    std::ifstream missing{"/nonexistent"};
    EXPECT_EQ(complaintOf([&] { CppInStream{missing}; }), "Wrapping bad input stream. ");
    std::ofstream unwritable{"/nonexistent/x"};
    EXPECT_EQ(complaintOf([&] { CppOutStream{unwritable}; }), "Wrapping bad output stream. ");
    std::istringstream broken{"x"};
    CppInStream in{broken};
    broken.setstate(std::ios::badbit);
    EXPECT_EQ(complaintOf([&] { take(in, 1); }), "Failed to read from input stream. ");
    EXPECT_EQ(complaintOf([&] { in.seek(std::uint64_t{1} << 63); }),
              "Value (9223372036854775808) out of bound (9223372036854775807). ");
    if (std::ofstream full{"/dev/full"}) { // not every system has it
        CppOutStream out{full};
        out.write(bytesOf("x"));
        EXPECT_EQ(complaintOf([&] { out.flush(); }), "Failed to flush output stream. ");
    }
}

TEST(BufferStream, EndsWithABufferThatWasMadeShorter) {
    IncrementalBuffer buffer;
    BufferStream stream{buffer};
    stream.write(bytesOf("0123456789"));
    buffer.resize(3);
    EXPECT_TRUE(stream.atEnd());
    EXPECT_EQ(take(stream, 0), "");
    EXPECT_EQ(complaintOf([&] { take(stream, 1); }), "Attempted to read over end of buffer. ");
    stream.seek(1);
    EXPECT_EQ(take(stream, 2), "12");
}

TEST(StreamPump, CopiesInChunks) {
    StreamPump pump{4};
    EXPECT_EQ(complaintOf([&] { pump.pump(0); }), "Stream pump source not initialized. ");
    std::istringstream text{"0123456789"};
    CppInStream source{text};
    pump.setSource(&source);
    EXPECT_EQ(complaintOf([&] { pump.pump(0); }), "Stream pump sink not initialized. ");
    std::ostringstream copy;
    CppOutStream sink{copy};
    pump.setSink(&sink);
    pump.pump(9);
    EXPECT_EQ(copy.str(), "012345678");
    EXPECT_EQ(complaintOf([&] { pump.pump(2); }), "Failed to read from input stream. ");
}

TEST(ReadAll, TakesWhatThereIs) {
    std::string text(200000, 'x');
    std::iota(text.begin(), text.end(), 0);
    std::istringstream source{text};
    CppInStream in{source};
    IncrementalBuffer bytes;
    BufferStream{bytes}.write(bytesOf("before"));
    readAll(in, bytes);
    EXPECT_TRUE(std::ranges::equal(bytes.data(), bytesOf("before" + text)));
}

TEST(Crc32, MatchesThePublishedCheckValue) {
    const Bytes digits = bytesOf("123456789");
    for (const std::size_t split : {0U, 1U, 5U, 9U}) {
        Crc32 crc;
        crc.update(std::span{digits}.first(split));
        crc.update(std::span{digits}.subspan(split));
        EXPECT_EQ(crc.value(), 0xCBF43926U);
    }
}

} // namespace
} // namespace VORN
