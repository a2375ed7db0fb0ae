#pragma once

#include "app/ArgumentProcessor.h"
#include "core/TextWriter.h"

#include <vector>

namespace VORN {

/// Composes the texts that explain how a program or subcommand is called.
class ArgumentHelp {
public:
    /// `processor` has the parameters that are explained. It is borrowed and must outlive this
    /// object.
    explicit ArgumentHelp(const ArgumentProcessor& processor) : processor_{processor} {}

    /// Writes the whole help: usage, description, positional arguments and options.
    void writeHelp(Text::TextWriter& out) const;
    /// Writes the usage: one paragraph with all options and arguments.
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

/// Writes help and version to one stream and errors, with the usage, to another. Both are flushed
/// after each text; what they throw passes through.
class ArgumentProcessor::DefaultActionHandler : public ActionHandler {
public:
    /// `out` is for help and version. Both streams are borrowed and must outlive the handler.
    DefaultActionHandler(WriteStream& out, WriteStream& errors) : out_{out}, errors_{&errors} {}
    void help(const ArgumentProcessor& processor, const std::string& option) override;
    void version(const ArgumentProcessor& processor) override;
    /// The whole report is composed before its first byte is written.
    void error(const ArgumentProcessor& processor, const std::string& message) override;

    /// Whether no error has been reported.
    bool success() const { return success_; }

private:
    Text::TextWriter out_;
    WriteStream* errors_;
    bool success_ = true;
};

} // namespace VORN
