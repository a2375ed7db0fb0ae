#pragma once

#include "web/Component.h"

namespace VORN::Web {

/// A text that is always the same.
class StaticComponent : public Component {
public:
    explicit StaticComponent(std::string text);
    void render(std::string& output, const Values& values) const override;

private:
    std::string text_;
};

} // namespace VORN::Web
