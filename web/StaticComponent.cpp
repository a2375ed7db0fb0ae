#include "web/StaticComponent.h"

#include <utility>

namespace VORN::Web {

StaticComponent::StaticComponent(std::string text) : text_{std::move(text)} {}

void StaticComponent::render(std::string& output, const Values&) const { output += text_; }

} // namespace VORN::Web
