#pragma once

#include "app/CommonOptions.h"
#include "app/ProjectInfo.h"
#include "app/SubcommandApplication.h"

/// Base of this program's subcommands. Each has its name and description as `kName` and
/// `kDescription`, from which the table in Program.cpp is made.
///
/// The data members of a subcommand are its options. Each is declared to the processor by its
/// initialiser, so the order of the members is the order in help and usage.
class KavrinSubcommand : public VORN::SubcommandApplication::Subcommand {
public:
    /// Both texts are shown in help.
    KavrinSubcommand(const char* name, const char* description)
        : Subcommand{VORN::kProgramName, name, description, ""} {}

protected:
    using Parameter = VORN::ArgumentProcessor::Parameter;

    /// Declares an option, which may be left out.
    Parameter& named(const char* name, const char* description) {
        return arguments().addNamed({name}, description);
    }
    /// Declares the next positional argument, which must be given.
    Parameter& positional(const char* description) {
        return arguments().addPositional(description);
    }
};
