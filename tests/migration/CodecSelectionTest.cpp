#include "migration/CodecSelection.h"
#include "core/BufferStream.h"
#include "migration/NativeImporter.h"
#include "migration/NetPBMExporter.h"
#include "migration/NetPBMImporter.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>
#include <random>

namespace VORN::Migration {
namespace {

using namespace std::string_literals;

std::string nameOf(const DataImporter* importer) {
    if (dynamic_cast<const NetPBMImporter*>(importer) != nullptr)
        return "NetPBM";
    if (dynamic_cast<const NativeImporter*>(importer) != nullptr)
        return "native";
    return importer == nullptr ? "none" : "unknown";
}

std::string nameOf(const DataExporter* exporter) {
    if (dynamic_cast<const NetPBMExporter*>(exporter) != nullptr)
        return "NetPBM";
    return exporter == nullptr ? "none" : "unknown";
}

std::span<const std::uint8_t> bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string textOf(const Buffer& buffer) { return {buffer.data().begin(), buffer.data().end()}; }

/// A file of the native format with the metadata and the samples given.
std::string nativeFile(const Metadata& metadata, const std::string& samples) {
    IncrementalBuffer file;
    BufferStream stream{file};
    Serializer out{stream};
    metadata.serialize(out);
    out.put(samples); // the count and the bytes
    return textOf(file);
}

Metadata textsOf(std::uint32_t width, std::uint32_t height, const std::string& type) {
    ImageMetadata image;
    image.width = width;
    image.height = height;
    image.channels = 1;
    image.set("Type", type);
    Metadata texts;
    texts.assign(image);
    return texts;
}

const std::string kNativeFile = nativeFile(textsOf(2, 2, "8-bit unsigned little endian"), "abcd");

std::string importerOf(const std::string& fileName, const std::string& file) {
    const BorrowConstBuffer bytes{bytesOf(file)};
    ConstBufferStream stream{bytes};
    const std::string name = nameOf(chooseImporter(fileName, stream).get());
    EXPECT_EQ(stream.tell(), 0U);
    return name;
}

TEST(CodecSelection, GoesByExtensionFirst) {
    struct Case {
        const char* fileName;
        const char* importer;
        const char* exporter;
    };
    constexpr Case kCases[] = {
        {"a.pbm", "NetPBM", "NetPBM"},   {"a.pgm", "NetPBM", "NetPBM"},
        {"a.ppm", "NetPBM", "NetPBM"},   {"a.pam", "NetPBM", "NetPBM"},
        {"A.B.PnM", "NetPBM", "NetPBM"}, {".pgm", "NetPBM", "NetPBM"},
        {"a.gif", "none", "none"},       {"pgm", "none", "none"},
        {"a.", "none", "none"},          {"", "none", "none"},
        {"a.pgm/b", "none", "none"},     {"a.pgm.", "none", "none"},
        {"a.pgmx", "none", "none"},      {"a.\xFF", "none", "none"},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.fileName);
        EXPECT_EQ(nameOf(importerByExtension(c.fileName).get()), c.importer);
        EXPECT_EQ(nameOf(chooseExporter(c.fileName).get()), c.exporter);
        EXPECT_EQ(importerOf(c.fileName, kNativeFile),
                  c.importer == "none"s ? "native" : c.importer);
    }
}

TEST(CodecSelection, GoesByContentElse) {
    struct Case {
        std::string file;
        const char* importer;
    };
    const std::string tooManyKeys = "\xFF\xFF\0\0"s + kNativeFile.substr(4);
    std::string unordered = kNativeFile;
    std::swap_ranges(unordered.begin() + 8, unordered.begin() + 10, unordered.begin() + 20);
    Metadata incomplete;
    incomplete.set("Width", "1");
    Metadata more = textsOf(1, 1, "8-bit unsigned little endian");
    more.set("Author", "me");
    const Case kCases[] = {
        {kNativeFile, "native"},
        {nativeFile(more, "a"), "native"},
        {nativeFile(incomplete, "a"), "none"},
        {tooManyKeys, "none"},
        {unordered, "none"},
        {"P5 2 2 255 abcd", "none"}, // deliberately not recognised
        {"\0\0\0\0\0\0\0\0"s, "none"},
        {"\x07\0\0\0\xFF\xFF\xFF\xFF"s, "none"},
        {"GIF89a", "none"},
        {"", "none"},
    };
    for (const Case& c : kCases)
        EXPECT_EQ(importerOf("picture.dat", c.file), c.importer) << c.file;
}

Metadata without(const std::string& key) {
    const Metadata all = textsOf(2, 2, "8-bit unsigned little endian");
    Metadata rest;
    for (const std::string& other : all.keys())
        if (other != key)
            rest.set(other, all.get(other));
    return rest;
}

void importNative(const std::string& file, DynamicBuffer& buffer, Metadata& metadata) {
    const BorrowConstBuffer bytes{bytesOf(file)};
    ConstBufferStream stream{bytes};
    NativeImporter importer;
    importer.setStream(&stream);
    importer.importImage(buffer, metadata);
}

TEST(NativeImporter, ReadsItsFormatAndNothingElse) {
    Metadata commented = textsOf(2, 1, "16-bit unsigned big endian");
    commented.set("Comment", "mine");
    Metadata badWidth = textsOf(2, 2, "8-bit unsigned little endian");
    badWidth.set("Width", "two");
    struct Case {
        std::string file;
        std::string complaint;
    };
    const Case kCases[] = {
        {nativeFile(commented, "abcd"), ""},
        {nativeFile(commented, "abc"), "native : Expected 4 sample bytes but 3 are stored. "},
        {nativeFile(textsOf(4294967295, 4294967295, "16-bit unsigned big endian"), "abc"),
         "Failed to allocate picture. "},
        {nativeFile(textsOf(8, 1, "1-bit unsigned little endian"), ""),
         "No support for non-byte-aligned pixels. "},
        {nativeFile(without("Type"), "abcd"), "Could not find Type in metadata. "},
        {nativeFile(badWidth, "abcd"), "Failed to convert \"two\" to unsigned int."},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.complaint);
        IncrementalBuffer buffer;
        ImageMetadata metadata;
        EXPECT_EQ(complaintOf([&] { importNative(c.file, buffer, metadata); }), c.complaint);
        EXPECT_EQ(textOf(buffer), c.complaint.empty() ? "abcd" : "");
        if (c.complaint.empty()) {
            EXPECT_EQ(metadata.get("Comment"), "mine");
            EXPECT_EQ(metadata.width, 2U);
        }
    }
}

TEST(NativeImporter, SurvivesDamage) {
    IncrementalBuffer buffer;
    ImageMetadata metadata;
    for (std::size_t size = 0; size < kNativeFile.size(); ++size)
        EXPECT_EQ(complaintOf([&] { importNative(kNativeFile.substr(0, size), buffer, metadata); }),
                  "Attempted to read over end of buffer. ");
    std::mt19937 random{3};
    for (int i = 0; i < 5000; ++i) {
        std::string damaged = kNativeFile;
        damaged[random() % damaged.size()] ^= static_cast<char>(1U << random() % 8);
        static_cast<void>(importerOf("picture", damaged));
        static_cast<void>(complaintOf([&] { importNative(damaged, buffer, metadata); }));
    }
}

} // namespace
} // namespace VORN::Migration
