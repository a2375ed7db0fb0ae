#pragma once

#include "app/SubcommandApplication.h"

/// Base of this program's own subcommands. Each has its name and description as `kName` and
/// `kDescription`, which the registration table shares.
class KavrinSubcommand : public VORN::SubcommandApplication::Subcommand {
public:
    static constexpr const char* kProgram = "kavrin";

    KavrinSubcommand(const char* name, const char* description)
        : Subcommand{kProgram, name, description, ""} {}
};
