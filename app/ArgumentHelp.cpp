#include "app/ArgumentHelp.h"

#include "core/BufferStream.h"

#include <algorithm>
#include <string_view>

namespace VORN {

/// All names of a named parameter, joined with ", "; empty for a positional one.
std::string ArgumentHelp::namesOf(std::size_t index) const {
    std::string joined;
    for (const auto& [name, named] : processor_.names())
        if (named == index)
            joined += (joined.empty() ? "" : ", ") + name;
    return joined;
}

/// The first name of a named parameter, with its values' names; empty for a positional one.
std::string ArgumentHelp::optionUsage(std::size_t index) const {
    std::string usage = namesOf(index);
    usage.resize(std::min(usage.find(','), usage.size()));
    if (usage.empty())
        return "";
    for (const auto& value : processor_.parameters()[index]->values())
        usage += " " + (value->name().empty() ? "x" : value->name());
    return usage;
}

/// For each positional parameter its values' names; values without a name are numbered.
std::vector<std::string> ArgumentHelp::positionalNames() const {
    std::vector<std::string> names;
    std::size_t position = 0;
    for (const std::size_t index : processor_.positionals()) {
        std::string joined;
        for (const auto& value : processor_.parameters()[index]->values()) {
            ++position;
            joined += joined.empty() ? "" : " ";
            joined += value->name().empty() ? "arg" + std::to_string(position) : value->name();
        }
        names.push_back(std::move(joined));
    }
    return names;
}

void ArgumentHelp::writeTitle(Text::TextWriter& out) const {
    constexpr std::size_t kNameIndent = 4;
    const ApplicationInfo& info = processor_.info();
    if (info.name.empty() && info.description.empty())
        return;
    out.endLine();
    out.write(info.name);
    if (!info.name.empty() && !info.description.empty())
        out.write(" -- ");
    out.paragraph(info.description, info.name.size() + kNameIndent, kNameIndent, info.lineWidth);
    out.endLine();
}

void ArgumentHelp::writeEntry(Text::TextWriter& out, const std::string& name,
                              const std::string& description) const {
    const ApplicationInfo& info = processor_.info();
    out.write(std::string(info.indent, ' ') + name + "  ");
    out.paragraph(description, info.indent + name.size() + 2, info.descriptionIndent,
                  info.lineWidth);
    out.endLine();
}

void ArgumentHelp::writeHelp(Text::TextWriter& out) const {
    const ApplicationInfo& info = processor_.info();
    const auto& parameters = processor_.parameters();
    writeUsage(out);
    writeTitle(out);
    if (const std::vector<std::string> names = positionalNames(); !names.empty()) {
        out.write("\nPositional arguments: \n");
        for (std::size_t i = 0; i < names.size(); ++i)
            writeEntry(out, names[i], parameters[processor_.positionals()[i]]->description());
    }
    out.write("\nNamed options: \n");
    for (std::size_t index = 0; index < parameters.size(); ++index)
        if (const std::string names = namesOf(index); !names.empty())
            writeEntry(out, names, parameters[index]->description());
    writeEntry(out, ArgumentProcessor::kHelpOption, "print this help message");
    if (!info.version.empty())
        writeEntry(out, ArgumentProcessor::kVersionOption, "print version");
    if (const std::string& escape = processor_.escapeWord(); !escape.empty()) {
        out.write("\n" + escape + " ");
        out.paragraph(
            "escapes the following value as an argument and does not match it as an option.",
            escape.size() + 1, info.descriptionIndent, info.lineWidth);
    }
    out.endLine();
}

void ArgumentHelp::writeUsage(Text::TextWriter& out) const {
    constexpr std::string_view kUsage = "Usage: ";
    const ApplicationInfo& info = processor_.info();
    const auto& parameters = processor_.parameters();
    const std::string program = info.programPath.empty()
                                    ? "command"
                                    : info.programPath.substr(info.programPath.rfind('\\') + 1);
    std::string optional;
    std::string required;
    for (std::size_t index = 0; index < parameters.size(); ++index) {
        const std::string usage = optionUsage(index);
        if (usage.empty())
            continue;
        if (parameters[index]->isRequired())
            required += " " + usage;
        else
            optional += " [" + usage + "]";
    }
    std::string tokens = optional + required + " [--help]";
    if (!info.version.empty())
        tokens += " [--version]";
    const std::vector<std::string> names = positionalNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isRequired = parameters[processor_.positionals()[i]]->isRequired();
        tokens += isRequired ? " " + names[i] : " [" + names[i] + "]";
    }
    const std::size_t column = kUsage.size() + program.size();
    out.write(kUsage);
    out.write(program);
    out.paragraph(tokens, column, column, info.lineWidth);
    out.endLine();
}

void ArgumentProcessor::DefaultActionHandler::help(const ArgumentProcessor& processor,
                                                   const std::string&) {
    ArgumentHelp{processor}.writeHelp(out_);
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
    IncrementalBuffer report;
    BufferStream memory{report};
    Text::TextWriter writer{memory};
    writer.write(message);
    writer.write("\n\n");
    ArgumentHelp{processor}.writeUsage(writer);
    writer.flush();
    errors_->write(report.data());
    errors_->flush();
}

} // namespace VORN
