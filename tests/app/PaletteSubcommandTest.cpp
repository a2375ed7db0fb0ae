#include "tests/app/RunProgram.h"

namespace VORN {
namespace {

TEST(PaletteSubcommand, LetsTheLastOfTooManyColorsKeepTheLastSymbol) {
    const std::string symbols =
        "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"; // ascending
    std::string file = "P6 10 14 255\n";
    for (char i = 0; i < 70; ++i)
        file += {i, '\0', '\0', '\0', '\0', '\0'}; // black in between
    const std::string palette = temporaryFile("palette");
    EXPECT_EQ(runProgram({"palette", makeFile("in.ppm", file), palette}), (ProgramRun{0, "", ""}));
    const std::string written = contentOf(palette);
    std::string used;
    for (std::size_t line = 0; line < written.size(); line = written.find('\n', line) + 1)
        used += written[line];
    EXPECT_EQ(used, symbols);
    for (const char* line : {"\nZ 0.270588 0 0\n", "\na 0.0392157 0 0\n", "\nA 0.141176 0 0\n"})
        EXPECT_NE(written.find(line), std::string::npos) << line; // Z is 69 / 255
}

} // namespace
} // namespace VORN
