#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <system_error>

namespace VORN {

// What the program needs of the system beyond the standard library. All code that depends on the
// system is in Platform.cpp.

/// Prepares the process for its streams. Writing to a closed pipe, or beyond the limit of a file's
/// size, fails instead of ending the process, and the standard streams pass every byte as it is.
void prepareStreams();

/// Calls `run` with the words of the command line and returns its result. On systems whose command
/// line has characters instead of bytes, the words are in UTF-8. `count` and `words` are those of
/// `main`.
int withCommandLine(int count, const char* const* words, int (*run)(int, const char* const*));

/// Whether the system has accepted all that was flushed to standard output. It is found out as if
/// the stream were closed.
bool settleStandardOutput();

/// The path of the file that the command line calls `name`.
std::filesystem::path pathOf(const std::string& name);

/// Whether `path`, which is absolute, names a device or a view of the system and not a file on a
/// disk.
bool isSystemPath(const std::filesystem::path& path);

/// Makes an empty file that only its owner may open. If it exists already, that is the error
/// `std::errc::file_exists`.
std::error_code createFile(const std::filesystem::path& path);

/// Gives `file` the owner, group and permissions of `original`, so that it can replace it.
///
/// Returns false if that is not possible in full, or if the two are not on the same device. On
/// Windows the file keeps the rights that its folder gives to new files, and the result is true.
bool copyOwnership(const std::filesystem::path& original, const std::filesystem::path& file);

/// Asks the system to give `memory` large pages where it gives none by itself. Memory of which most
/// is going to be written is then there sooner, as it comes in fewer pieces.
void preferLargePages(std::span<std::uint8_t> memory);

} // namespace VORN
