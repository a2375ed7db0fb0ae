#include "tests/app/RunProgram.h"

namespace VORN {
namespace {

TEST(Program, EndsWithTheStatusAndTextsOfItsDispatch) {
    struct Case {
        std::vector<std::string> arguments;
        int status;
        std::string out; // what it begins with; nothing is written where this is empty
        std::string err; // in the same way
    };
    const Case kCases[] = {
        {{}, 0, "Subcommands: help | builtin | ", ""},
        {{"help"}, 0, "Subcommands: ", ""},
        {{"--version"}, 0, "kavrin -- 20240707\n", ""},
        {{"--help"}, 0, "Usage: command [--help] [--version] [subcommand]\n", ""},
        {{"create", "--help"}, 0, "Usage: command [-o pattern] ", ""},
        {{"dots"}, 1, "", "dots is not a recognized subcommand. \nSubcommands: "},
        {{"create", "--version"},
         1,
         "",
         "VORN class VORN::ParseException: String \"--version\" could not be parsed into "},
        {{"builtin", "x"}, 1, "", "No more unnamed arguments to be processed, 'x' ignored. \n\n"},
        {{"picture", "nowhere.png", "palettes/hama.txt", "out.txt"},
         1,
         "",
         "Failed to open nowhere.png\n"},
    };
    for (const Case& c : kCases) {
        const ProgramRun run = runProgram(c.arguments);
        SCOPED_TRACE(testing::PrintToString(c.arguments) + testing::PrintToString(run));
        EXPECT_EQ(run.status, c.status);
        EXPECT_TRUE(c.out.empty() ? run.out.empty() : run.out.starts_with(c.out));
        EXPECT_TRUE(c.err.empty() ? run.err.empty() : run.err.starts_with(c.err));
    }
}

} // namespace
} // namespace VORN
