#pragma once

#include "core/CppStream.h"

#include <string_view>

namespace VORN {

/// A stream over the program's standard output.
CppOutStream standardOutput();

/// A stream over the program's standard error, which is not buffered.
CppOutStream standardError();

/// Writes `text` and an end of line to standard error, in one piece.
///
/// A line that cannot be written is dropped, as there is no other place to report it.
void complain(std::string_view text);

/// Writes the line that stands for a failure which there is no memory to report. Allocates nothing.
void complainOfNoMemory() noexcept;

} // namespace VORN
