#pragma once

#include "app/CommonOptions.h"
#include "beads/Palette.h"
#include "beads/Pattern.h"
#include "beads/Picture.h"
#include "core/TextWriter.h"

#include <functional>
#include <string>

namespace VORN {

// Each writes the file `name`, whole or not at all, as `OutputFile` does. False comes after one
// line on standard error, when the file cannot be opened; what cannot be written to its end throws.

/// Writes a palette file.
bool savePalette(const std::string& name, const Palette& palette);
/// Writes a pattern file.
bool savePattern(const std::string& name, const Pattern& pattern);
/// Writes a picture. The format is chosen by the extension of the name, which must be a known one.
bool savePicture(const std::string& name, const Picture& picture);

/// Writes the file that was given or, without one, standard output.
bool savePattern(const TextOption& output, const Pattern& pattern);

/// Lets `write` fill standard output; what cannot be written throws.
void print(const std::function<void(Text::TextWriter&)>& write);

} // namespace VORN
