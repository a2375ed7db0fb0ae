// Writes the package of builtin palettes as a C++ source: generatePackage OUTPUT.cpp PALETTE...
//
// Each palette is known by the name that it is given by. They lie back to back from kFirstOffset
// on, after the leader, the index and its CRC-32.

#include "core/BufferStream.h"
#include "core/Crc32.h"
#include "core/ResourcePackage.h"
#include "core/Serialization.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kFirstOffset = 664;

std::string readFile(const std::string& path) {
    std::ifstream in{path, std::ios::binary};
    if (!in)
        throw std::runtime_error{"Failed to open " + path};
    return {std::istreambuf_iterator<char>{in}, {}};
}

VORN::IncrementalBuffer makePackage(std::span<const char* const> names) {
    VORN::IncrementalBuffer package;
    VORN::BufferStream stream{package};
    VORN::Serializer out{stream};
    std::string contents;
    out.put(VORN::ResourcePackage::kLeader);
    out.put(static_cast<std::uint32_t>(names.size()));
    for (const char* name : names) {
        const std::string text = readFile(name);
        out.put(std::string{name});
        out.put(std::map<std::string, std::string>{
            {"offset", std::to_string(kFirstOffset + contents.size())},
            {"size", std::to_string(text.size())}});
        contents += text;
    }
    VORN::Crc32 crc;
    crc.update(package.data());
    out.put(crc.value());
    if (package.size() > kFirstOffset)
        throw std::runtime_error{"The index does not fit before the first resource"};
    while (package.size() < kFirstOffset)
        out.put(std::uint8_t{0});
    stream.write({reinterpret_cast<const std::uint8_t*>(contents.data()), contents.size()});
    return package;
}

void writeSource(const VORN::Buffer& package, const std::string& path) {
    constexpr int kBytesPerLine = 16;
    std::ofstream out{path};
    out << "#include \"core/ResourcePackage.h\"\n\n#include <array>\n\nnamespace VORN {\n\n"
        << "namespace {\n\nconstexpr std::array<std::uint8_t, " << package.size()
        << "> kPackage{\n";
    int column = 0;
    for (const std::uint8_t byte : package.data())
        out << +byte << (++column % kBytesPerLine == 0 ? ",\n" : ",");
    out << "};\n\n} // namespace\n\n"
        << "std::span<const std::uint8_t> builtinPackage() { return kPackage; }\n\n"
        << "} // namespace VORN\n";
    if (!out.flush())
        throw std::runtime_error{"Failed to write " + path};
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: generatePackage OUTPUT.cpp PALETTE...\n";
        return 2;
    }
    try {
        writeSource(makePackage({argv + 2, argv + argc}), argv[1]);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
    return 0;
}
