#include "tests/app/RunProgram.h"

namespace VORN {
namespace {

constexpr const char* kPalette = "b 1 0 .25\na 0 0.3333333333 0\n";

ProgramRun instruct(const std::vector<std::string>& options,
                    const std::vector<std::string>& patterns,
                    const std::string& palette = kPalette) {
    std::vector<std::string> arguments{"instruction"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.push_back(makeFile("palette", palette));
    for (const std::string& pattern : patterns)
        arguments.push_back(makeFile("pattern" + std::to_string(arguments.size()), pattern));
    return runProgram(arguments);
}

/// What stands between two texts at each place where `before` occurs.
std::vector<std::string> between(const std::string& text, const std::string& before,
                                 const std::string& after) {
    std::vector<std::string> found;
    for (std::size_t at = text.find(before); at != std::string::npos; at = text.find(before, at)) {
        at += before.size();
        found.push_back(text.substr(at, text.find(after, at) - at));
    }
    return found;
}

std::string bead(const std::string& place, const std::string& symbol) {
    return "\\node [outline] at " + place + " {}; \\node [bead,draw=color_" + symbol + "] at " +
           place + " {};\n";
}

std::string cross(const std::string& place) { return "\\node [cross] at " + place + " {};\n"; }

std::string entry(const std::string& symbol, int count, const std::string& end) {
    return "\\node [outline] at (0, 0) {}; \\node [bead,draw=color_" + symbol +
           ",label={right:" + std::to_string(count) + "}] at (0, 0) {};" + end;
}

std::vector<std::string> beadsOf(const ProgramRun& run) {
    return between(run.out, "\\begin{scope}[shift={(0.5, 0.5)}]\n", "\n\\end{scope}\n");
}

std::vector<std::string> usageOf(const ProgramRun& run) {
    return between(run.out, "row sep=1 mm]\n{\n", "};\n\\end{tikzpicture}");
}

TEST(InstructionSubcommand, DrawsBeadsWhereTheyLie) {
    struct Case {
        const char* pattern;
        std::string beads;
    };
    const Case kCases[] = {
        {"ab\n.a\n",
         bead("(0, 0)", "a") + bead("(1, 0)", "b") + cross("(0, 1)") + bead("(1, 1)", "a")},
        {"hex\n\na . \n . b\n", bead("(0, 0)", "a") + cross("(1, 0)") + cross("(0.5, 0.866025)") +
                                    bead("(1.5, 0.866025)", "b")},
        {"circle\n\na\n..b...\n",
         bead("(0, 0)", "a") + cross("(0.95493, 0)") + cross("(0.477465, 0.826993)") +
             bead("(-0.477465, 0.826993)", "b") + cross("(-0.95493, -1.16945e-16)") +
             cross("(-0.477465, -0.826993)") + cross("(0.477465, -0.826993)")},
    };
    for (const Case& c : kCases)
        EXPECT_EQ(beadsOf(instruct({}, {c.pattern})), std::vector{c.beads}) << c.pattern;
}

TEST(InstructionSubcommand, CountsBeadsPerLayerAndInAll) {
    const ProgramRun run = instruct({}, {"abb\n\na\n", "hex\n\na . \n", "..\n"});
    EXPECT_EQ(usageOf(run),
              (std::vector<std::string>{entry("b", 2, " &\n") + entry("a", 1, " \\\\\n"),
                                        entry("a", 1, " \\\\\n"), entry("a", 1, " \\\\\n"), "",
                                        entry("a", 3, " &\n") + entry("b", 2, " \\\\\n")}));
    EXPECT_EQ(beadsOf(run).size(), 4U);

    std::string palette;
    std::string row;
    std::string usage;
    for (const char symbol : std::string{"abcdefghi"}) {
        palette += symbol + std::string{" 0 0 0\n"};
        row += symbol;
        const bool endsRow = symbol == 'h' || symbol == 'i';
        usage += entry(std::string(1, symbol), 1, endsRow ? " \\\\\n" : " &\n");
    }
    EXPECT_EQ(usageOf(instruct({}, {row + "\n"}, palette)), (std::vector{usage, usage}));
}

TEST(InstructionSubcommand, SetsTheDocumentUp) {
    struct Case {
        std::vector<std::string> options;
        const char* axes;
        const char* background;
    };
    const Case kCases[] = {
        {{}, "x=5mm,y=-5mm,", "white"},
        {{"--mirror"}, "x=-5mm,y=-5mm,", "white"},
        {{"--pitch", "2.6mm", "--background", "black!10"}, "x=2.6mm,y=-2.6mm,", "black!10"},
    };
    const std::string colors = "\\definecolor{color_a}{rgb}{0,0.333333,0}\n"
                               "\\definecolor{color_b}{rgb}{1,0,0.25}\n";
    for (const Case& c : kCases) {
        const ProgramRun run = instruct(c.options, {"a\n", "b\n"});
        EXPECT_EQ(run.status, 0);
        EXPECT_TRUE(run.out.starts_with("\\documentclass{article}\n\\usepackage{tikz}\n"));
        EXPECT_TRUE(run.out.ends_with("\\end{framed}\n\\end{document}\n"));
        EXPECT_EQ(between(run.out, "\\begin{tikzpicture}[x=", "background"),
                  std::vector<std::string>(2, std::string{c.axes}.substr(2)));
        EXPECT_EQ(between(run.out, "/.style={fill=", "}"),
                  std::vector<std::string>(5, c.background));
        EXPECT_EQ(between(run.out, "\n% Palette. \n", "\n\n% "),
                  std::vector<std::string>(5, colors));
        EXPECT_EQ(run.out.find("$("), std::string::npos);
    }
}

TEST(InstructionSubcommand, WritesNothingUnlessAllInputsWereRead) {
    const std::string nowhere = temporaryFile("nowhere");
    const std::string palette = makeFile("palette", kPalette);
    const std::string pattern = makeFile("pattern", "a\n");
    const std::string ragged = makeFile("ragged", "ab\na\n");
    const std::string unopened = "Failed to open " + nowhere + "\n";
    EXPECT_EQ(runProgram({"instruction", nowhere, pattern}), (ProgramRun{1, "", unopened}));
    EXPECT_EQ(runProgram({"instruction", palette, pattern, nowhere}),
              (ProgramRun{1, "", unopened}));
    EXPECT_EQ(
        runProgram({"instruction", palette, pattern, ragged}),
        (ProgramRun{1, "", "line 2: Missmatching line length. \nFailed to load " + ragged + "\n"}));
}

} // namespace
} // namespace VORN
