#include "web/ReplaceComponent.h"

#include <cstddef>

namespace VORN::Web {

namespace {

/// Removes `token` from the front of `text` if it is there; returns whether it was.
bool take(std::string_view& text, std::string_view token) {
    if (!text.starts_with(token))
        return false;
    text.remove_prefix(token.size());
    return true;
}

/// Removes a placeholder from the front of `text`, if one is there, and sets `name` to the name in
/// it. Returns whether there was one.
bool takePlaceholder(std::string_view& text, std::string& name) {
    if (!text.starts_with("$("))
        return false;
    const std::size_t end = text.find(')');
    if (end == std::string_view::npos)
        return false;
    name = text.substr(2, end - 2);
    text.remove_prefix(end + 1);
    return true;
}

} // namespace

ReplaceComponent::ReplaceComponent(std::string_view text) : pieces_(1) {
    std::string name;
    while (!text.empty()) {
        if (take(text, "$$")) {
            pieces_.back() += '$';
        } else if (takePlaceholder(text, name)) {
            pieces_.push_back(name);
            pieces_.emplace_back();
        } else {
            pieces_.back() += text.front();
            text.remove_prefix(1);
        }
    }
}

void ReplaceComponent::render(std::string& output, const Values& values) const {
    output += pieces_[0];
    for (std::size_t i = 1; i < pieces_.size(); i += 2) {
        if (const auto value = values.find(pieces_[i]); value != values.end())
            output += value->second;
        output += pieces_[i + 1];
    }
}

} // namespace VORN::Web
