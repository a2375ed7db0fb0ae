#pragma once

#include <map>
#include <string>

namespace VORN::Web {

/// Texts by name.
using Values = std::map<std::string, std::string>;

/// Something that writes text, which may depend on named values.
class Component {
public:
    virtual ~Component() = default;
    /// Appends the text to `output`.
    virtual void render(std::string& output, const Values& values) const = 0;
};

} // namespace VORN::Web
