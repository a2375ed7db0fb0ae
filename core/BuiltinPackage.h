#pragma once

#include <cstdint>
#include <span>

namespace VORN {

/// The package of builtin palettes, laid out by resources/generatePackage.cmake during the build.
std::span<const std::uint8_t> builtinPackage();

} // namespace VORN
