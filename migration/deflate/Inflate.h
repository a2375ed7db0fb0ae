#pragma once

#include "core/BufferStream.h"

namespace VORN::Migration {

/// Decodes a whole DEFLATE stream (RFC 1951) from `in` and writes what it holds to `out`.
///
/// `out` is called with pieces of up to some 100 KiB, in order. Afterwards `in` stands behind the
/// last byte of the stream. A violation is a `FormatException` of the format "deflate", the end of
/// `in` within the stream a `VORN::StreamException`; what was decoded last may not have reached
/// `out` then.
void inflate(ConstBufferStream& in, WriteStream& out);

} // namespace VORN::Migration
