#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace VORN {

/// An output file that ends up either complete or as it was before.
///
/// An existing file is replaced only when the new one is complete. The new one is written beside
/// it, under its name with ".kavrin-unfinished" behind; it gets the owner, group and permissions of
/// the old one and is then renamed. Symbolic links are followed.
///
/// Some files cannot be replaced by another and are written in place: those with further names
/// (hard links), those whose owner or group could not be kept, those beside which no file can be
/// made, and devices, pipes and views of the system. New files are written in place, too.
///
/// If the object is destroyed before `finish`, the new file is removed. An existing file that had
/// to be written in place is then left empty rather than half written.
class OutputFile {
public:
    /// Opens the file `name` for writing. Returns false if that is impossible; nothing is changed
    /// then.
    bool open(const std::string& name);

    /// The stream for the file's bytes, after `open`.
    std::ostream& stream() { return stream_; }

    /// Closes the file and puts it in its place; only then is it complete. If the system does not
    /// accept all bytes, that is a `StreamException`.
    void finish();

private:
    /// Cleans up a file that was not completed, as was planned for it, when the object goes.
    class Undo {
    public:
        enum class Way { Nothing, Remove, Empty };

        Undo() = default;
        Undo(const Undo&) = delete;
        Undo& operator=(const Undo&) = delete;
        ~Undo() { now(); }
        /// Sets the file; nothing may be planned yet. It is a step of its own as `plan` must not
        /// need memory.
        void watch(const std::filesystem::path& file) { file_ = file; }
        void plan(Way way) { way_ = way; }
        /// Does what is planned at once, if anything is.
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
