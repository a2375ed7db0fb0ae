#pragma once

#include "core/Stream.h"

#include <functional>
#include <string>

namespace VORN {

/// Opens the file `name`, replacing what it held, and lets `write` fill it.
///
/// Returns false after one line on standard error when it cannot be opened. When `write` throws, or
/// the file cannot be written to its end, no half-written regular file stays behind and the
/// exception passes on.
bool saveOutput(const std::string& name, const std::function<void(WriteStream&)>& write);

/// Lets `write` fill standard output; what cannot be written throws.
void writeToStandardOutput(const std::function<void(WriteStream&)>& write);

} // namespace VORN
