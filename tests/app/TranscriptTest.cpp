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

/// Shortens `text` where `expected` ends with dots, which stand for anything.
void cutLike(std::string_view expected, std::string& text) {
    if (expected.ends_with("..."))
        text = text.substr(0, expected.size() - 3) + "...";
}

/// Carries a transcript out; `tests/data/app/README.md` tells what its lines mean.
class Transcript : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const std::filesystem::path directory = temporaryFolder() / GetParam();
        std::filesystem::create_directory(directory);
        std::filesystem::current_path(directory);
    }
    void TearDown() override { std::filesystem::current_path(origin_); }

    /// The text that a line gives or, after "<", the content of a file beside the transcripts.
    static std::string textOf(std::string_view line) {
        if (!line.starts_with("< "))
            return unescaped(line);
        return contentOf(KAVRIN_TEST_DATA "/app/" + std::string{line.substr(2)});
    }

    void follow(std::string_view line) {
        const std::string verb = takeWord(line);
        if (verb == "run") {
            run_ = runProgram(words(line));
        } else if (verb == "out") {
            expected_.out = textOf(line);
        } else if (verb == "err") {
            expected_.status = 1;
            expected_.err = textOf(line);
        } else if (verb == "status") {
            expected_.status = std::stoi(textOf(line));
        } else if (verb == "none") {
            EXPECT_FALSE(std::filesystem::exists(textOf(line)));
        } else if (const std::string name = takeWord(line); verb == "file") {
            std::ofstream{name, std::ios::binary} << textOf(line);
        } else {
            ASSERT_EQ(verb, "left");
            EXPECT_EQ(contentOf(name), textOf(line)) << name;
        }
    }
    void endBlock() {
        ProgramRun run = run_.value_or(expected_);
        cutLike(expected_.out, run.out);
        cutLike(expected_.err, run.err);
        EXPECT_EQ(run, expected_);
        run_.reset();
        expected_ = {0, "", ""};
    }

private:
    std::filesystem::path origin_ = std::filesystem::current_path();
    std::optional<ProgramRun> run_;
    ProgramRun expected_{0, "", ""};
};

TEST_P(Transcript, IsWhatTheProgramDoes) {
    std::istringstream lines{textOf(std::string{"< "} + GetParam() + ".txt")};
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
                         testing::Values("create", "instruction", "limits", "pack", "palette",
                                         "picture", "program", "show"));

} // namespace
} // namespace VORN
