#pragma once

#include <string>
#include <typeinfo>

namespace VORN {

/// "class " and the qualified name of `type`. For the program's own types it is the same with every
/// compiler and library: the standard string is "std::string", integers of 64 bits are "long".
/// Running out of memory is a `std::bad_alloc`.
std::string className(const std::type_info& type);

} // namespace VORN
