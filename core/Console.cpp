#include "core/Console.h"

#include "core/Exception.h"

#include <iostream>
#include <string>

namespace VORN {

CppOutStream standardOutput() { return CppOutStream{std::cout}; }

CppOutStream standardError() { return CppOutStream{std::cerr}; }

void complain(std::string_view text) {
    std::string line{text};
    line += '\n';
    try {
        standardError().write({reinterpret_cast<const std::uint8_t*>(line.data()), line.size()});
    } catch (const StreamException&) {
        return;
    }
}

void complainOfNoMemory() noexcept {
    // Not through `standardError`: its exceptions would need memory.
    constexpr std::string_view kLine =
        "VORN class VORN::AllocateException: Failed to allocate failure report. \n";
    std::cerr.write(kLine.data(), kLine.size());
}

} // namespace VORN
