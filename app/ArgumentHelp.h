#pragma once

#include "app/ArgumentProcessor.h"
#include "core/TextWriter.h"

namespace VORN {

/// Composes the texts that tell how a program or subcommand is called.
class ArgumentHelp {
public:
    /// `processor` is borrowed and must outlive it.
    explicit ArgumentHelp(const ArgumentProcessor& processor) : processor_{processor} {}

    /// Usage, description, positional arguments and options.
    void writeHelp(Text::TextWriter& out) const;
    /// One paragraph with all options and arguments.
    void writeUsage(Text::TextWriter& out) const;

private:
    std::string namesOf(std::size_t index) const;
    std::string optionUsage(std::size_t index) const;
    std::vector<std::string> positionalNames() const;
    void writeTitle(Text::TextWriter& out) const;
    void writeEntry(Text::TextWriter& out, const std::string& name,
                    const std::string& description) const;

    const ArgumentProcessor& processor_;
};

/// Writes help and version to one stream and errors, with the usage line, to another. Both are
/// borrowed and must outlive it.
class ArgumentProcessor::DefaultActionHandler : public ActionHandler {
public:
    DefaultActionHandler(WriteStream& out, WriteStream& errors) : out_{out}, errors_{&errors} {}
    void help(const ArgumentProcessor& processor, const std::string& option) override;
    void version(const ArgumentProcessor& processor) override;
    /// Composes the whole report before any of it is written.
    void error(const ArgumentProcessor& processor, const std::string& message) override;

    /// Whether no error was reported.
    bool success() const { return success_; }

private:
    Text::TextWriter out_;
    WriteStream* errors_;
    bool success_ = true;
};

} // namespace VORN
