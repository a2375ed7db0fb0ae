#pragma once

#include "web/Component.h"

#include <string_view>
#include <vector>

namespace VORN::Web {

/// A text with placeholders, parsed once and rendered any number of times.
///
/// "$(" name ")" stands for the value of that name, or for nothing if there is none. "$$" stands
/// for "$". Everything else is literal, a "$(" without ")" too. Values are inserted as they are,
/// without escaping or replacing anything in them.
class ReplaceComponent final : public Component {
public:
    /// Parses `text`; every text is valid.
    explicit ReplaceComponent(std::string_view text);
    void render(std::string& output, const Values& values) const override;

private:
    // Literal text and names in turn. The first and the last piece are literal; both may be empty.
    std::vector<std::string> pieces_;
};

} // namespace VORN::Web
