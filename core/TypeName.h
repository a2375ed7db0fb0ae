#pragma once

#include <string>
#include <typeinfo>

namespace VORN {

/// "class " and the qualified name of `type`; the standard string is spelled "std::string".
std::string className(const std::type_info& type);

} // namespace VORN
