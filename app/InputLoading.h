#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "beads/Picture.h"

#include <string>

namespace VORN {

// Each function loads the input that the user calls `name`: the builtin resource with exactly that
// name or, if there is none, the file. If there is no such input, or its content is not accepted,
// the function writes one line to standard error and returns false. Faults in the data throw as
// their reader does.

/// Reads a palette file.
bool loadPalette(const std::string& name, Palette& palette);
/// Reads a pattern file.
bool loadPattern(const std::string& name, Pattern& pattern);
/// Reads a picture. The format is chosen by the extension of the name or else by content.
bool loadPicture(const std::string& name, Picture& picture);

} // namespace VORN
