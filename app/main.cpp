#include "app/Program.h"
#include "core/Console.h"
#include "core/Platform.h"

#include <cstdlib>
#include <exception>

namespace {

/// Called by the language if there is not even memory for an exception.
[[noreturn]] void endWithoutException() {
    if (std::current_exception() != nullptr)
        std::abort();
    VORN::complainOfNoMemory();
    std::_Exit(1);
}

} // namespace

int main(int argc, char** argv) {
    std::set_terminate(endWithoutException);
    VORN::prepareStreams();
    return VORN::withCommandLine(argc, argv, VORN::runProgram);
}
