#include "app/Program.h"

#include "app/BuiltinSubcommand.h"
#include "app/CreateSubcommand.h"
#include "app/InstructionSubcommand.h"
#include "app/PackSubcommand.h"
#include "app/PaletteSubcommand.h"
#include "app/PictureSubcommand.h"
#include "app/ShowSubcommand.h"
#include "app/SubcommandApplication.h"
#include "core/CppOutStream.h"
#include "core/ExceptionWriter.h"
#include "core/TypeName.h"

#include <array>
#include <iostream>

namespace VORN {

namespace {

template <class S>
std::unique_ptr<SubcommandApplication::Subcommand> create() {
    return std::make_unique<S>();
}

template <class S>
constexpr SubcommandApplication::Registration registration() {
    return {S::kName, S::kDescription, &create<S>};
}

constexpr std::array kSubcommands{
    registration<BuiltinSubcommand>(),     registration<PaletteSubcommand>(),
    registration<PictureSubcommand>(),     registration<CreateSubcommand>(),
    registration<PackSubcommand>(),        registration<ShowSubcommand>(),
    registration<InstructionSubcommand>(),
};

ApplicationInfo applicationInfo() {
    return {.name = KavrinSubcommand::kProgram,
            .version = "20240707",
            .description = "Kavrin bead pattern and palette tool.",
            .programPath = {}};
}

/// Shows a failure that nobody dealt with; when not even that is possible, the status must do.
void report(const Exception& failure) noexcept {
    try {
        CppOutStream errors{std::cerr};
        ExceptionWriter{errors}.handle(failure, "");
    } catch (const StreamException&) {
        return;
    }
}

} // namespace

int runProgram(int argc, const char* const* argv) {
    try {
        CppOutStream out{std::cout};
        CppOutStream errors{std::cerr};
        return SubcommandApplication{applicationInfo(), kSubcommands, out, errors}.run(argc, argv);
    } catch (const Exception& failure) {
        report(failure);
    } catch (const std::exception& failure) {
        report(CppException{kNoOrigin, failure.what(), className(typeid(failure))});
    }
    return 1;
}

} // namespace VORN
