#include "app/Program.h"

int main(int argc, char** argv) { return VORN::runProgram(argc, argv); }
