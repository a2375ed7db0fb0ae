#include "app/Program.h"
#include "core/Conversion.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string_view>

using namespace VORN;
using namespace VORN::Fuzz;

namespace {

namespace fs = std::filesystem;

/// A command line and the files it is run on.
///
/// As text: the arguments, one a line, an empty line, then file after file: a line with its name
/// and the number of its bytes, and the bytes.
struct Run {
    struct File {
        std::string name;
        std::string_view bytes;
    };

    std::vector<std::string> arguments;
    std::vector<File> files;
};

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

/// Files have short names without folders, so that no run leaves its own.
bool isName(std::string_view name) {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789.";
    return !name.empty() && name.size() <= 12 && name.front() != '.' &&
           name.find_first_not_of(kLetters) == std::string_view::npos;
}

/// A number, if it is one, as its option would read it.
std::optional<float> numberOf(const std::string& text) {
    std::optional<float> number;
    complaintOf([&] { number = Text::toFloat(text); });
    return number;
}

/// Tells whether the run takes the time and memory of a small pattern: sides of pegboards and sizes
/// of beads are bounded, all other numbers are free.
bool isSmall(const std::vector<std::string>& arguments) {
    constexpr float kLargestSide = 120;
    constexpr float kLargestBead = 20;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& before = arguments[i - 1];
        const auto number = numberOf(arguments[i]);
        const bool isSide = before == "square" || before == "hex" || before == "circle";
        if (number && isSide && *number > kLargestSide)
            return false;
        if (number && before == "-s" && *number > kLargestBead && *number < 1e9F)
            return false;
    }
    return true;
}

std::optional<Run> parse(std::string_view text) {
    constexpr std::size_t kMostFiles = 6;
    Run run;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.empty())
            break;
        const bool isBuiltin = line.starts_with("palettes/");
        if (line.find('\0') != std::string_view::npos ||
            (line.find('/') != std::string_view::npos && !isBuiltin))
            return std::nullopt;
        run.arguments.emplace_back(line);
    }
    while (!text.empty() && run.files.size() < kMostFiles) {
        std::string_view size = takeLine(text);
        const std::string_view name = size.substr(0, size.find(' '));
        size.remove_prefix(std::min(name.size() + 1, size.size()));
        std::uint32_t count = 0;
        if (!isName(name) || !complaintOf([&] { count = Text::toUnsigned(size); }).empty())
            return std::nullopt;
        run.files.push_back({std::string{name}, text.substr(0, count)});
        text.remove_prefix(std::min<std::size_t>(count, text.size()));
    }
    return isSmall(run.arguments) ? std::optional{run} : std::nullopt;
}

/// An empty folder of this process, which it works in.
class Folder {
public:
    Folder() {
        std::string pattern = (fs::temp_directory_path() / "fuzz-XXXXXX").string();
        require(mkdtemp(pattern.data()) != nullptr, "there is room for a folder");
        path_ = pattern;
        fs::current_path(path_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    void clear() const {
        for (const auto& entry : fs::directory_iterator{path_})
            fs::remove_all(entry);
    }

private:
    fs::path path_;
};

/// Collects what the program writes to a standard stream.
class Capture {
public:
    explicit Capture(std::ostream& stream)
        : stream_{&stream},
          before_{stream.rdbuf(text_.rdbuf())} {}
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;
    ~Capture() {
        stream_->rdbuf(before_);
        stream_->clear();
    }
    std::string text() const { return text_.str(); }

private:
    std::ostream* stream_;
    std::ostringstream text_;
    std::streambuf* before_;
};

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome execute(const Run& run) {
    std::vector<const char*> argv{"kavrin"};
    for (const std::string& argument : run.arguments)
        argv.push_back(argument.c_str());
    const Capture out{std::cout};
    const Capture err{std::cerr};
    const int status = runProgram(static_cast<int>(argv.size()), argv.data());
    return {status, out.text(), err.text()};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Folder folder;
    const auto run = parse({reinterpret_cast<const char*>(data), size});
    if (!run)
        return 0;
    folder.clear();
    for (const Run::File& file : run->files)
        std::ofstream{file.name, std::ios::binary} << file.bytes;
    const Outcome outcome = execute(*run);
    require(outcome.status == 0 || outcome.status == 1, "the status is 0 or 1");
    require(outcome.status == 0 || !outcome.err.empty(), "a failure says why");
    require(outcome.err.empty() || outcome.err.back() == '\n', "what is said ends its line");
    return 0;
}
