#include "migration/CodecSelection.h"
#include "core/TypeName.h"
#include "migration/native/NativeImporter.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

using namespace std::string_literals;

/// The name of the class chosen without its namespaces; "" when none was.
template <class Codec>
std::string nameOf(const std::unique_ptr<Codec>& codec) {
    if (codec == nullptr)
        return "";
    const Codec& chosen = *codec;
    const std::string name = className(typeid(chosen));
    return name.substr(name.rfind(':') + 1);
}

/// Metadata of a grey picture, with one more key.
Metadata greyPicture(std::uint32_t width, std::uint32_t height, const std::string& type) {
    ImageMetadata image = described(width, height, 1, type, "INTENSITY");
    image.set("Comment", "mine");
    return textsOf(image);
}

/// A file of the native format.
std::string nativeFile(const Metadata& metadata, const std::string& samples) {
    IncrementalBuffer file;
    BufferStream stream{file};
    Serializer out{stream};
    metadata.serialize(out);
    out.put(samples); // the count and the bytes
    return {file.data().begin(), file.data().end()};
}

const std::string kNativeFile = nativeFile(greyPicture(2, 2, kBytes), "abcd");

std::string chosenFor(const std::string& fileName, const std::string& file) {
    const Bytes content = bytesOf(file);
    const BorrowConstBuffer bytes{content};
    ConstBufferStream stream{bytes};
    const std::string name = nameOf(chooseImporter(fileName, stream));
    EXPECT_EQ(stream.tell(), 0U);
    return name;
}

TEST(CodecSelection, GoesByExtensionFirst) {
    const std::pair<const char*, std::string> kCases[] = {
        {"a.pbm", "NetPBM"},     {"a.pgm", "NetPBM"},      {"a.ppm", "NetPBM"},
        {"a.pam", "NetPBM"},     {"A.B.PnM", "NetPBM"},    {"PICTURE.PNG", "PNG"},
        {"picture.Jpg", "JPEG"}, {"picture.JPEG", "JPEG"},
    };
    for (const auto& [fileName, format] : kCases) {
        EXPECT_EQ(chosenFor(fileName, kNativeFile), format + "Importer") << fileName;
        EXPECT_EQ(nameOf(chooseExporter(fileName)), format == "JPEG" ? "" : format + "Exporter");
    }
    for (const char* fileName : {"a.gif", "pgm", "a.", "a.pgm/b", ""}) {
        EXPECT_EQ(nameOf(importerByExtension(fileName)), "") << fileName;
        EXPECT_EQ(nameOf(chooseExporter(fileName)), "") << fileName;
    }
}

TEST(CodecSelection, GoesByContentElse) {
    std::string unordered = kNativeFile;
    unordered[20] = 'A'; // a key that stands after "Channels"
    const std::pair<std::string, const char*> kCases[] = {
        {kNativeFile, "NativeImporter"},
        {unordered, ""},
        {"\xFF\xFF\0\0"s + kNativeFile.substr(4), ""}, // too many keys
        {nativeFile(Metadata{}, "a"), ""},
        {"\x89PNG\r\n\x1A\n", "PNGImporter"},
        {"\x89PNG\r\n\x1A\r", ""},
        {"\xFF\xD8", "JPEGImporter"},
        {"\xFF", ""},
        {"P5 2 2 255 abcd", ""}, // deliberately not recognised
        {"\x07\0\0\0\xFF\xFF\xFF\xFF"s, ""},
        {"", ""},
    };
    for (const auto& [file, importer] : kCases)
        EXPECT_EQ(chosenFor("picture.dat", file), importer) << file;
}

TEST(NativeImporter, ReadsItsFormatOrSaysWhyNot) {
    const Metadata wide = greyPicture(2, 1, "16-bit unsigned big endian");
    Metadata badWidth = wide;
    badWidth.set("Width", "two");
    const std::pair<std::string, const char*> kCases[] = {
        {nativeFile(wide, "abcd"), ""},
        {nativeFile(wide, "abc"), "native : Expected 4 sample bytes but 3 are stored. "},
        {nativeFile(wide, "abcde"), "native : Expected 4 sample bytes but 5 are stored. "},
        {nativeFile(greyPicture(~0U, ~0U, kWords), "abc"), "Failed to allocate picture. "},
        {nativeFile(Metadata{}, "abcd"), "Could not find Channels in metadata. "},
        {nativeFile(badWidth, "abcd"), "Failed to convert \"two\" to unsigned int."},
    };
    const auto check = [](const std::string& file) {
        const Picture picture = imported<NativeImporter>(bytesOf(file));
        EXPECT_EQ(picture.samples, bytesOf("abcd"));
        EXPECT_TRUE(picture.metadata.has("Comment"));
    };
    for (const auto& [file, complaint] : kCases)
        EXPECT_EQ(complaintOf([&, &content = file] { check(content); }), complaint);
    for (std::size_t size = 0; size < kNativeFile.size(); ++size)
        EXPECT_EQ(complaintOf([&] { check(kNativeFile.substr(0, size)); }),
                  "Attempted to read over end of buffer. ");
}

TEST(NativeImporter, ReadsIntoABufferOfThePicturesSize) {
    const Bytes file = bytesOf(kNativeFile);
    const BorrowConstBuffer bytes{file};
    ConstBufferStream stream{bytes};
    NativeImporter importer;
    importer.setStream(&stream);
    Metadata metadata;
    IncrementalBuffer buffer;
    buffer.resize(4);
    importer.readMetadata(metadata);
    importer.readData(buffer);
    EXPECT_EQ(bytesOf(buffer), bytesOf("abcd"));
    EXPECT_EQ(complaintOf([&] { importer.readData(buffer); }),
              "Meta data not provided before attempting to read data. ");
    stream.seek(0);
    importer.readMetadata(metadata);
    buffer.resize(3);
    EXPECT_EQ(complaintOf([&] { importer.readData(buffer); }),
              "native : Expected 3 sample bytes but 4 are stored. ");
}

} // namespace
} // namespace VORN::Migration
