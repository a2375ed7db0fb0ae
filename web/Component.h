#pragma once

#include <map>
#include <string>
#include <utility>

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

/// A text that is always the same.
class StaticComponent : public Component {
public:
    explicit StaticComponent(std::string text) : text_{std::move(text)} {}
    void render(std::string& output, const Values&) const override { output += text_; }

private:
    std::string text_;
};

} // namespace VORN::Web
