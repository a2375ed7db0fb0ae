#pragma once

#include <string>
#include <typeinfo>

namespace VORN {

/// "class " and the qualified name of `type`, the same with every compiler and library for the
/// program's own: the standard string is "std::string", integers of 64 bits are "long".
std::string className(const std::type_info& type);

} // namespace VORN
