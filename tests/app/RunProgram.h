#pragma once

#include "app/Program.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace VORN {

/// What a run of the program left behind: its exit status and what it wrote to the two streams.
struct ProgramRun {
    int status;
    std::string out;
    std::string err;

    bool operator==(const ProgramRun&) const = default;
};

inline void PrintTo(const ProgramRun& run, std::ostream* out) {
    *out << "status " << run.status << "\nstandard output:\n"
         << run.out << "\nstandard error:\n"
         << run.err;
}

/// Runs the program in this process; `arguments` do not include the program's own name.
inline ProgramRun runProgram(const std::vector<std::string>& arguments) {
    std::vector<const char*> argv{"kavrin"};
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = runProgram(static_cast<int>(argv.size()), argv.data());
    std::string err = testing::internal::GetCapturedStderr();
    return {status, testing::internal::GetCapturedStdout(), std::move(err)};
}

/// The path of a file for the running test, which may not exist yet.
inline std::string temporaryFile(const std::string& name) {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    std::string testName = std::string{test.test_suite_name()} + '-' + test.name();
    std::ranges::replace(testName, '/', '-'); // in the names of tests with parameters
    return (temporaryFolder() / (testName + '-' + name)).string();
}

/// Writes a file for the running test and returns its path.
inline std::string makeFile(const std::string& name, std::string_view content) {
    const std::string path = temporaryFile(name);
    std::ofstream{path, std::ios::binary} << content;
    return path;
}

/// The bytes of a file; "" where there is none.
inline std::string contentOf(const std::string& path) {
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

} // namespace VORN
