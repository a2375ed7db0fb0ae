#include "app/Platform.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif

namespace VORN {

namespace {

/// Whether rights are granted beyond owner, group and permissions; a new file would lack them.
bool hasAccessList(const std::filesystem::path& file) {
#if defined(__linux__)
    return getxattr(file.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
#else
    static_cast<void>(file);
    return false;
#endif
}

} // namespace

void letWritesFail() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

bool settleStandardOutput() {
    // Network file systems tell at a close, of any descriptor, what they could not store.
    const int copy = dup(STDOUT_FILENO);
    return copy < 0 || close(copy) == 0;
}

std::filesystem::path pathOf(const std::string& name) { return name; }

bool isSystemPath(const std::filesystem::path& path) {
    const std::filesystem::path normal = path.lexically_normal();
    auto part = normal.begin();
    if (part == normal.end() || *part != "/" || ++part == normal.end())
        return false;
    return *part == "dev" || *part == "proc";
}

std::error_code createFile(const std::filesystem::path& path) {
    const int file =
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return {errno, std::generic_category()};
    close(file);
    return {};
}

bool copyOwnership(const std::filesystem::path& original, const std::filesystem::path& file) {
    struct stat from {};
    struct stat to {};
    if (stat(original.c_str(), &from) != 0 || stat(file.c_str(), &to) != 0)
        return false;
    if (from.st_dev != to.st_dev || hasAccessList(original))
        return false;
    const bool isOwned = from.st_uid == to.st_uid && from.st_gid == to.st_gid;
    if (!isOwned && chown(file.c_str(), from.st_uid, from.st_gid) != 0)
        return false;
    constexpr mode_t kPermissions = 07777;
    return chmod(file.c_str(), from.st_mode & kPermissions) == 0;
}

} // namespace VORN
