#include "core/ResourcePackage.h"

#include "core/BufferStream.h"
#include "core/Conversion.h"
#include "core/Crc32.h"
#include "core/Exception.h"
#include "core/Serialization.h"

#include <algorithm>
#include <map>

namespace VORN {

namespace {

using Impaired = ArchiveImpairedException;

/// A buffer stream together with the buffer it reads.
class ResourceStream : private BorrowConstBuffer, public ConstBufferStream {
public:
    explicit ResourceStream(std::span<const std::uint8_t> bytes)
        : BorrowConstBuffer{bytes},
          ConstBufferStream{static_cast<const BorrowConstBuffer&>(*this)} {}
    using ConstBufferStream::size;
};

/// The bytes of the resource with these attributes; throws if they are not all in the package.
std::span<const std::uint8_t> locate(std::span<const std::uint8_t> package,
                                     const std::map<std::string, std::string>& attributes) {
    const std::size_t offset = Text::toUnsigned(attributes.at("offset"));
    const std::size_t size = Text::toUnsigned(attributes.at("size"));
    if (offset > package.size() || size > package.size() - offset)
        throw Impaired{kNoOrigin, Impaired::IncompleteHeader};
    return package.subspan(offset, size);
}

} // namespace

ResourcePackage::ResourcePackage(std::span<const std::uint8_t> package) {
    const BorrowConstBuffer buffer{package};
    ConstBufferStream stream{buffer};
    Deserializer in{stream};
    if (in.get<std::uint32_t>() != kLeader)
        throw Impaired{kNoOrigin, Impaired::InvalidLeader};
    std::vector<std::map<std::string, std::string>> attributes;
    for (auto left = in.get<std::uint32_t>(); left > 0; --left) {
        entries_.push_back({in.getText(), {}});
        attributes.push_back(in.getMap());
    }
    Crc32 crc;
    crc.update(package.first(static_cast<std::size_t>(stream.tell())));
    if (in.get<std::uint32_t>() != crc.value())
        throw Impaired{kNoOrigin, Impaired::CrcMissmatch};
    for (std::size_t i = 0; i < entries_.size(); ++i)
        entries_[i].bytes = locate(package, attributes[i]);
}

const ResourcePackage& ResourcePackage::builtin() {
    static const ResourcePackage package{builtinPackage()};
    return package;
}

std::unique_ptr<RandomReadStream> ResourcePackage::open(const std::string& name) const {
    const auto entry = std::ranges::find(entries_, name, &Entry::name);
    if (entry == entries_.end())
        return nullptr;
    return std::make_unique<ResourceStream>(entry->bytes);
}

} // namespace VORN
