#include "app/ArgumentProcessor.h"

#include <algorithm>
#include <string_view>

namespace VORN {

namespace {

constexpr const char* kHelpOption = "--help";
constexpr const char* kVersionOption = "--version";

std::string quoted(std::string_view before, const std::string& text, std::string_view after) {
    std::string message{before};
    message += text;
    message += after;
    return message;
}

} // namespace

void ArgumentProcessor::SingleArgumentValue::assign(const std::string& text) {
    convert(text);
    assigned_ = true;
}

void ArgumentProcessor::DefaultActionHandler::help(const ArgumentProcessor& processor,
                                                   const std::string&) {
    processor.writeHelp(out_);
    out_.flush();
}

void ArgumentProcessor::DefaultActionHandler::version(const ArgumentProcessor& processor) {
    out_.write(processor.info().name + " -- " + processor.info().version);
    out_.endLine();
    out_.flush();
}

void ArgumentProcessor::DefaultActionHandler::error(const ArgumentProcessor& processor,
                                                    const std::string& message) {
    success_ = false;
    errors_.write(message);
    errors_.endLine();
    errors_.endLine();
    processor.writeUsage(errors_);
    errors_.flush();
}

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
    const Arguments arguments{argv, argv + argc};
    std::size_t slot = 0;
    bool escaped = false;
    for (std::size_t at = 1; at < arguments.size();) {
        const std::string& argument = arguments[at];
        if (!escaped && !escapeWord_.empty() && argument == escapeWord_) {
            escaped = true;
            ++at;
            continue;
        }
        std::string complaint;
        if (escaped) {
            escaped = false;
            complaint = assignPositional(arguments, at, slot);
        } else if (argument == kHelpOption) {
            handler.help(*this, argument);
            return false;
        } else if (argument == kVersionOption && !info_.version.empty()) {
            handler.version(*this);
            return false;
        } else if (const auto named = names_.find(argument); named != names_.end()) {
            complaint = assign(*parameters_[named->second], arguments, ++at);
        } else {
            complaint = assignPositional(arguments, at, slot);
        }
        if (!complaint.empty()) {
            handler.error(*this, complaint);
            return false;
        }
    }
    if (const std::string complaint = missing(); !complaint.empty()) {
        handler.error(*this, complaint);
        return false;
    }
    return true;
}

/// Returns what is wrong, or "". `at` moves past the arguments taken.
std::string ArgumentProcessor::assign(Parameter& parameter, const Arguments& arguments,
                                      std::size_t& at) {
    if (parameter.assigned_)
        return parameter.description_.empty()
                   ? "Parameter already assigned. "
                   : quoted("Parameter (", parameter.description_, ") already assigned. ");
    const std::size_t first = at;
    auto value = parameter.values_.begin();
    while (value != parameter.values_.end() && at < arguments.size()) {
        (*value)->assign(arguments[at++]);
        if ((*value)->complete())
            ++value;
    }
    for (; value != parameter.values_.end(); ++value)
        if (!(*value)->mayStayUnassigned())
            return "Could only assign " + std::to_string(at - first) + " of " +
                   std::to_string(parameter.values_.size()) +
                   " values of option, end of argument list reached. ";
    parameter.assigned_ = true;
    return "";
}

std::string ArgumentProcessor::assignPositional(const Arguments& arguments, std::size_t& at,
                                                std::size_t& slot) {
    if (slot == positionals_.size())
        return quoted("No more unnamed arguments to be processed, '", arguments[at], "' ignored. ");
    return assign(*parameters_[positionals_[slot++]], arguments, at);
}

/// What is said of the first required parameter that is not assigned, or "".
std::string ArgumentProcessor::missing() const {
    for (const auto& parameter : parameters_) {
        if (parameter->presence_ == Presence::Optional || parameter->assigned_)
            continue;
        if (!parameter->values_.empty() && !parameter->values_.front()->name().empty())
            return quoted("The required value '", parameter->values_.front()->name(),
                          "' was not assigned. ");
        if (!parameter->description_.empty())
            return quoted("The required parameter '", parameter->description_,
                          "' was not assigned. ");
        return "A required parameter was not assigned. ";
    }
    return "";
}

