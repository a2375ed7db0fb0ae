#include "app/Platform.h"
#include "app/Program.h"

int main(int argc, char** argv) {
    VORN::letWritesFail();
    return VORN::runProgram(argc, argv);
}
