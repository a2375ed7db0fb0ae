#include "migration/CodecSelection.h"

#include "migration/jpeg/JPEGImporter.h"
#include "migration/native/NativeImporter.h"
#include "migration/netpbm/NetPBMExporter.h"
#include "migration/netpbm/NetPBMImporter.h"
#include "migration/png/PNGExporter.h"
#include "migration/png/PNGImporter.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <span>
#include <string>

namespace VORN::Migration {

namespace {

/// A codec, an importer or exporter as `Base` says, and the files that it is for.
template <class Base>
struct Codec {
    std::array<std::string_view, 5> extensions; // in lower case, then empty ones
    std::string_view signature;                 // the first bytes of every file; empty: not used
    std::unique_ptr<Base> (*create)();
};

template <class Base, class Derived>
std::unique_ptr<Base> create() {
    return std::make_unique<Derived>();
}

constexpr std::size_t kSignatureBytes = 8; // of the longest signature

constexpr Codec<DataImporter> kImporters[] = {
    {{"pbm", "pgm", "ppm", "pam", "pnm"}, "", create<DataImporter, NetPBMImporter>},
    {{"png"}, "\x89PNG\r\n\x1A\n", create<DataImporter, PNGImporter>},
    {{"jpeg", "jpg"}, "\xFF\xD8", create<DataImporter, JPEGImporter>},
};

constexpr Codec<DataExporter> kExporters[] = {
    {{"pbm", "pgm", "ppm", "pam", "pnm"}, "", create<DataExporter, NetPBMExporter>},
    {{"png"}, "", create<DataExporter, PNGExporter>},
};

/// The text behind the last full stop, in lower case; empty if there is no full stop.
std::string extensionOf(std::string_view fileName) {
    const std::size_t stop = fileName.rfind('.');
    if (stop == std::string_view::npos)
        return "";
    std::string extension{fileName.substr(stop + 1)};
    for (char& c : extension)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return extension;
}

template <class Base>
std::unique_ptr<Base> codecByExtension(std::span<const Codec<Base>> codecs,
                                       std::string_view fileName) {
    const std::string extension = extensionOf(fileName);
    if (extension.empty())
        return nullptr;
    for (const Codec<Base>& codec : codecs)
        if (std::ranges::find(codec.extensions, extension) != codec.extensions.end())
            return codec.create();
    return nullptr;
}

/// The first `kSignatureBytes` bytes of the stream, or all if there are fewer.
std::string readSignature(ReadStream& stream) {
    std::array<std::uint8_t, kSignatureBytes> bytes;
    std::size_t count = 0;
    while (const std::size_t more = stream.readSome(std::span{bytes}.subspan(count)))
        count += more;
    return {bytes.begin(), bytes.begin() + count};
}

std::unique_ptr<DataImporter> importerBySignature(std::string_view signature) {
    for (const Codec<DataImporter>& codec : kImporters)
        if (!codec.signature.empty() && signature.starts_with(codec.signature))
            return codec.create();
    return nullptr;
}

} // namespace

std::unique_ptr<DataImporter> importerByExtension(std::string_view fileName) {
    return codecByExtension<DataImporter>(kImporters, fileName);
}

std::unique_ptr<DataImporter> importerByContent(RandomReadStream& stream) {
    stream.seek(0);
    std::unique_ptr<DataImporter> importer = importerBySignature(readSignature(stream));
    stream.seek(0);
    if (importer == nullptr && NativeImporter::recognise(stream) > 0.0)
        importer = std::make_unique<NativeImporter>();
    stream.seek(0);
    return importer;
}

std::unique_ptr<DataImporter> chooseImporter(std::string_view fileName, RandomReadStream& stream) {
    if (auto importer = importerByExtension(fileName))
        return importer;
    return importerByContent(stream);
}

std::unique_ptr<DataExporter> chooseExporter(std::string_view fileName) {
    return codecByExtension<DataExporter>(kExporters, fileName);
}

} // namespace VORN::Migration
