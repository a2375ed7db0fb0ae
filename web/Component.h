#pragma once

#include <map>
#include <string>
#include <utility>

namespace VORN::Web {

/// Texts by name.
using Values = std::map<std::string, std::string>;

/// A part of a text, which may depend on named values.
class Component {
public:
    virtual ~Component() = default;
    /// Appends the part to `output`, with the values that it needs taken from `values`.
    virtual void render(std::string& output, const Values& values) const = 0;
};

/// A text that is always the same.
class StaticComponent : public Component {
public:
    /// `text` is written as it is.
    explicit StaticComponent(std::string text) : text_{std::move(text)} {}
    void render(std::string& output, const Values&) const override { output += text_; }

private:
    std::string text_;
};

} // namespace VORN::Web
