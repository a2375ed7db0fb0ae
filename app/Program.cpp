#include "app/Program.h"

#include "app/BuiltinSubcommand.h"
#include "app/CreateSubcommand.h"
#include "app/InstructionSubcommand.h"
#include "app/PackSubcommand.h"
#include "app/PaletteSubcommand.h"
#include "app/PictureSubcommand.h"
#include "app/ShowSubcommand.h"
#include "app/SubcommandApplication.h"
#include "core/Console.h"
#include "core/ExceptionWriter.h"
#include "core/TypeName.h"

#include <array>
#include <exception>
#include <memory>

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
    return {.name = kProgramName,
            .version = kProgramVersion,
            .description = kProgramDescription,
            .programPath = {}};
}

/// Shows a failure that was not handled, in one line even if memory runs out meanwhile.
void report(const Exception& failure) noexcept {
    try {
        CppOutStream errors = standardError();
        ExceptionWriter{errors}.handle(failure, "");
    } catch (...) {
        complainOfNoMemory();
    }
}

void report(const std::exception& failure) noexcept {
    try {
        report(CppException{kNoOrigin, failure.what(), className(typeid(failure))});
    } catch (...) {
        complainOfNoMemory();
    }
}

} // namespace

int runProgram(int argc, const char* const* argv) {
    try {
        CppOutStream out = standardOutput();
        CppOutStream errors = standardError();
        return SubcommandApplication{applicationInfo(), kSubcommands, out, errors}.run(argc, argv);
    } catch (const Exception& failure) {
        report(failure);
    } catch (const std::exception& failure) {
        report(failure);
    }
    return 1;
}

} // namespace VORN
