#include "tests/app/RunProgram.h"

namespace VORN {
namespace {

TEST(CreateSubcommand, WritesThePatternOfAPegboard) {
    const std::string palette = makeFile("palette", "c 1 1 1\na 0 0 0\nb .5 0 1\n");
    struct Case {
        std::vector<std::string> arguments;
        const char* pattern;
    };
    const Case kCases[] = {
        {{"square", "2"}, "square\n\n..\n..\n\n"},
        {{"hex", "3"}, "hex\n\n. . . \n . . .\n. . . \n\n"},
        {{"circle", "2"}, "circle\n\n.\n......\n\n"},
        {{"square", "0"}, "square\n\n\n"},
        {{"--fill", "xyz", "square", "1"}, "square\n\nx\n\n"},
        {{"square", "2", "--fill-palette", palette}, "square\n\nab\nc.\n\n"},
        {{"hex", "2", "--fill-palette", palette}, "hex\n\na b \n c .\n\n"},
        {{"circle", "1", "--fill-palette", palette}, "circle\n\na\n\n"},
    };
    for (const Case& c : kCases) {
        std::vector<std::string> arguments{"create"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        EXPECT_EQ(runProgram(arguments), (ProgramRun{0, c.pattern, ""}));

        const std::string file = temporaryFile("out");
        arguments.insert(arguments.end(), {"-o", file});
        EXPECT_EQ(runProgram(arguments), (ProgramRun{0, "", ""}));
        EXPECT_EQ(contentOf(file), c.pattern);
    }
}

// Layers are laid centre on centre; of the input's beads those on its far edges lie outside.
TEST(CreateSubcommand, ReshapesEveryLayer) {
    const std::string square = makeFile("square", "square\n\nabc\ndef\nghi\n\n123\n456\n789\n");
    const std::string hex = makeFile("hex", "hex\n\na b c \n d e f\ng h i \n");
    struct Case {
        std::vector<std::string> arguments;
        const char* pattern;
    };
    const Case kCases[] = {
        {{"square", "3", "--reshape", square}, "square\n\nab.\nde.\n...\n\n12.\n45.\n...\n\n"},
        {{"square", "1", "--fill", "-", "--reshape", square}, "square\n\ne\n\n5\n\n"},
        {{"hex", "3", "--reshape", hex}, "hex\n\na b c \n d e .\n. . . \n\n"},
        {{"circle", "2", "--reshape", square}, "circle\n\ne\nfhhdbb\n\n5\n688422\n\n"},
    };
    for (const Case& c : kCases) {
        std::vector<std::string> arguments{"create"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        EXPECT_EQ(runProgram(arguments), (ProgramRun{0, c.pattern, ""}));
    }
}

TEST(CreateSubcommand, NamesWhatItCannotDo) {
    const std::string ragged = makeFile("ragged", "square\n\nab\nc\n");
    const std::string nowhere = temporaryFile("nowhere/out");
    const std::string noSymbol = "VORN class VORN::UnexpectedValueException: ";
    struct Case {
        std::vector<std::string> arguments;
        std::string complaint;
    };
    const Case kCases[] = {
        {{"--fill", ""}, noSymbol + " is not a palette symbol. \n"},
        {{"--fill", "\rx"}, noSymbol + "\rx is not a palette symbol. \n"},
        {{"--fill", "\n"}, noSymbol + "\n is not a palette symbol. \n"},
        {{"--reshape", ragged},
         "line 4: Missmatching line length. \nFailed to load " + ragged + "\n"},
        {{"--reshape", nowhere}, "Failed to open " + nowhere + "\n"},
        {{"--fill-palette", nowhere}, "Failed to open " + nowhere + "\n"},
        {{"-o", nowhere}, "Failed to open " + nowhere + "\n"},
        {{"-o", "/dev/full"},
         "VORN class VORN::StreamException: Failed to flush output stream. \n"},
    };
    for (const Case& c : kCases) {
        std::vector<std::string> arguments{"create", "square", "2"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        EXPECT_EQ(runProgram(arguments), (ProgramRun{1, "", c.complaint}));
    }
    EXPECT_EQ(runProgram({"create", "circle", "4294967295"}).err,
              "VORN class VORN::AllocateException: Failed to allocate pattern layer. \n");
}

} // namespace
} // namespace VORN
