#include "tests/app/RunProgram.h"

namespace VORN {
namespace {

std::string pixmap(const std::string& size, const std::string& samples) {
    return makeFile("in.ppm", "P6 " + size + " 255\n" + samples);
}

TEST(PaletteSubcommand, NamesColorsInTheOrderOfReading) {
    const std::string palette = temporaryFile("palette");
    struct Case {
        const char* size;
        std::string samples;
        const char* palette;
    };
    const Case kCases[] = {
        {"1 1", std::string(3, '\xFF'), "0 1 1 1\n"},
        {"2 2",
         "\xFF\x33\x01"
         "AAA"
         "AAA"
         "BAA",
         "0 1 0.2 0.00392157\n1 0.254902 0.254902 0.254902\n2 0.258824 0.254902 0.254902\n"},
    };
    for (const Case& c : kCases) {
        const std::string picture = pixmap(c.size, c.samples);
        EXPECT_EQ(runProgram({"palette", picture, palette}), (ProgramRun{0, "", ""}));
        EXPECT_EQ(contentOf(palette), c.palette);
    }
}

TEST(PaletteSubcommand, LetsTheLastOfTooManyColorsKeepTheLastSymbol) {
    const std::string symbols =
        "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"; // ascending
    std::string samples;
    for (char i = 0; i < 70; ++i)
        samples += {i, '\0', '\0', '\0', '\0', '\0'}; // black in between
    const std::string palette = temporaryFile("palette");
    EXPECT_EQ(runProgram({"palette", pixmap("10 14", samples), palette}), (ProgramRun{0, "", ""}));
    const std::string written = contentOf(palette);
    std::string used;
    for (std::size_t line = 0; line < written.size(); line = written.find('\n', line) + 1)
        used += written[line];
    EXPECT_EQ(used, symbols);
    EXPECT_NE(written.find("\nZ 0.270588 0 0\n"), std::string::npos); // 69 / 255
    EXPECT_NE(written.find("\na 0.0392157 0 0\n"), std::string::npos);
    EXPECT_NE(written.find("\nA 0.141176 0 0\n"), std::string::npos);
}

TEST(PaletteSubcommand, WritesOnlyAfterThePictureWasRead) {
    const std::string palette = makeFile("palette", "kept");
    const std::string nowhere = temporaryFile("nowhere/palette");
    const std::string text = makeFile("text", "no picture");
    const std::string picture = pixmap("1 1", "abc");
    EXPECT_EQ(runProgram({"palette", nowhere, palette}),
              (ProgramRun{1, "", "Failed to open " + nowhere + "\n"}));
    EXPECT_EQ(runProgram({"palette", text, palette}),
              (ProgramRun{1, "", "Failed to load " + text + "\n"}));
    EXPECT_EQ(contentOf(palette), "kept");
    EXPECT_EQ(runProgram({"palette", picture, nowhere}),
              (ProgramRun{1, "", "Failed to open " + nowhere + "\n"}));
    EXPECT_EQ(
        runProgram({"palette", picture, "/dev/full"}),
        (ProgramRun{1, "", "VORN class VORN::StreamException: Failed to flush output stream. \n"}));
}

} // namespace
} // namespace VORN
