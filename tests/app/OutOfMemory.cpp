// Runs the program again and again while its n-th request for memory is refused, and then all from
// the n-th on. Whatever is refused, a run that fails says so in one line, and a file is written
// whole or not at all.

#include "app/Program.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <new>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::size_t requests = 0;
std::size_t firstRefused = SIZE_MAX;
std::size_t lastRefused = SIZE_MAX;

bool isRefused() {
    ++requests;
    return requests >= firstRefused && requests <= lastRefused;
}

} // namespace

void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    return isRefused() ? nullptr : std::malloc(bytes);
}
void* operator new(std::size_t bytes) {
    void* memory = operator new(bytes, std::nothrow);
    if (memory == nullptr)
        throw std::bad_alloc{};
    return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

// The linker puts these in the place of the functions that the program calls (--wrap).
extern "C" {
void* __real_calloc(std::size_t count, std::size_t bytes);
void* __real_realloc(void* memory, std::size_t bytes);
void* __wrap_calloc(std::size_t count, std::size_t bytes) {
    return isRefused() ? nullptr : __real_calloc(count, bytes);
}
void* __wrap_realloc(void* memory, std::size_t bytes) {
    return isRefused() ? nullptr : __real_realloc(memory, bytes);
}
}

namespace {

namespace fs = std::filesystem;

/// Stands in for a standard stream and takes no memory; keeps the beginning of what it is given.
class Capture : public std::streambuf {
public:
    explicit Capture(std::ostream& stream) : stream_{stream}, before_{stream.rdbuf(this)} {
        setp(text_.data(), text_.data() + text_.size());
    }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;
    ~Capture() override { stream_.rdbuf(before_); }
    std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

private:
    int_type overflow(int_type byte) override { return traits_type::not_eof(byte); }

    std::array<char, 100000> text_{};
    std::ostream& stream_;
    std::streambuf* before_;
};

std::string contentOf(const fs::path& file) {
    std::ifstream in{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{in}, {}};
}

/// Runs a command in a folder in which it writes the file "out.png", if any.
class Trial {
public:
    explicit Trial(const std::vector<const char*>& command) : command_{command} {
        fs::remove("out.png");
        runsWell_ = run() == 0;
        written_ = contentOf("out.png");
        writesFile_ = !written_.empty();
    }

    /// Refuses the requests `first` to `last`; false when the run needs fewer than `first`.
    bool refuse(std::size_t first, std::size_t last) {
        for (const char* old : {"", "old"}) {
            fs::remove("out.png");
            if (*old != '\0')
                std::ofstream{"out.png"} << old;
            firstRefused = first;
            lastRefused = last;
            const int status = run();
            firstRefused = SIZE_MAX;
            if (requests < first)
                return false;
            const std::string left = contentOf("out.png");
            const bool isWhole = left == (status == 0 && writesFile_ ? written_ : old);
            if (isGraceful_ && isWhole && (status == 1 || runsWell_))
                continue;
            std::cout << command_[1] << ": requests " << first << " to " << last << ", status "
                      << status << ", " << left.size() << " bytes in the file"
                      << (isGraceful_ ? "" : ", not one line of complaint") << "\n";
            hasPassed_ = false;
        }
        return true;
    }
    bool hasPassed() const { return hasPassed_; }

private:
    int run() {
        const Capture out{std::cout};
        const Capture err{std::cerr};
        requests = 0;
        const int status = VORN::runProgram(static_cast<int>(command_.size()), command_.data());
        const std::string_view text = err.text();
        isGraceful_ = status == 0
                          ? text.empty()
                          : status == 1 && !text.empty() && text.find('\n') == text.size() - 1;
        return status;
    }

    std::vector<const char*> command_;
    std::string written_;
    bool runsWell_ = false;
    bool writesFile_ = false;
    bool isGraceful_ = false;
    bool hasPassed_ = true;
};

} // namespace

int main() {
    const std::vector<std::vector<const char*>> commands{
        {"kavrin", "help"},
        {"kavrin", "builtin"},
        {"kavrin", "create", "hex", "3", "--reshape", "pattern.txt", "-o", "out.png"},
        {"kavrin", "create", "square", "3", "--fill-palette", "bad.txt", "-o", "out.png"},
        {"kavrin", "palette", KAVRIN_TEST_DATA "/png/palette8-9x7.png", "out.png"},
        {"kavrin", "palette", KAVRIN_TEST_DATA "/jpeg/rgb420-progressive.jpg", "out.png"},
        {"kavrin", "picture", "--pegboard", "square", "3", "picture.ppm", "palette.txt", "out.png"},
        {"kavrin", "pack", "-o", "out.png", "square", "3", "palette.txt", "pattern.txt"},
        {"kavrin", "show", "palette.txt", "pattern.txt", "out.png"},
        {"kavrin", "instruction", "palette.txt", "pattern.txt"},
    };
    constexpr std::size_t kMostRequests = 400;
    const fs::path folder = fs::current_path() / "out-of-memory-files";
    fs::remove_all(folder);
    fs::create_directory(folder);
    fs::current_path(folder);
    std::ofstream{"pattern.txt"} << "square\n\nab.\n.ba\n\n";
    std::ofstream{"palette.txt"} << "a 1 0 0\nb 0 1 0\n";
    std::ofstream{"bad.txt"} << std::string(50000, 'a');
    std::ofstream{"picture.ppm"} << "P6\n2 1\n255\nABCDEF";
    bool hasPassed = true;
    for (const auto& command : commands) {
        Trial trial{command};
        std::size_t n = 1;
        while (n <= kMostRequests && trial.refuse(n, n) && trial.refuse(n, SIZE_MAX))
            ++n;
        std::cout << command[1] << ": " << n - 1 << " requests\n";
        hasPassed = trial.hasPassed() && hasPassed;
    }
    fs::current_path(folder.parent_path());
    fs::remove_all(folder);
    return hasPassed ? 0 : 1;
}
