#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"

namespace VORN {

/// Appends everything up to the end of `source`; memory grows with what arrives.
void readAll(ReadStream& source, IncrementalBuffer& destination);

} // namespace VORN
