#include "core/TypeName.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <new>
#include <string_view>

namespace VORN {

std::string className(const std::type_info& type) {
    constexpr std::string_view kString =
        "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >";
    constexpr std::string_view kShort = "std::string";
    constexpr int kNoMemory = -1;
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> demangled{
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free};
    if (status == kNoMemory)
        throw std::bad_alloc{};
    std::string name = demangled ? demangled.get() : type.name();
    for (auto at = name.find(kString); at != std::string::npos; at = name.find(kString, at)) {
        // A blank keeps the brackets of nested templates apart; the short name has none.
        const bool isNested = name.compare(at + kString.size(), 2, " >") == 0;
        name.replace(at, kString.size() + (isNested ? 1 : 0), kShort);
    }
    return "class " + name;
}

} // namespace VORN
