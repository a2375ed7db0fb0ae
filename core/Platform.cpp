#include "core/Platform.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#if defined(_WIN32)
#include <io.h>
#include <vector>
#include <windows.h>

#include <shellapi.h>
#else
#include <sys/mman.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif
#endif

#if defined(_WIN32)

namespace VORN {

namespace {

/// `text` in UTF-8; a half of a surrogate pair becomes U+FFFD.
std::string narrowed(const std::wstring& text) {
    const int units = static_cast<int>(text.size());
    const auto convert = [&](char* out, int bytes) {
        return WideCharToMultiByte(CP_UTF8, 0, text.data(), units, out, bytes, nullptr, nullptr);
    };
    std::string bytes(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(bytes.data(), static_cast<int>(bytes.size()));
    return bytes;
}

/// `text`, which is UTF-8, in the system's UTF-16.
std::wstring widened(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const auto convert = [&](wchar_t* out, int units) {
        return MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, out, units);
    };
    std::wstring units(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
    convert(units.data(), static_cast<int>(units.size()));
    return units;
}

/// Makes the console show UTF-8 as long as the object exists.
class ConsoleInUtf8 {
public:
    ConsoleInUtf8() { SetConsoleOutputCP(CP_UTF8); }
    ConsoleInUtf8(const ConsoleInUtf8&) = delete;
    ConsoleInUtf8& operator=(const ConsoleInUtf8&) = delete;
    ~ConsoleInUtf8() { SetConsoleOutputCP(before_); }

private:
    UINT before_ = GetConsoleOutputCP();
};

} // namespace

void prepareStreams() {
    static const ConsoleInUtf8 console;
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

int withCommandLine(int count, const char* const* words, int (*run)(int, const char* const*)) {
    int wideCount = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> wide{
        CommandLineToArgvW(GetCommandLineW(), &wideCount), &LocalFree};
    if (!wide)
        return run(count, words);
    std::vector<std::string> narrow;
    for (int i = 0; i < wideCount; ++i)
        narrow.push_back(narrowed(wide.get()[i]));
    std::vector<const char*> texts;
    for (const std::string& text : narrow)
        texts.push_back(text.c_str());
    return run(wideCount, texts.data());
}

bool settleStandardOutput() { return true; }

std::filesystem::path pathOf(const std::string& name) { return widened(name); }

bool isSystemPath(const std::filesystem::path& path) {
    return path.native().starts_with(LR"(\\.\)");
}

std::error_code createFile(const std::filesystem::path& path) {
    const int file =
        _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
    if (file < 0)
        return {errno, std::generic_category()};
    _close(file);
    return {};
}

bool copyOwnership(const std::filesystem::path& /*original*/,
                   const std::filesystem::path& /*file*/) {
    return true;
}

void preferLargePages(std::span<std::uint8_t> /*memory*/) {}

} // namespace VORN

#else

namespace VORN {

namespace {

/// Whether `file` has rights beyond owner, group and permissions, which a new file would not have.
bool hasAccessList(const std::filesystem::path& file) {
#if defined(__linux__)
    return getxattr(file.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
#else
    static_cast<void>(file);
    return false;
#endif
}

} // namespace

void prepareStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

int withCommandLine(int count, const char* const* words, int (*run)(int, const char* const*)) {
    return run(count, words);
}

bool settleStandardOutput() {
    // Network file systems report what they could not store when any descriptor of the file is
    // closed.
    const int copy = dup(STDOUT_FILENO);
    return copy < 0 || close(copy) == 0;
}

std::filesystem::path pathOf(const std::string& name) { return name; }

bool isSystemPath(const std::filesystem::path& path) {
    const std::filesystem::path normal = path.lexically_normal();
    auto part = normal.begin();
    if (part == normal.end() || *part != "/")
        return false;
    ++part;
    return part != normal.end() && (*part == "dev" || *part == "proc");
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
    struct stat from{};
    struct stat to{};
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

void preferLargePages([[maybe_unused]] std::span<std::uint8_t> memory) {
#if defined(MADV_HUGEPAGE)
    void* first = memory.data();
    std::size_t bytes = memory.size();
    const auto pageBytes = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    if (std::align(pageBytes, pageBytes, first, bytes) != nullptr)
        static_cast<void>(madvise(first, bytes / pageBytes * pageBytes, MADV_HUGEPAGE));
#endif
}

} // namespace VORN

#endif
