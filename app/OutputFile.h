#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace VORN {

/// A file that is written anew and holds, once all is over, either all of it or what it held
/// before.
///
/// An existing file is replaced when the new one is complete: that is written beside it, under its
/// name and ".kavrin-unfinished", takes over owner, group and permissions, and is renamed. Symbolic
/// links are followed. A file is written in place when it cannot be replaced by another: when it
/// has further names (hard links), when owner or group cannot be kept, when nothing can be made
/// beside it, and when it is a device, a pipe or a view of the system. New files are written in
/// place as well.
///
/// What was not finished is undone when the object goes: the new file is removed, and an existing
/// one that had to be written in place is left empty, not half written.
class OutputFile {
public:
    /// Opens the file for writing; returns false, and changes nothing, when that cannot be done.
    bool open(const std::string& name);

    /// The place for the file's bytes, after `open`.
    std::ostream& stream() { return stream_; }

    /// Closes the file and puts it in its place; what was written is then complete. Throws
    /// `StreamException` when the system does not take it.
    void finish();

private:
    /// Undoes, in the end, what was planned for a file that is not complete.
    class Undo {
    public:
        enum class Way { Nothing, Remove, Empty };

        Undo() = default;
        Undo(const Undo&) = delete;
        Undo& operator=(const Undo&) = delete;
        ~Undo() { now(); }
        /// Takes the name, while nothing is planned; planning then needs no memory.
        void watch(const std::filesystem::path& file) { file_ = file; }
        void plan(Way way) { way_ = way; }
        /// Undoes what is planned, if anything, at once.
        void now() noexcept;

    private:
        Way way_ = Way::Nothing;
        std::filesystem::path file_;
    };

    bool openInPlace(Undo::Way undo);
    bool openBeside();
    std::error_code createBeside();
    void replaceTarget();

    std::filesystem::path target_;  // with its links followed
    std::filesystem::path written_; // the target, or the file beside it
    Undo undo_;                     // outlives the stream, so that nothing is written after it
    std::ofstream stream_;
};

} // namespace VORN
