#include "app/InputLoading.h"

#include "core/Console.h"
#include "core/Platform.h"
#include "core/ResourcePackage.h"
#include "migration/CodecSelection.h"
#include "migration/ImageSignal.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <system_error>

namespace VORN {

namespace {

/// Reads a stream, which stands at its start; returns whether it accepted the content.
using Reader = std::function<bool(RandomReadStream&)>;

bool loadBuiltin(const std::string& name, RandomReadStream& resource, const Reader& read) {
    if (read(resource))
        return true;
    complain("Failed to load " + name + " from builtin resources.");
    return false;
}

bool loadFile(const std::string& name, const Reader& read) {
    const std::filesystem::path path = pathOf(name);
    std::error_code ignored;
    // Some systems open a folder as if it were an empty file.
    const bool isFolder = std::filesystem::is_directory(path, ignored);
    std::ifstream file{path, std::ios::binary};
    if (isFolder || !file) {
        complain("Failed to open " + name);
        return false;
    }
    CppInStream stream{file};
    if (read(stream))
        return true;
    complain("Failed to load " + name);
    return false;
}

bool loadInput(const std::string& name, const Reader& read) {
    if (const auto resource = ResourcePackage::builtin().open(name))
        return loadBuiltin(name, *resource, read);
    return loadFile(name, read);
}

} // namespace

bool loadPalette(const std::string& name, Palette& palette) {
    return loadInput(name, [&](ReadStream& in) { return palette.Read(in); });
}

bool loadPattern(const std::string& name, Pattern& pattern) {
    return loadInput(name, [&](ReadStream& in) { return pattern.Read(in); });
}

bool loadPicture(const std::string& name, Picture& picture) {
    return loadInput(name, [&](RandomReadStream& in) {
        const auto importer = Migration::chooseImporter(name, in);
        if (!importer)
            return false;
        importer->setStream(&in);
        IncrementalBuffer samples;
        Migration::ImageMetadata metadata;
        importer->importImage(samples, metadata);
        const Tuple<3, unsigned> size =
            Migration::ImageSignal<unsigned char>{samples, metadata}.size();
        picture = Picture{std::move(samples), size};
        return true;
    });
}

} // namespace VORN
