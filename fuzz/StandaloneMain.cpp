#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

using Paths = std::vector<std::filesystem::path>;

void collect(const std::filesystem::path& path, Paths& files) {
    if (!std::filesystem::is_directory(path)) {
        files.push_back(path);
        return;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator{path})
        if (entry.is_regular_file())
            files.push_back(entry.path());
}

} // namespace

/// Runs a fuzz target on files and on all files of folders, where there is no libFuzzer.
int main(int argc, char** argv) {
    Paths files;
    for (int i = 1; i < argc; ++i)
        collect(argv[i], files);
    std::ranges::sort(files);
    for (const std::filesystem::path& path : files) {
        std::cerr << path.string() << '\n'; // whatever happens, it is known where
        std::ifstream in{path, std::ios::binary};
        const VORN::Bytes bytes(std::istreambuf_iterator<char>{in}, {});
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::cout << files.size() << " inputs without a finding\n";
    return files.empty() ? 1 : 0;
}
