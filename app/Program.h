#pragma once

namespace VORN {

/// Runs the program on its command line and returns the exit status.
///
/// It uses the standard streams. Exceptions of the program's own family and of the standard library
/// are shown on standard error and give status 1; others pass through.
int runProgram(int argc, const char* const* argv);

} // namespace VORN
