#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace VORN {

/// A folder of this process for the files of its tests; it goes when the process ends.
///
/// Whoever runs the tests, other users may enter it: a test gives up its rights.
inline const std::filesystem::path& temporaryFolder() {
    namespace fs = std::filesystem;
    struct Folder {
        Folder() {
            std::random_device random;
            do
                path = fs::temp_directory_path() / ("kavrin-tests-" + std::to_string(random()));
            while (!fs::create_directory(path));
            fs::permissions(path, fs::perms{0755});
        }
        Folder(const Folder&) = delete;
        Folder& operator=(const Folder&) = delete;
        ~Folder() {
            std::error_code ignored;
            fs::remove_all(path, ignored);
        }

        fs::path path;
    };
    static const Folder folder;
    return folder.path;
}

} // namespace VORN
