#include "tests/app/RunProgram.h"

#include <filesystem>

namespace VORN {
namespace {

using namespace std::string_literals;

// Black, white, red and blue, one pixel each, from the top left to the bottom right.
const std::string kPicture = "P6 2 2 255 \0\0\0\xFF\xFF\xFF\xFF\0\0\0\0\xFF"s;
const std::string kPalette = "b 0 0 1\nk 0 0 0\nr 1 0 0\nw 1 1 1\n";

TEST(PictureSubcommand, WritesAPatternOrSaysWhyNot) {
    const std::string picture = makeFile("4.ppm", kPicture);
    const std::string palette = makeFile("palette.txt", kPalette);
    const std::string noPattern = "no pattern";
    const struct {
        std::vector<std::string> options;
        int status;
        std::string err;
        std::string pattern;
    } kCases[] = {
        {{}, 0, "", "square\n\nkw\nrb\n\n"},
        {{"--dithering"}, 0, "", "square\n\nkw\nrb\n\n"},
        {{"--hsv-weights", "0", "0", "1"}, 0, "", "square\n\nkb\nbb\n\n"},
        {{"--crop", "1", "0", "1", "2"}, 0, "", "square\n\nw\nb\n\n"},
        {{"--crop", "0", "0", "0", "0"}, 0, "", "square\n\n\n"},
        {{"--crop", "1", "1", "2", "2"},
         1,
         "VORN class VORN::BoundException<unsigned int>: Value (3) out of bound (2). \n",
         noPattern},
        {{"--transparent-color", "7", "7", "1"}, 0, "", "square\n\nk.\nrb\n\n"},
        {{"--transparent-position", "0", "1"}, 0, "", "square\n\nkw\n.b\n\n"},
        {{"--transparent-position", "0", "1", "--transparent-threshold", "1"},
         0,
         "",
         "square\n\n..\n..\n\n"},
        {{"--transparent-position", "0", "2"},
         1,
         "VORN class VORN::BoundException<unsigned int>: Value (2) out of bound (2). \n",
         noPattern},
        {{"--crop", "0", "0", "2", "1", "--crop-transparent", "--transparent-color", "0", "0", "0"},
         0,
         "",
         "square\n\nw\n\n"},
        {{"--crop-transparent"},
         1,
         "Transparency crop set without transparency criteria.\n",
         noPattern},
        {{"--pegboard", "square", "3"}, 0, "", "square\n\nkkw\nkkb\nrkb\n\n"},
        {{"--pegboard", "square", "3", "--dithering"}, 0, "", "square\n\nkw\nrb\n\n"},
        {{"--pegboard", "hex", "1"}, 0, "", "hex\n\nk \n\n"},
        {{"--pegboard", "circle", "1"}, 0, "", "circle\n\nk\n\n"},
        {{"--pegboard", "circle", "0"}, 0, "", "circle\n\n\n"},
        {{"--pegboard", "hex", "2", "--dithering"},
         0,
         "Dithering is only supported for square patterns. \n",
         noPattern},
        {{"--pegboard", "Square", "3"},
         1,
         "VORN class VORN::ParseException: String \"Square\" could not be parsed into \"pegboard "
         "types are square | hex | circle\". \n",
         noPattern},
        {{"--hsv-weights", "1", "1", "much"},
         1,
         "VORN class VORN::Text::ConversionException: Failed to convert \"much\" to float.\n",
         noPattern},
    };
    for (const auto& c : kCases) {
        const std::string out = temporaryFile("out.txt");
        std::filesystem::remove(out);
        std::vector<std::string> arguments{"picture"};
        arguments.insert(arguments.end(), c.options.begin(), c.options.end());
        arguments.insert(arguments.end(), {picture, palette, out});
        SCOPED_TRACE(testing::PrintToString(c.options));
        EXPECT_EQ(runProgram(arguments), (ProgramRun{c.status, "", c.err}));
        EXPECT_EQ(std::filesystem::exists(out) ? contentOf(out) : noPattern, c.pattern);
    }
}

TEST(PictureSubcommand, NamesTheInputThatFailed) {
    const std::string picture = makeFile("4.ppm", kPicture);
    const std::string text = makeFile("text.dat", "neither picture nor palette");
    const std::string out = temporaryFile("out.txt");
    const struct {
        std::vector<std::string> arguments;
        std::string err;
    } kCases[] = {
        {{picture, "nowhere.txt", out}, "Failed to open nowhere.txt\n"},
        {{text, "palettes/hama.txt", out}, "Failed to load " + text + "\n"},
        {{"palettes/hama.txt", "palettes/hama.txt", out},
         "Failed to load palettes/hama.txt from builtin resources.\n"},
        {{picture, text, out},
         "VORN class VORN::ParseException: String \"neither picture nor palette\" could not be "
         "parsed into \"palette entry\". \n"},
        {{picture, "palettes/hama.txt", "/nonexistent/out.txt"},
         "Failed to open /nonexistent/out.txt\n"},
        {{picture, "palettes/hama.txt", "/dev/full"},
         "VORN class VORN::StreamException: Failed to flush output stream. \n"},
        {{picture, "palettes/hama.txt"},
         "The required value 'pattern file' was not assigned. \n\nUsage: command "},
    };
    for (const auto& c : kCases) {
        std::vector<std::string> arguments{"picture"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        const ProgramRun run = runProgram(arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err.substr(0, c.err.size()), c.err);
        EXPECT_FALSE(std::filesystem::exists(out));
    }
}

TEST(ShowSubcommand, WritesAPictureForEachLayer) {
    const std::string palette = makeFile("palette.txt", kPalette);
    const std::string pattern = makeFile("pattern.txt", "square\n\nrw\n\nk\n\n");
    const std::string out = temporaryFile("out.ppm");
    const std::string second = temporaryFile("out_1.ppm");
    EXPECT_EQ(runProgram({"show", "-s", "0.8", palette, pattern, out}), (ProgramRun{0, "", ""}));
    EXPECT_EQ(contentOf(out), "P6\n2\n1\n255\n\xFF\0\0\xFF\0\0"s);
    EXPECT_EQ(contentOf(second), "P6\n1\n1\n255\n\0\0\0"s);

    const std::string unset = makeFile("unset.txt", "square\n\n.\n\n");
    EXPECT_EQ(runProgram({"show", "-s", "1", "--background", "1", "0.5", "-1", palette, unset, out})
                  .status,
              0);
    EXPECT_EQ(contentOf(out), "P6\n2\n2\n255\n\xFF\x7F\0\xFF\x7F\0\xFF\x7F\0\xFF\x7F\0"s);
}

TEST(ShowSubcommand, SaysWhyItShowsNothing) {
    const std::string pattern = makeFile("pattern.txt", "square\n\nrw\n\nk\n\n");
    const std::string empty = makeFile("empty.txt", "square\n\n");
    const std::string out = temporaryFile("out.png");
    const struct {
        std::vector<std::string> arguments;
        int status;
        std::string err;
    } kCases[] = {
        {{"palettes/hama.txt", empty, out}, 0, ""},
        {{"palettes/hama.txt", pattern, "out"}, 1, "out is not a supported format. \n"},
        {{"palettes/hama.txt", pattern, "a.gif"}, 1, "a.gif is not a supported format. \n"},
        {{"palettes/hama.txt", pattern, "/nonexistent/a.png"},
         1,
         "Failed to open /nonexistent/a.png\n"},
        {{"palettes/hama.txt", "nowhere", out}, 1, "Failed to open nowhere\n"},
        {{"-s", "-1", "palettes/hama.txt", pattern, out},
         1,
         "VORN class VORN::UnexpectedValueException: -1 is not a bead size above 0. \n"},
        {{"-s", "1e30", "palettes/hama.txt", pattern, out},
         1,
         "VORN class VORN::AllocateException: Failed to allocate picture. \n"},
    };
    for (const auto& c : kCases) {
        std::filesystem::remove(out);
        std::vector<std::string> arguments{"show"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        EXPECT_EQ(runProgram(arguments), (ProgramRun{c.status, "", c.err}));
        EXPECT_FALSE(std::filesystem::exists(out));
    }
}

} // namespace
} // namespace VORN
