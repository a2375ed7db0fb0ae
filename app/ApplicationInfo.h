#pragma once

#include <cstdint>
#include <string>

namespace VORN {

/// What help, usage and version texts of a program or subcommand are built from.
struct ApplicationInfo {
    std::string name;
    std::string version; // "--version" is offered only when this is not empty
    std::string description;
    std::string programPath; // the usage line names what follows its last backslash
    std::uint32_t indent = 2;
    std::uint32_t descriptionIndent = 16;
    std::uint32_t lineWidth = 79;
};

} // namespace VORN
