#include "app/BuiltinSubcommand.h"

#include "app/OutputSaving.h"
#include "core/ResourcePackage.h"

int BuiltinSubcommand::run() {
    std::string names;
    for (const auto& entry : VORN::ResourcePackage::builtin().entries())
        names += (names.empty() ? "" : ", ") + entry.name;
    VORN::print([&](VORN::Text::TextWriter& out) { out.write("Builtins: " + names + "\n"); });
    return 0;
}
