#include "tests/app/RunProgram.h"

namespace VORN {
namespace {

// The palette defines a and b; every other symbol is background.
std::string palette() { return makeFile("palette", "a 0 0 0\nb 1 1 1\n"); }

TEST(PackSubcommand, GivesEveryPartialPieceAPanel) {
    struct Case {
        const char* pattern;
        const char* panels;
    };
    constexpr Case kCases[] = {
        {"square\n\n", "square\n\n"},
        {"square\n\n....\n.a..\n..b.\n", "square\n\na..\n.b.\n...\n\n"},
        {"square\n\n...a\n....\n...b\n", "square\n\na..\n...\nb..\n\n"},
        {"square\n\n.b.\na.x\n", "square\n\n.b.\na..\n...\n\n"}, // x lies outside the box
        {"square\n\nxa.b\n...x\n.bx.\n", "square\n\na.b\n..x\nbx.\n\n"},
        {"..x\n", "square\n\n..x\n...\n...\n\n"}, // without content, the whole layer
        {"square\n\na.b\n\n\n.a\nb.\n", "square\n\na.b\n...\n...\n\n.a.\nb..\n...\n\n"},
    };
    const std::string out = temporaryFile("out");
    for (const Case& c : kCases) {
        const std::string pattern = makeFile("pattern", c.pattern);
        EXPECT_EQ(runProgram({"pack", "square", "3", palette(), pattern}),
                  (ProgramRun{0, c.panels, ""}));
        EXPECT_EQ(runProgram({"pack", "-o", out, "square", "3", palette(), pattern}),
                  (ProgramRun{0, "", ""}));
        EXPECT_EQ(contentOf(out), c.panels);
    }
    const std::string first = makeFile("first", "a.b\n");
    const std::string second = makeFile("second", "a.a\n");
    EXPECT_EQ(runProgram({"pack", "square", "3", palette(), first, second, first}).out,
              "square\n\na.b\n...\n...\n\na.a\n...\n...\n\na.b\n...\n...\n\n");
}

TEST(PackSubcommand, NamesWhatItCannotDo) {
    const std::string bound = "VORN class VORN::BoundException<int>: Value (0) out of bound (";
    const std::string nowhere = temporaryFile("nowhere");
    const std::string pattern = temporaryFile("pattern");
    struct Case {
        std::vector<std::string> board;
        std::string palette;
        const char* pattern;
        std::string complaint;
    };
    const Case kCases[] = {
        {{"hex", "3"}, nowhere, "", "Pattern type must be \"square\".\n"},
        {{"circle", "3"}, nowhere, "", "Pattern type must be \"square\".\n"},
        {{"square", "3"}, nowhere, "", "Failed to open " + nowhere + "\n"},
        {{"square", "3"},
         palette(),
         "circle\n\na\n",
         "Pattern type in " + pattern + " is not \"square\".\n"},
        {{"square", "3"},
         palette(),
         "ab\na\n",
         "line 2: Missmatching line length. \nFailed to load " + pattern + "\n"},
        {{"square", "3"}, palette(), "a..b\na...\na...\na...\na...\n", bound + "-1). \n"},
        {{"square", "3"}, palette(), "a.b\na..\na..\na..\na..\n", bound + "-2). \n"},
        {{"square", "0"}, palette(), "a.b\n", bound + "-3). \n"},
        {{"square", "3"}, palette(), "aaaa\n", bound + "-1). \n"},
        {{"square", "3"},
         palette(),
         ".ab\n.ba\n",
         "VORN class VORN::SupportException: No support for binary signal resize. \n"},
        {{"-o", nowhere + "/out", "square", "3"},
         palette(),
         "a.a\n",
         "Failed to open " + nowhere + "/out\n"},
    };
    for (const Case& c : kCases) {
        makeFile("pattern", c.pattern);
        std::vector<std::string> arguments{"pack"};
        arguments.insert(arguments.end(), c.board.begin(), c.board.end());
        arguments.insert(arguments.end(), {c.palette, pattern});
        EXPECT_EQ(runProgram(arguments), (ProgramRun{1, "", c.complaint}));
    }
    EXPECT_TRUE(
        runProgram({"pack", "square", "3", palette()})
            .err.starts_with("The required value 'pattern ... patternN' was not assigned. "));
}

} // namespace
} // namespace VORN
