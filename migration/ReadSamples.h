#pragma once

#include "core/Buffer.h"
#include "core/Stream.h"

namespace VORN::Migration {

/// Makes `buffer` the next `count` bytes of the stream.
///
/// The buffer grows with the bytes that arrive, so a count that claims more than there is costs
/// nothing but the stream's own exception.
void readSamples(ReadStream& in, std::uint64_t count, DynamicBuffer& buffer);

} // namespace VORN::Migration
