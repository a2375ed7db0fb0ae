#include "core/Crc32.h"
#include "core/Serialization.h"
#include "migration/CodecSelection.h"
#include "tests/Complaint.h"
#include "tests/migration/Fixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace VORN::Migration {
namespace {

/// Gives every chunk of a PNG file the checksum that fits it, so that its data is looked at.
Bytes withChecksums(Bytes file) {
    for (std::size_t at = 8; at + 12 <= file.size();) {
        const std::span<std::uint8_t> rest = std::span{file}.subspan(at);
        const std::uint64_t length = fromBigEndian(rest.first<4>());
        if (length + 12 > rest.size())
            break;
        Crc32 checksum;
        checksum.update(rest.subspan(4, length + 4));
        std::ranges::copy(toBigEndian(checksum.value()), rest.subspan(length + 8).begin());
        at += length + 12;
    }
    return file;
}

/// Changes up to four bits; every other one in the first third, where the headers are.
Bytes withChangedBits(Bytes file, std::mt19937& random) {
    for (unsigned flips = 1 + random() % 4; flips > 0; --flips) {
        const std::size_t reach = random() % 2 == 0 ? file.size() : file.size() / 3;
        file[random() % reach] ^= static_cast<std::uint8_t>(1U << random() % 8);
    }
    return file;
}

class Damage : public testing::TestWithParam<std::string> {
protected:
    std::string complaintAbout(std::span<const std::uint8_t> file) const {
        const auto importer = importerByExtension(GetParam());
        return complaintOf([&] { imported(*importer, file); });
    }
    bool isOf(const char* extension) const { return GetParam().ends_with(extension); }
};

TEST_P(Damage, TruncationIsRefused) {
    const Bytes file = fixture(GetParam());
    const std::string whole = complaintAbout(file);
    for (std::size_t size = 0; size < file.size(); ++size) {
        const std::string complaint = complaintAbout(std::span{file}.first(size));
        const bool isEnd =
            isOf("jpg") ? complaint == "jpeg : Unexpected end of stream, no end of image segment "
                                       "detected. "
                        : complaint == "Attempted to read over end of buffer. " ||
                              (isOf("png") && complaint == "png : unexpected end of file");
        ASSERT_TRUE(isEnd || (!whole.empty() && complaint == whole)) << size << ": " << complaint;
    }
}

TEST_P(Damage, ChangedBitsAreSurvived) {
    std::mt19937 random{4};
    const Bytes file = fixture(GetParam());
    for (unsigned round = 0; round < 150; ++round) {
        const Bytes changed = withChangedBits(file, random);
        const std::string complaint =
            complaintAbout(isOf("png") ? withChecksums(changed) : changed);
        EXPECT_TRUE(!isOf("jpg") || complaint.empty() || complaint.starts_with("jpeg : ") ||
                    complaint.starts_with("No support for "))
            << complaint;
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

INSTANTIATE_TEST_SUITE_P(Pictures, Damage, testing::ValuesIn(pictureFixtures()));

} // namespace
} // namespace VORN::Migration
