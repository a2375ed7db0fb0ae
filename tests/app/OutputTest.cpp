#include "tests/app/ChildProgram.h"

#include <filesystem>

namespace VORN {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

const std::string kPalette = "a 1 0 0\nb 0 1 0\n";
const std::string kPattern = "square\n\nab.\n...\n\n";
const std::string kFlush = "VORN class VORN::StreamException: Failed to flush output stream. \n";

/// Root may write any file; nobody may not.
void becomeNobody() {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && setuid(kNobody) != 0)
        _exit(126);
}

/// Runs a copy of the program: nobody need not be let into the folders above the program itself.
ChildRun runByNobody(const std::vector<std::string>& arguments) {
    const std::string program = temporaryFile("kavrin");
    fs::copy_file(KAVRIN_PROGRAM, program, fs::copy_options::overwrite_existing);
    fs::permissions(program, fs::perms{0755});
    return runChild(arguments, becomeNobody, program);
}

TEST(Output, EndsWithOneLineWhereItCannotBeWritten) {
    const std::string palette = makeFile("palette.txt", kPalette);
    const std::string pattern = makeFile("pattern.txt", kPattern);
    const std::string panel = makeFile("panel.txt", "a.b\n");
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
        {{"create", "square", "900", "-o", "/dev/full"}, {}, write},
        {{"show", palette, pattern, full}, {}, kFlush},
        {{"show", palette, pattern, folder}, {}, failed(folder)},
        {{"builtin"}, closed, kFlush},
        {{"create", "--help"}, diskFull, kFlush},
        {{"create", "square", "3"}, closed, kFlush},
        {{"create", "square", "900"}, broken, write},
        {{"instruction", palette, pattern}, diskFull, kFlush},
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
    const std::string picture = makeFile("picture.ppm", "P6\n2 1\n255\nABCDEF");
    fs::permissions(picture, fs::perms{0444});
    const std::string kept = makeFile("kept.txt", "kept");
    fs::permissions(kept, fs::perms{0444});
    const ChildRun run = runByNobody({"palette", picture, kept});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "Failed to open " + kept + "\n"); // also where its folder may be written
    EXPECT_EQ(contentOf(kept), "kept");
    fs::permissions(kept, fs::perms{0644});
}

/// A folder of the running test, empty at first; removed when it goes.
class Folder {
public:
    Folder() {
        fs::remove_all(path_);
        fs::create_directory(path_);
        fs::permissions(path_, fs::perms{0777});
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { fs::remove_all(path_); }

    fs::path operator/(const std::string& name) const { return path_ / name; }
    /// The names in it, each with its content: "a=text b=other".
    std::string listing() const {
        std::vector<std::string> files;
        for (const auto& entry : fs::directory_iterator{path_})
            files.push_back(entry.path().filename().string() + '=' + contentOf(entry.path()));
        std::ranges::sort(files);
        std::string all;
        for (const std::string& file : files)
            all += (all.empty() ? "" : " ") + file;
        return all;
    }

private:
    fs::path path_ = temporaryFile("folder");
};

// The file is a.txt; link leads to it, chain to that, twin is a further name of it, dangling leads
// to new.txt.
TEST(Output, ReplacesFilesOnlyByWholeOnes) {
    const std::string whole = "square\n\n.\n\n";
    const std::string failed =
        "VORN class VORN::StreamException: Failed to write to output stream. \n";
    struct Case {
        const char* output;
        std::vector<std::string> names;
        std::string written; // the folder after a run that could write
        std::string kept;    // the folder after a run that could not write to the end
    };
    const Case kCases[] = {
        {"a.txt", {}, "a.txt=" + whole, "a.txt=old"},
        {"link", {"link"}, "a.txt=" + whole + " link=" + whole, "a.txt=old link=old"},
        {"chain",
         {"link", "chain"},
         "a.txt=" + whole + " chain=" + whole + " link=" + whole,
         "a.txt=old chain=old link=old"},
        {"a.txt", {"twin"}, "a.txt=" + whole + " twin=" + whole, "a.txt= twin="},
        {"b.txt", {}, "a.txt=old b.txt=" + whole, "a.txt=old"},
        {"dangling",
         {"dangling"},
         "a.txt=old dangling=" + whole + " new.txt=" + whole,
         "a.txt=old dangling="},
        {"a.txt",
         {"a.txt.kavrin-unfinished"},
         "a.txt.kavrin-unfinished=left a.txt=" + whole,
         "a.txt.kavrin-unfinished=left a.txt=old"},
    };
    for (const Case& c : kCases) {
        for (const bool isWritable : {true, false}) {
            SCOPED_TRACE(testing::Message() << c.output << ' ' << c.kept << ' ' << isWritable);
            const Folder folder;
            std::ofstream{folder / "a.txt"} << "old";
            fs::permissions(folder / "a.txt", fs::perms{01640});
            for (const std::string& name : c.names) {
                if (name == "link")
                    fs::create_symlink("a.txt", folder / name);
                else if (name == "chain")
                    fs::create_symlink("link", folder / name);
                else if (name == "dangling")
                    fs::create_symlink("new.txt", folder / name);
                else if (name == "twin")
                    fs::create_hard_link(folder / "a.txt", folder / name);
                else
                    std::ofstream{folder / name} << "left";
            }
            const ChildRun run = runChild(
                {"create", "square", isWritable ? "1" : "900", "-o", folder / c.output}, [] {
                    const rlimit fileBytes{400000, 400000};
                    setrlimit(RLIMIT_FSIZE, &fileBytes);
                });
            EXPECT_EQ(run.err, isWritable ? "" : failed);
            EXPECT_EQ(run.status, isWritable ? 0 : 1);
            EXPECT_EQ(folder.listing(), isWritable ? c.written : c.kept);
            EXPECT_EQ(fs::status(folder / "a.txt").permissions(), fs::perms{01640});
        }
    }
}

TEST(Output, WritesInPlaceWhereNothingCanBeMadeBeside) {
    const Folder folder;
    const std::string longName(250, 'n');
    for (const std::string& name : {"a.txt"s, longName}) {
        std::ofstream{folder / name} << "old";
        fs::permissions(folder / name, fs::perms{0666});
    }
    EXPECT_EQ(runChild({"create", "square", "1", "-o", folder / longName}).err, "");
    EXPECT_EQ(contentOf(folder / longName), "square\n\n.\n\n");
    fs::permissions(folder / "", fs::perms{0555});
    EXPECT_EQ(runByNobody({"create", "square", "1", "-o", folder / "a.txt"}).err, "");
    fs::permissions(folder / "", fs::perms{0777});
    EXPECT_EQ(contentOf(folder / "a.txt"), "square\n\n.\n\n");
    // Only its owner could make another file of it.
    EXPECT_EQ(runByNobody({"create", "square", "2", "-o", folder / "a.txt"}).err, "");
    EXPECT_EQ(contentOf(folder / "a.txt"), "square\n\n..\n..\n\n");
}

} // namespace
} // namespace VORN
