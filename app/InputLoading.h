#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "beads/Picture.h"

#include <string>

namespace VORN {

// Each loads the input that the user calls `name`: the builtin resource of exactly that name, else
// the file. False comes after one line on standard error, when there is no such input or nothing
// accepts what it holds; faults in the data throw as their reader does.

/// Reads a palette file.
bool loadPalette(const std::string& name, Palette& palette);
/// Reads a pattern file.
bool loadPattern(const std::string& name, Pattern& pattern);
/// Reads a picture. The format is chosen by the extension of the name or else by content.
bool loadPicture(const std::string& name, Picture& picture);

} // namespace VORN
