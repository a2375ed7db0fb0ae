#include "app/OutputFile.h"

#include "core/Exception.h"
#include "core/Platform.h"

#include <system_error>
#include <utility>

namespace VORN {

namespace fs = std::filesystem;

namespace {

constexpr const char* kSuffix = ".kavrin-unfinished";

/// The file that a chain of symbolic links leads to, whether it exists or not.
fs::path followLinks(fs::path file) {
    constexpr int kMostLinks = 40;
    std::error_code failed;
    for (int links = 0; links < kMostLinks; ++links) {
        if (isSystemPath(file) || !fs::is_symlink(file, failed))
            break;
        const fs::path next = fs::read_symlink(file, failed);
        if (failed)
            break;
        file = file.parent_path() / next;
    }
    return file;
}

/// Whether `file` may be written. It is opened to find out, as only that is reliable.
bool isWritable(const fs::path& file) {
    return std::ofstream{file, std::ios::binary | std::ios::app}.is_open();
}

/// Whether a file could not be made beside the target only because of its name or folder. With
/// other reasons, such as a full disk, writing in place would fail, too.
bool mustWriteInPlace(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system || error == std::errc::filename_too_long ||
           error == std::errc::file_exists;
}

StreamException unwritten() {
    return StreamException{kNoOrigin, "Failed to flush output stream. "};
}

} // namespace

void OutputFile::Undo::now() noexcept {
    std::error_code ignored;
    const Way way = std::exchange(way_, Way::Nothing);
    if (way == Way::Nothing || !fs::is_regular_file(file_, ignored))
        return;
    if (way == Way::Remove)
        fs::remove(file_, ignored);
    else
        fs::resize_file(file_, 0, ignored);
}

bool OutputFile::open(const std::string& name) {
    const fs::path path = pathOf(name);
    std::error_code failed;
    const fs::path absolute = fs::absolute(path, failed);
    target_ = followLinks(failed ? path : absolute);
    const fs::file_status status = fs::status(target_, failed);
    if (status.type() == fs::file_type::not_found)
        return openInPlace(Undo::Way::Remove);
    if (status.type() != fs::file_type::regular || isSystemPath(target_))
        return openInPlace(Undo::Way::Nothing);
    if (fs::hard_link_count(target_, failed) != 1)
        return openInPlace(Undo::Way::Empty);
    return isWritable(target_) && openBeside();
}

/// The clean-up is planned first, so that no file is left behind whatever happens while it is
/// opened.
bool OutputFile::openInPlace(Undo::Way undo) {
    written_ = target_;
    undo_.watch(written_);
    undo_.plan(undo);
    stream_.open(written_, std::ios::binary);
    if (!stream_.is_open())
        undo_.plan(Undo::Way::Nothing);
    return stream_.is_open();
}

bool OutputFile::openBeside() {
    const std::error_code error = createBeside();
    if (error)
        return mustWriteInPlace(error) && openInPlace(Undo::Way::Empty);
    stream_.open(written_, std::ios::binary);
    if (!stream_.is_open() || copyOwnership(target_, written_))
        return stream_.is_open();
    stream_.close();
    undo_.now();
    return openInPlace(Undo::Way::Empty);
}

/// Makes a new file beside the target. Names that exist already may be left from an interrupted
/// run, or in use by another run; the next one is tried then.
std::error_code OutputFile::createBeside() {
    constexpr int kMostNames = 100;
    std::error_code error;
    for (int number = 1; number <= kMostNames; ++number) {
        written_ = target_;
        written_ += kSuffix;
        if (number > 1)
            written_ += '-' + std::to_string(number);
        undo_.watch(written_);
        error = createFile(written_);
        if (!error)
            undo_.plan(Undo::Way::Remove);
        if (error != std::errc::file_exists)
            break;
    }
    return error;
}

void OutputFile::finish() {
    if (!stream_.flush())
        throw unwritten();
    stream_.close();
    if (!stream_)
        throw unwritten();
    if (written_ != target_)
        replaceTarget();
    undo_.plan(Undo::Way::Nothing);
}

/// Renames the new file to the target. A target that is a mount point cannot be replaced; the
/// complete file is copied over it.
void OutputFile::replaceTarget() {
    std::error_code failed;
    fs::rename(written_, target_, failed);
    if (!failed)
        return;
    if (failed != std::errc::device_or_resource_busy ||
        !fs::copy_file(written_, target_, fs::copy_options::overwrite_existing, failed))
        throw unwritten();
    undo_.now();
}

} // namespace VORN
