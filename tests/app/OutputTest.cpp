#include "tests/app/ChildProgram.h"

#include <filesystem>

namespace VORN {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

const std::string kPalette = "a 1 0 0\nb 0 1 0\n";
const std::string kPattern = "square\n\nab.\n...\n\n";
const std::string kPicture = "P6\n2 1\n255\nABCDEF";
const std::string kFlush = "VORN class VORN::StreamException: Failed to flush output stream. \n";

/// Root may write any file; nobody may not.
void becomeNobody() {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && setuid(kNobody) != 0)
        _exit(126);
}

TEST(Output, EndsWithOneLineWhereItCannotBeWritten) {
    const std::string palette = makeFile("palette.txt", kPalette);
    const std::string pattern = makeFile("pattern.txt", kPattern);
    const std::string panel = makeFile("panel.txt", "a.b\n");
    const std::string picture = makeFile("picture.ppm", kPicture);
    const std::string folder = temporaryFile("folder.png");
    fs::create_directory(folder);
    const std::string full = temporaryFile("full.png");
    fs::remove(full);
    fs::create_symlink("/dev/full", full);
    const auto failed = [](const std::string& name) { return "Failed to open " + name + "\n"; };
    const std::string write =
        "VORN class VORN::StreamException: Failed to write to output stream. \n";
    const auto closed = [] { close(1); };
    const auto diskFull = [] { dup2(open("/dev/full", O_WRONLY), 1); };
    const auto broken = [] {
        int ends[2];
        if (pipe(ends) != 0)
            _exit(126);
        close(ends[0]);
        dup2(ends[1], 1);
    };
    struct Case {
        std::vector<std::string> arguments;
        std::function<void()> prepare;
        std::string complaint;
    };
    const Case kCases[] = {
        {{"palette", picture, "/dev/full"}, {}, kFlush},
        {{"picture", picture, palette, "/dev/full"}, {}, kFlush},
        {{"create", "square", "900", "-o", "/dev/full"}, {}, write},
        {{"show", palette, pattern, full}, {}, kFlush},
        {{"palette", picture, folder}, {}, failed(folder)},
        {{"show", palette, pattern, folder}, {}, failed(folder)},
        {{"create", "hex", "2", "-o", folder}, {}, failed(folder)},
        {{"builtin"}, closed, kFlush},
        {{"help"}, closed, kFlush},
        {{"create", "--help"}, diskFull, kFlush},
        {{"create", "square", "3"}, closed, kFlush},
        {{"create", "square", "900"}, broken, write},
        {{"instruction", palette, pattern}, diskFull, kFlush},
        {{"instruction", palette, pattern}, broken, kFlush},
        {{"pack", "square", "3", palette, panel}, broken, kFlush},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.arguments));
        const ChildRun run = runChild(c.arguments, c.prepare);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, c.complaint);
    }
    EXPECT_TRUE(fs::is_directory(folder) && fs::is_symlink(full)) << "only files are removed";
}

TEST(Output, LeavesFilesThatCannotBeWrittenAlone) {
    const std::string picture = makeFile("picture.ppm", kPicture);
    fs::permissions(picture, fs::perms{0444});
    const std::string kept = makeFile("kept.txt", "kept");
    fs::permissions(kept, fs::perms{0444});
    // Nobody need not be let into the folders above the program.
    const std::string program = temporaryFile("kavrin");
    fs::copy_file(KAVRIN_PROGRAM, program);
    fs::permissions(program, fs::perms{0755});
    const ChildRun run = runChild({"palette", picture, kept}, becomeNobody, program);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "Failed to open " + kept + "\n");
    EXPECT_EQ(contentOf(kept), "kept");
    fs::permissions(kept, fs::perms{0644});
}

} // namespace
} // namespace VORN
