#pragma once

#include "web/Component.h"

#include <string_view>
#include <vector>

namespace VORN::Web {

/// A text with placeholders, parsed once and rendered any number of times.
///
/// "$(" name ")" stands for the value of that name, or for nothing where there is none. "$$" stands
/// for "$". All else is literal, a "$(" without ")" too. Values are inserted as they are.
class ReplaceComponent final : public Component {
public:
    explicit ReplaceComponent(std::string_view text);
    void render(std::string& output, const Values& values) const override;

private:
    // Literal text and names by turns; begins and ends with literal text, which may be empty.
    std::vector<std::string> pieces_;
};

} // namespace VORN::Web
