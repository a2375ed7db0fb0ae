#include "tests/app/RunProgram.h"

#include <filesystem>
#include <optional>
#include <sstream>

namespace VORN {
namespace {

/// `text` with its escapes replaced by the characters that they stand for.
std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        const char kind = text[++i];
        if (kind == 'x') {
            result += static_cast<char>(std::stoi(std::string{text.substr(i + 1, 2)}, nullptr, 16));
            i += 2;
        } else {
            result += kind == 'n' ? '\n' : kind == 'r' ? '\r' : kind;
        }
    }
    return result;
}

/// Takes the word at the front of `text` and the blank behind it away.
std::string takeWord(std::string_view& text) {
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string word{text.substr(0, end)};
    text.remove_prefix(std::min(end + 1, text.size()));
    return word == "\"\"" ? "" : unescaped(word);
}

std::vector<std::string> words(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty())
        words.push_back(takeWord(text));
    return words;
}

/// Carries a transcript out; `tests/data/app/README.md` tells what its lines mean.
class Transcript : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const std::string directory = testing::TempDir() + "transcript-" + GetParam();
        std::filesystem::remove_all(directory);
        std::filesystem::create_directory(directory);
        std::filesystem::current_path(directory);
    }
    void TearDown() override { std::filesystem::current_path(origin_); }

    /// The content of a file beside the transcripts.
    static std::string expectation(const std::string& name) {
        return contentOf(KAVRIN_TEST_DATA "/app/" + name);
    }

    void follow(std::string_view line) {
        const std::string verb = takeWord(line);
        const bool isInFile = line.starts_with("< ");
        const std::string text =
            isInFile ? expectation(std::string{line.substr(2)}) : unescaped(line);
        if (verb == "run") {
            run_ = runProgram(words(line));
        } else if (verb == "out") {
            expected_.out = text;
        } else if (verb == "err") {
            expected_.status = 1;
            expected_.err = text;
        } else if (verb == "status") {
            expected_.status = std::stoi(text);
        } else if (verb == "none") {
            EXPECT_FALSE(std::filesystem::exists(text));
        } else if (const std::string name = takeWord(line); verb == "file") {
            std::ofstream{name, std::ios::binary} << unescaped(line);
        } else {
            ASSERT_EQ(verb, "left");
            EXPECT_EQ(contentOf(name), unescaped(line)) << name;
        }
    }
    void endBlock() {
        EXPECT_EQ(run_.value_or(expected_), expected_);
        run_.reset();
        expected_ = {0, "", ""};
    }

private:
    std::filesystem::path origin_ = std::filesystem::current_path();
    std::optional<ProgramRun> run_;
    ProgramRun expected_{0, "", ""};
};

TEST_P(Transcript, IsWhatTheProgramDoes) {
    std::istringstream lines{expectation(GetParam() + std::string{".txt"})};
    unsigned number = 0;
    for (std::string line; std::getline(lines, line);) {
        SCOPED_TRACE(testing::Message() << "line " << ++number << ": " << line);
        if (line.empty())
            endBlock();
        else if (!line.starts_with('#'))
            follow(line);
    }
    endBlock();
    EXPECT_GT(number, 10U);
}

INSTANTIATE_TEST_SUITE_P(Subcommands, Transcript,
                         testing::Values("create", "instruction", "pack", "palette", "picture",
                                         "show"));

} // namespace
} // namespace VORN
