#pragma once

#include "app/KavrinSubcommand.h"

/// Lists the builtin resources on standard output.
class BuiltinSubcommand : public KavrinSubcommand {
public:
    static constexpr const char* kName = "builtin";
    static constexpr const char* kDescription = "List builtin resources.";

    BuiltinSubcommand() : KavrinSubcommand{kName, kDescription} {}
    int run() override;
};
