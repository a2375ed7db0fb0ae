#pragma once

#include "core/Exception.h"

#include <sstream>
#include <string>

namespace VORN {

/// The message of what `action` throws, or "" when it succeeds.
template <class Action>
std::string complaintOf(Action action) {
    try {
        action();
    } catch (const Exception& failure) {
        std::ostringstream text;
        failure.write(text);
        return text.str();
    }
    return "";
}

} // namespace VORN
