#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace VORN {

// What the standard library does not offer of the system. All that depends on it stands here.

/// Lets a write that nobody reads, or that passes a limit, fail where it would end the process, and
/// the standard streams carry every byte as it is.
void prepareStreams();

/// Calls `run` with the words of the command line, in UTF-8 where the system knows characters, and
/// returns what it returns. `count` and `words` are those of `main`.
int withCommandLine(int count, const char* const* words, int (*run)(int, const char* const*));

/// Whether the system has taken what was flushed to standard output, as closing it would tell.
bool settleStandardOutput();

/// The file of that name as the command line gives it.
std::filesystem::path pathOf(const std::string& name);

/// Whether `path`, which is absolute, names a view of the system or a device in place of a file.
bool isSystemPath(const std::filesystem::path& path);

/// Makes an empty file that nobody else may open. One that is there already is the error
/// `std::errc::file_exists`.
std::error_code createFile(const std::filesystem::path& path);

/// Gives `file` the owner, group and permissions of `original`, so that it can take its place.
///
/// False when that cannot be had in full, or when the two do not lie on the same device. On Windows
/// it is left with the rights that its folder gives to new files.
bool copyOwnership(const std::filesystem::path& original, const std::filesystem::path& file);

} // namespace VORN
