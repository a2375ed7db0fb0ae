#include "migration/CodecSelection.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace VORN::Migration {
namespace {

class Truncation : public testing::TestWithParam<std::string> {
protected:
    std::string complaintAbout(std::span<const std::uint8_t> file) const {
        const auto importer = importerByExtension(GetParam());
        return complaintOf([&] { imported(*importer, file); });
    }
};

TEST_P(Truncation, IsRefused) {
    const Bytes file = fixture(GetParam());
    const std::string whole = complaintAbout(file);
    for (std::size_t size = 0; size < file.size(); ++size) {
        const std::string complaint = complaintAbout(std::span{file}.first(size));
        const bool isEnd = complaint == "Attempted to read over end of buffer. " ||
                           complaint == "png : unexpected end of file" ||
                           complaint == "jpeg : Unexpected end of stream, no end of image segment "
                                        "detected. ";
        ASSERT_TRUE(isEnd || (!whole.empty() && complaint == whole)) << size << ": " << complaint;
    }
}

std::vector<std::string> pictureFixtures() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator{KAVRIN_TEST_DATA}) {
        const std::string name = relative(entry.path(), KAVRIN_TEST_DATA).string();
        if (importerByExtension(name) != nullptr)
            names.push_back(name);
    }
    return names;
}

INSTANTIATE_TEST_SUITE_P(Pictures, Truncation, testing::ValuesIn(pictureFixtures()));

} // namespace
} // namespace VORN::Migration
