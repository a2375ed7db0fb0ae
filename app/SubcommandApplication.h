#pragma once

#include "app/ArgumentProcessor.h"
#include "core/Stream.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace VORN {

/// A program whose first argument names a subcommand, to which all other arguments belong.
class SubcommandApplication {
public:
    /// One of the program's jobs, with its own options.
    class Subcommand {
    public:
        /// The texts are for help. If `version` is empty, the subcommand has no option "--version".
        Subcommand(const std::string& program, const std::string& name, std::string description,
                   std::string version);
        Subcommand(const Subcommand&) = delete;
        Subcommand& operator=(const Subcommand&) = delete;
        virtual ~Subcommand() = default;
        /// Does the job, after the arguments were parsed; returns the exit status. Exceptions pass
        /// through to the program.
        virtual int run() = 0;

        /// The processor, to declare parameters and to parse.
        ArgumentProcessor& arguments() { return arguments_; }

    private:
        ArgumentProcessor arguments_;
    };

    using Factory = std::unique_ptr<Subcommand> (*)();

    /// A line of the registration table.
    struct Registration {
        const char* name;
        const char* description;
        Factory factory;
    };

    /// A subcommand as the application keeps it.
    struct SubcommandEntry {
        std::string name;
        std::string description;
        Factory factory = nullptr;            // may be null
        std::shared_ptr<Subcommand> instance; // empty until needed, except for "help"
    };

    /// The subcommand "help", which lists all subcommands.
    class Help : public Subcommand {
    public:
        /// `entries` and `out` are borrowed and must outlive the object.
        Help(const ApplicationInfo& info, const std::vector<SubcommandEntry>& entries,
             WriteStream& out);
        int run() override;

    private:
        const std::vector<SubcommandEntry>& entries_;
        WriteStream& out_;
        std::uint32_t indent_;
        std::uint32_t descriptionIndent_;
        std::uint32_t lineWidth_;
    };

    /// An application with "help" and the subcommands of `table`. Texts for the user go to `out`
    /// and `errors`, which are borrowed and must outlive it.
    SubcommandApplication(ApplicationInfo info, std::span<const Registration> table,
                          WriteStream& out, WriteStream& errors);

    /// Runs the subcommand that the first argument names, or "help" if there is none; returns the
    /// exit status.
    int run(int argc, const char* const* argv);

private:
    std::shared_ptr<Subcommand> find(const std::string& name) const;
    int reportUnknown(const std::string& name);

    ApplicationInfo info_;
    std::vector<SubcommandEntry> entries_; // in the order of registration, "help" first
    WriteStream& out_;
    WriteStream& errors_;
};

} // namespace VORN
