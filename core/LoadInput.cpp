#include "core/LoadInput.h"

#include "core/CppInStream.h"
#include "core/ResourcePackage.h"

#include <fstream>
#include <iostream>

namespace VORN {

namespace {

bool loadBuiltin(RandomReadStream& resource, const std::string& name,
                 const std::function<bool(RandomReadStream&)>& read) {
    if (read(resource))
        return true;
    std::cerr << "Failed to load " << name << " from builtin resources.\n";
    return false;
}

} // namespace

bool loadInput(const std::string& name, const std::function<bool(RandomReadStream&)>& read) {
    if (const auto resource = ResourcePackage::builtin().open(name))
        return loadBuiltin(*resource, name, read);
    std::ifstream file{name, std::ios::binary};
    if (!file) {
        std::cerr << "Failed to open " << name << '\n';
        return false;
    }
    CppInStream stream{file};
    if (read(stream))
        return true;
    std::cerr << "Failed to load " << name << '\n';
    return false;
}

} // namespace VORN
