#pragma once

#include "app/CommonOptions.h"
#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "beads/Picture.h"
#include "core/TextWriter.h"

#include <functional>
#include <string>

namespace VORN {

// Each function writes the file `name`, whole or not at all, as `OutputFile` does. If the file
// cannot be opened, the function writes one line to standard error and returns false; if it cannot
// be written to its end, the function throws.

/// Writes a palette file.
bool savePalette(const std::string& name, const Palette& palette);
/// Writes a pattern file.
bool savePattern(const std::string& name, const Pattern& pattern);
/// Writes a picture. Its format is that of the name's extension, which must be a known one.
bool savePicture(const std::string& name, const Picture& picture);

/// Writes a pattern file to the file that the option gives or, if it was not given, to standard
/// output.
bool savePattern(const TextOption& output, const Pattern& pattern);

/// Writes to standard output what `write` writes, and flushes. Throws if not all can be written.
void print(const std::function<void(Text::TextWriter&)>& write);

} // namespace VORN
