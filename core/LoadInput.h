#pragma once

#include "core/Stream.h"

#include <functional>
#include <string>

namespace VORN {

/// Reads the input that the user calls `name`: the builtin resource of that name, else the file.
///
/// `read` is handed a stream at its start and tells whether it accepted what is there. Returns
/// false after one line on standard error when the file cannot be opened or was not accepted; what
/// `read` throws passes through.
bool loadInput(const std::string& name, const std::function<bool(RandomReadStream&)>& read);

} // namespace VORN
