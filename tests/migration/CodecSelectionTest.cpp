#include "migration/CodecSelection.h"
#include "core/CppInStream.h"
#include "core/CppOutStream.h"
#include "core/TypeName.h"
#include "migration/ImageMetadata.h"
#include "migration/NativeImporter.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>
#include <sstream>

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
    ImageMetadata image;
    image.width = width;
    image.height = height;
    image.channels = 1;
    image.set("Type", type);
    image.set("Comment", "mine");
    Metadata texts;
    texts.assign(image);
    return texts;
}

/// A file of the native format.
std::string nativeFile(const Metadata& metadata, const std::string& samples) {
    std::ostringstream file;
    CppOutStream stream{file};
    Serializer out{stream};
    metadata.serialize(out);
    out.put(samples); // the count and the bytes
    return file.str();
}

const std::string kNativeFile =
    nativeFile(greyPicture(2, 2, "8-bit unsigned little endian"), "abcd");

std::string chosenFor(const std::string& fileName, const std::string& file) {
    std::istringstream in{file};
    CppInStream stream{in};
    const std::string name = nameOf(chooseImporter(fileName, stream));
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
        {"a.pbm", "NetPBMImporter", "NetPBMExporter"},
        {"a.pgm", "NetPBMImporter", "NetPBMExporter"},
        {"a.ppm", "NetPBMImporter", "NetPBMExporter"},
        {"a.pam", "NetPBMImporter", "NetPBMExporter"},
        {"A.B.PnM", "NetPBMImporter", "NetPBMExporter"},
        {"PICTURE.PNG", "PNGImporter", "PNGExporter"},
        {"picture.Jpg", "JPEGImporter", ""},
        {"picture.JPEG", "JPEGImporter", ""},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(nameOf(chooseExporter(c.fileName)), c.exporter) << c.fileName;
        EXPECT_EQ(chosenFor(c.fileName, kNativeFile), c.importer) << c.fileName;
    }
    for (const char* fileName : {"a.gif", "pgm", "a.", "a.pgm/b", ""}) {
        EXPECT_EQ(nameOf(importerByExtension(fileName)), "") << fileName;
        EXPECT_EQ(nameOf(chooseExporter(fileName)), "") << fileName;
    }
}

TEST(CodecSelection, GoesByContentElse) {
    struct Case {
        std::string file;
        const char* importer;
    };
    std::string unordered = kNativeFile;
    unordered[20] = 'A'; // a key that stands after "Channels"
    const Case kCases[] = {
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
    for (const Case& c : kCases)
        EXPECT_EQ(chosenFor("picture.dat", c.file), c.importer) << c.file;
}

std::string importNative(const std::string& file) {
    std::istringstream in{file};
    CppInStream stream{in};
    NativeImporter importer;
    importer.setStream(&stream);
    IncrementalBuffer buffer;
    ImageMetadata metadata;
    importer.importImage(buffer, metadata);
    EXPECT_TRUE(metadata.has("Comment"));
    return {buffer.data().begin(), buffer.data().end()};
}

TEST(NativeImporter, ReadsItsFormatOrSaysWhyNot) {
    const Metadata wide = greyPicture(2, 1, "16-bit unsigned big endian");
    Metadata badWidth = wide;
    badWidth.set("Width", "two");
    struct Case {
        std::string file;
        const char* complaint;
    };
    const Case kCases[] = {
        {nativeFile(wide, "abcd"), ""},
        {nativeFile(wide, "abc"), "native : Expected 4 sample bytes but 3 are stored. "},
        {nativeFile(greyPicture(4294967295, 4294967295, "16-bit unsigned big endian"), "abc"),
         "Failed to allocate picture. "},
        {nativeFile(greyPicture(8, 1, "1-bit unsigned little endian"), ""),
         "No support for non-byte-aligned pixels. "},
        {nativeFile(Metadata{}, "abcd"), "Could not find Channels in metadata. "},
        {nativeFile(badWidth, "abcd"), "Failed to convert \"two\" to unsigned int."},
    };
    for (const Case& c : kCases)
        EXPECT_EQ(complaintOf([&] { EXPECT_EQ(importNative(c.file), "abcd"); }), c.complaint);

    for (std::size_t size = 0; size < kNativeFile.size(); ++size)
        EXPECT_EQ(complaintOf([&] { importNative(kNativeFile.substr(0, size)); }),
                  "Failed to read from input stream. ");
}

} // namespace
} // namespace VORN::Migration
