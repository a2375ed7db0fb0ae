#pragma once

#include "core/CppStream.h"

#include <string_view>

namespace VORN {

/// A stream over the program's standard output.
CppOutStream standardOutput();

/// A stream over the program's standard error, which holds nothing back.
CppOutStream standardError();

/// Writes `text` and an end of line to standard error, in one piece.
///
/// A complaint that cannot be written is dropped: there is nobody left to be told.
void complain(std::string_view text);

/// Writes one line that tells of a failure for whose report there is no memory; takes none itself.
void complainOfNoMemory() noexcept;

} // namespace VORN
