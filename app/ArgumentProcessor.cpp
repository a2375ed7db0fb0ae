#include "app/ArgumentProcessor.h"

#include <algorithm>

namespace VORN {

namespace {

/// Thrown to end parsing with a message for the handler.
struct ArgumentError {
    std::string message;
};

} // namespace

ArgumentProcessor::Parameter& ArgumentProcessor::addParameter(std::string description,
                                                              Presence presence) {
    return *parameters_.emplace_back(std::make_unique<Parameter>(std::move(description), presence));
}

ArgumentProcessor::Parameter& ArgumentProcessor::addNamed(const std::vector<std::string>& names,
                                                          std::string description,
                                                          Presence presence) {
    for (const std::string& name : names)
        names_[name] = parameters_.size();
    return addParameter(std::move(description), presence);
}

ArgumentProcessor::Parameter& ArgumentProcessor::addPositional(std::string description,
                                                               Presence presence) {
    positionals_.push_back(parameters_.size());
    return addParameter(std::move(description), presence);
}

bool ArgumentProcessor::parse(int argc, const char* const* argv, ActionHandler& handler) {
    try {
        return assignAll({argv, argv + argc}, handler);
    } catch (const ArgumentError& error) {
        handler.error(*this, error.message);
        return false;
    }
}

/// Returns true if the caller may go on, and false if `handler` was called for help or version.
bool ArgumentProcessor::assignAll(const Arguments& arguments, ActionHandler& handler) {
    std::size_t slot = 0;
    for (std::size_t at = 1; at < arguments.size();) {
        const std::string& argument = arguments[at];
        if (!escapeWord_.empty() && argument == escapeWord_) {
            if (++at < arguments.size())
                assignPositional(arguments, at, slot);
        } else if (argument == kHelpOption) {
            handler.help(*this, argument);
            return false;
        } else if (argument == kVersionOption && !info_.version.empty()) {
            handler.version(*this);
            return false;
        } else if (const auto named = names_.find(argument); named != names_.end()) {
            assign(*parameters_[named->second], arguments, ++at);
        } else {
            assignPositional(arguments, at, slot);
        }
    }
    requireAssigned();
    return true;
}

/// Fills the positional parameter number `slot`, and moves `slot` and `at` on.
void ArgumentProcessor::assignPositional(const Arguments& arguments, std::size_t& at,
                                         std::size_t& slot) {
    if (slot == positionals_.size())
        throw ArgumentError{"No more unnamed arguments to be processed, '" + arguments[at] +
                            "' ignored. "};
    assign(*parameters_[positionals_[slot++]], arguments, at);
}

/// Fills a parameter from the arguments at `at`, and moves `at` behind those it took.
void ArgumentProcessor::assign(Parameter& parameter, const Arguments& arguments, std::size_t& at) {
    if (parameter.assigned_)
        throw ArgumentError{parameter.description_.empty()
                                ? "Parameter already assigned. "
                                : "Parameter (" + parameter.description_ + ") already assigned. "};
    const std::size_t first = at;
    auto value = parameter.values_.begin();
    while (value != parameter.values_.end() && at < arguments.size()) {
        (*value)->assign(arguments[at++]);
        if ((*value)->complete())
            ++value;
    }
    if (!std::all_of(value, parameter.values_.end(),
                     [](const auto& rest) { return rest->mayStayUnassigned(); }))
        throw ArgumentError{"Could only assign " + std::to_string(at - first) + " of " +
                            std::to_string(parameter.values_.size()) +
                            " values of option, end of argument list reached. "};
    parameter.assigned_ = true;
}

void ArgumentProcessor::requireAssigned() const {
    for (const auto& parameter : parameters_) {
        if (!parameter->isRequired() || parameter->assigned_)
            continue;
        if (!parameter->values_.empty() && !parameter->values_.front()->name().empty())
            throw ArgumentError{"The required value '" + parameter->values_.front()->name() +
                                "' was not assigned. "};
        if (!parameter->description_.empty())
            throw ArgumentError{"The required parameter '" + parameter->description_ +
                                "' was not assigned. "};
        throw ArgumentError{"A required parameter was not assigned. "};
    }
}

} // namespace VORN
