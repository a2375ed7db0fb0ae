#pragma once

#include "core/BufferStream.h"

namespace VORN::Migration {

/// Decodes a whole DEFLATE stream (RFC 1951) from `in` and writes the decoded bytes to `out`.
///
/// They are written in pieces of at most 260 KiB, so that memory does not grow with the stream.
/// Afterwards `in` stands behind the last byte of the DEFLATE stream; `out` is not flushed. Data
/// that violates the format is a `FormatException` of "deflate", data that ends early a
/// `VORN::StreamException`; the bytes decoded last may then not have reached `out`.
void inflate(ConstBufferStream& in, WriteStream& out);

} // namespace VORN::Migration
