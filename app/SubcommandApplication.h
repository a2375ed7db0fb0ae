#pragma once

#include "app/ArgumentProcessor.h"
#include "core/Stream.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace VORN {

/// A program whose first argument names the subcommand that the other arguments belong to.
class SubcommandApplication {
public:
    /// A job of the program, with options of its own.
    class Subcommand {
    public:
        /// Without a version, none is offered.
        Subcommand(const std::string& program, const std::string& name, std::string description,
                   std::string version);
        Subcommand(const Subcommand&) = delete;
        Subcommand& operator=(const Subcommand&) = delete;
        virtual ~Subcommand() = default;
        /// Does the job after the arguments were parsed; returns the exit status.
        virtual int run() = 0;

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
        std::shared_ptr<Subcommand> instance; // empty until needed, save for "help"
    };

    /// Lists all subcommands.
    class Help : public Subcommand {
    public:
        /// `entries` and `out` are borrowed and must outlive it.
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

    /// `out` and `errors` are borrowed and must outlive the application.
    SubcommandApplication(ApplicationInfo info, std::span<const Registration> table,
                          WriteStream& out, WriteStream& errors);

    /// Runs the subcommand named by the first argument; returns the exit status.
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
