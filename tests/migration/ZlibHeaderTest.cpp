#include "migration/ZlibHeader.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

namespace VORN::Migration {
namespace {

TEST(ZlibHeader, NamesTheFirstFieldThatIsWrong) {
    struct Case {
        std::uint8_t cmf;
        std::uint8_t flg;
        const char* complaint;
    };
    constexpr Case kCases[] = {
        {0x78, 0x01, ""},
        {0x08, 0x1D, ""},
        {0x78, 0x00, "png : invalid zlib header"},
        {0x79, 0x18, "png : unexpected zlib header compression method"},
        {0x88, 0x1C, "png : unexpected zlib header compression info"},
        {0x89, 0x14, "png : unexpected zlib header compression method"},
        {0x78, 0x20, "png : zlib header indicates preset dictionary"},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::Message() << "CMF " << +c.cmf << ", FLG " << +c.flg);
        EXPECT_EQ(complaintOf([&] { ZlibHeader{c.cmf, c.flg}.check(); }), c.complaint);
    }
}

} // namespace
} // namespace VORN::Migration
