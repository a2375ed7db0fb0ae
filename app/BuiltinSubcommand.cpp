#include "app/BuiltinSubcommand.h"

#include "core/ResourcePackage.h"
#include "core/SaveOutput.h"

int BuiltinSubcommand::run() {
    std::string names;
    for (const auto& entry : VORN::ResourcePackage::builtin().entries())
        names += (names.empty() ? "" : ", ") + entry.name;
    VORN::writeToStandardOutput([&](VORN::WriteStream& out) {
        VORN::Text::TextWriter writer{out};
        writer.write("Builtins: " + names);
        writer.endLine();
        writer.flush();
    });
    return 0;
}
