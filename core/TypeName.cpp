#include "core/TypeName.h"

#include <cstdint>
#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace VORN {

namespace {

/// The standard libraries' spellings of the string, to be replaced in this order. Some put a blank
/// between the closing brackets of nested templates; it goes as well.
constexpr std::pair<std::string_view, std::string_view> kSpellings[] = {
    {"std::__1::", "std::"},
    {"std::__cxx11::basic_string<char, ", "std::basic_string<char, "},
    {"std::basic_string<char, std::char_traits<char>, std::allocator<char> > >", "std::string>"},
    {"std::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string"},
    {"std::basic_string<char, std::char_traits<char>, std::allocator<char>>", "std::string"},
};

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

std::string className(const std::type_info& type) {
    constexpr int kNoMemory = -1;
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> demangled{
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free};
    if (status == kNoMemory)
        throw std::bad_alloc{};
    std::string name = demangled ? demangled.get() : type.name();
    for (const auto& [spelling, common] : kSpellings)
        replaceAll(name, spelling, common);
    // 64 bits are "long" on one system and "long long" on another.
    if (typeid(std::uint64_t) == typeid(unsigned long long))
        replaceAll(name, "long long", "long");
    return "class " + name;
}

} // namespace VORN
