#include "app/BuiltinSubcommand.h"
#include "app/PictureSubcommand.h"
#include "app/SubcommandApplication.h"
#include "core/CppOutStream.h"
#include "core/ExceptionWriter.h"
#include "core/TypeName.h"

#include <array>
#include <iostream>

namespace {

using VORN::SubcommandApplication;

template <class S>
std::unique_ptr<SubcommandApplication::Subcommand> create() {
    return std::make_unique<S>();
}

template <class S>
constexpr SubcommandApplication::Registration registration() {
    return {S::kName, S::kDescription, &create<S>};
}

constexpr std::array kSubcommands{
    registration<BuiltinSubcommand>(),
    registration<PictureSubcommand>(),
};

VORN::ApplicationInfo applicationInfo() {
    return {.name = KavrinSubcommand::kProgram,
            .version = "20240707",
            .description = "Kavrin bead pattern and palette tool.",
            .programPath = {}};
}

/// Shows a failure that nobody dealt with; when not even that is possible, the status must do.
void report(const VORN::Exception& failure) noexcept {
    try {
        VORN::CppOutStream errors{std::cerr};
        VORN::ExceptionWriter{errors}.handle(failure, "");
    } catch (const VORN::StreamException&) {
        return;
    }
}

} // namespace

int main(int argc, char** argv) {
    try {
        VORN::CppOutStream out{std::cout};
        VORN::CppOutStream errors{std::cerr};
        return SubcommandApplication{applicationInfo(), kSubcommands, out, errors}.run(argc, argv);
    } catch (const VORN::Exception& failure) {
        report(failure);
    } catch (const std::exception& failure) {
        report(
            VORN::CppException{VORN::kNoOrigin, failure.what(), VORN::className(typeid(failure))});
    }
    return 1;
}
