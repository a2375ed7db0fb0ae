#include "core/Console.h"

#include "core/Exception.h"

#include <iostream>
#include <string>

namespace VORN {

namespace {

std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

CppOutStream standardOutput() { return CppOutStream{std::cout}; }

CppOutStream standardError() { return CppOutStream{std::cerr}; }

void complain(std::string_view text) {
    std::string line{text};
    line += '\n';
    try {
        standardError().write(bytesOf(line));
    } catch (const StreamException&) {
        return;
    }
}

void complainOfNoMemory() noexcept {
    try {
        standardError().write(
            bytesOf("VORN class VORN::AllocateException: Failed to allocate failure report. \n"));
    } catch (...) { // not even memory for the exception that tells of a closed stream
        return;
    }
}

} // namespace VORN
