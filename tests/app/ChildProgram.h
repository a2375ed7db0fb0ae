#pragma once

#include "tests/app/RunProgram.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace VORN {

/// Whether the build has AddressSanitizer, which needs an address space without a limit.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kHasAddressSanitizer = true;
#elif defined(__has_feature)
constexpr bool kHasAddressSanitizer = __has_feature(address_sanitizer);
#else
constexpr bool kHasAddressSanitizer = false;
#endif

/// What a run of the program as a process of its own took.
struct ChildRun {
    int status;         // of the exit; -1 when a signal ended it
    double seconds;     // of the processor
    long peakMegabytes; // resident
    std::string err;    // the first 64 KiB of standard error
};

/// The first bytes of what can be read from `pipe`, up to its end.
inline std::string drain(int pipe) {
    constexpr std::size_t kKept = std::size_t{1} << 16;
    std::array<char, 65536> piece;
    std::string text;
    for (ssize_t count = 0; (count = read(pipe, piece.data(), piece.size())) > 0;)
        text.append(piece.data(), std::min(static_cast<std::size_t>(count), kKept - text.size()));
    return text;
}

/// Runs the program as a process of its own. `prepare` is called in it before the program starts;
/// unless it changes that, standard output goes nowhere. `program` may be a copy elsewhere.
inline ChildRun runChild(const std::vector<std::string>& arguments,
                         const std::function<void()>& prepare = {},
                         const std::string& program = KAVRIN_PROGRAM) {
    std::vector<std::string> texts{program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& text : texts)
        argv.push_back(text.data());
    argv.push_back(nullptr);
    int errors[2];
    if (pipe(errors) != 0)
        return {-1, 0, 0, "no pipe"};
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), 1);
        dup2(errors[1], 2);
        close(errors[0]);
        close(errors[1]);
        // What is refused by an allocation is the program's to report; freed memory is not kept.
        setenv("ASAN_OPTIONS", "allocator_may_return_null=1:quarantine_size_mb=1", 1);
        if (prepare)
            prepare();
        execv(argv[0], argv.data());
        _exit(127);
    }
    close(errors[1]);
    ChildRun run{-1, 0, 0, drain(errors[0])};
    close(errors[0]);
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    run.seconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    run.peakMegabytes = usage.ru_maxrss / 1024;
    return run;
}

} // namespace VORN
