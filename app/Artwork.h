#pragma once

#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "beads/Picture.h"

#include <string>

namespace VORN {

// Each loads the input that the user calls `name`, a builtin resource or a file. False comes after
// one line on standard error; data that cannot be read throws as its reader does.

bool loadPalette(const std::string& name, Palette& palette);
bool loadPattern(const std::string& name, Pattern& pattern);
/// The format is chosen by the extension of the name or else by content.
bool loadPicture(const std::string& name, Picture& picture);

// Each writes the file `name`; false comes after one line on standard error.

bool savePalette(const std::string& name, const Palette& palette);
bool savePattern(const std::string& name, const Pattern& pattern);
/// The format is chosen by the extension of the name, for which there is an exporter.
bool savePicture(const std::string& name, const Picture& picture);

/// Writes `pattern` to standard output.
void printPattern(const Pattern& pattern);

} // namespace VORN
