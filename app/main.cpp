#include "app/Program.h"

#include <csignal>

int main(int argc, char** argv) {
    // Output that nobody reads any more is a failed write, which is reported, and not the end.
    std::signal(SIGPIPE, SIG_IGN);
    return VORN::runProgram(argc, argv);
}
