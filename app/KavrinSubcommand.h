#pragma once

#include "app/CommonOptions.h"
#include "app/ProjectInfo.h"
#include "app/SubcommandApplication.h"

/// Base of this program's own subcommands. Each has its name and description as `kName` and
/// `kDescription`, which the registration table shares.
///
/// Its members are its options: each declares itself where it is kept, so that their order is that
/// of help and usage.
class KavrinSubcommand : public VORN::SubcommandApplication::Subcommand {
public:
    KavrinSubcommand(const char* name, const char* description)
        : Subcommand{VORN::kProgramName, name, description, ""} {}

protected:
    using Parameter = VORN::ArgumentProcessor::Parameter;

    /// Declares an option that may be left out.
    Parameter& named(const char* name, const char* description) {
        return arguments().addNamed({name}, description);
    }
    /// Declares the next positional argument, which is required.
    Parameter& positional(const char* description) {
        return arguments().addPositional(description);
    }
};
