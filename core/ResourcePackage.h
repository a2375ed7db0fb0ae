#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"

#include <memory>
#include <string>
#include <vector>

namespace VORN {

/// The package of builtin palettes, laid out by resources/generatePackage.cpp during the build.
std::span<const std::uint8_t> builtinPackage();

/// Read-only resources with names, stored one behind the other in one block of bytes.
///
/// The package begins with the four bytes of `kLeader`, the index (the number of entries, then per
/// entry its name and its attributes "offset" and "size" in decimal, as `Serializer` writes them)
/// and the CRC-32 of all that; offsets count from the first byte of the package.
class ResourcePackage {
public:
    static constexpr std::uint32_t kLeader = 0x314B5056; // "VPK1"

    /// A resource; its bytes lie in the package.
    struct Entry {
        std::string name;
        std::span<const std::uint8_t> bytes;
    };

    /// Reads the index. `package` is borrowed and must outlive this object and every stream that
    /// `open` returns. A package that is not laid out as the class comment says is an
    /// `ArchiveImpairedException`; one that ends within its index throws as `Deserializer` does.
    explicit ResourcePackage(std::span<const std::uint8_t> package);

    /// The package inside the program, opened on first use.
    static const ResourcePackage& builtin();

    /// A stream over the bytes of the resource of exactly this name; null when there is none.
    std::unique_ptr<RandomReadStream> open(const std::string& name) const;

    /// All resources in the order of the index.
    const std::vector<Entry>& entries() const { return entries_; }

private:
    std::vector<Entry> entries_;
};

} // namespace VORN