/// All names of a named parameter, joined with ", "; "" for a positional one.
std::string ArgumentProcessor::namesOf(std::size_t index) const {
    std::string joined;
    for (const auto& [name, named] : names_)
        if (named == index)
            joined += (joined.empty() ? "" : ", ") + name;
    return joined;
}

/// The first name of a named parameter and its values' names; "" for a positional one.
std::string ArgumentProcessor::optionUsage(std::size_t index) const {
    std::string usage = namesOf(index);
    usage.resize(std::min(usage.find(','), usage.size()));
    if (usage.empty())
        return "";
    for (const auto& value : parameters_[index]->values_)
        usage += " " + (value->name().empty() ? "x" : value->name());
    return usage;
}

/// Per positional parameter its values' names, numbered where they have none.
std::vector<std::string> ArgumentProcessor::positionalNames() const {
    std::vector<std::string> names;
    std::size_t position = 0;
    for (const std::size_t index : positionals_) {
        std::string joined;
        for (const auto& value : parameters_[index]->values_) {
            ++position;
            joined += joined.empty() ? "" : " ";
            joined += value->name().empty() ? "arg" + std::to_string(position) : value->name();
        }
        names.push_back(std::move(joined));
    }
    return names;
}

void ArgumentProcessor::writeEntry(Text::TextWriter& out, const std::string& name,
                                   const std::string& description) const {
    out.write(std::string(info_.indent, ' ') + name + "  ");
    out.paragraph(description, info_.indent + name.size() + 2, info_.descriptionIndent,
                  info_.lineWidth);
    out.endLine();
}

void ArgumentProcessor::writeHelp(Text::TextWriter& out) const {
    constexpr std::size_t kNameIndent = 4;
    writeUsage(out);
    if (!info_.name.empty() || !info_.description.empty()) {
        out.endLine();
        out.write(info_.name);
        if (!info_.name.empty() && !info_.description.empty())
            out.write(" -- ");
        out.paragraph(info_.description, info_.name.size() + kNameIndent, kNameIndent,
                      info_.lineWidth);
        out.endLine();
    }
    if (!positionals_.empty()) {
        out.write("\nPositional arguments: \n");
        const std::vector<std::string> names = positionalNames();
        for (std::size_t i = 0; i < names.size(); ++i)
            writeEntry(out, names[i], parameters_[positionals_[i]]->description_);
    }
    out.write("\nNamed options: \n");
    for (std::size_t index = 0; index < parameters_.size(); ++index)
        if (const std::string names = namesOf(index); !names.empty())
            writeEntry(out, names, parameters_[index]->description_);
    writeEntry(out, kHelpOption, "print this help message");
    if (!info_.version.empty())
        writeEntry(out, kVersionOption, "print version");
    if (!escapeWord_.empty()) {
        out.write("\n" + escapeWord_ + " ");
        out.paragraph(
            "escapes the following value as an argument and does not match it as an option.",
            escapeWord_.size() + 1, info_.descriptionIndent, info_.lineWidth);
    }
    out.endLine();
}

void ArgumentProcessor::writeUsage(Text::TextWriter& out) const {
    constexpr std::string_view kUsage = "Usage: ";
    const std::string program = info_.programPath.empty()
                                    ? "command"
                                    : info_.programPath.substr(info_.programPath.rfind('\\') + 1);
    std::string optional;
    std::string required;
    for (std::size_t index = 0; index < parameters_.size(); ++index) {
        const std::string usage = optionUsage(index);
        if (usage.empty())
            continue;
        if (parameters_[index]->presence_ == Presence::Required)
            required += " " + usage;
        else
            optional += " [" + usage + "]";
    }
    std::string tokens = optional + required + " [--help]";
    if (!info_.version.empty())
        tokens += " [--version]";
    const std::vector<std::string> names = positionalNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isOptional = parameters_[positionals_[i]]->presence_ == Presence::Optional;
        tokens += isOptional ? " [" + names[i] + "]" : " " + names[i];
    }
    const std::size_t column = kUsage.size() + program.size();
    out.write(kUsage);
    out.write(program);
    out.paragraph(tokens, column, column, info_.lineWidth);
    out.endLine();
}

} // namespace VORN
