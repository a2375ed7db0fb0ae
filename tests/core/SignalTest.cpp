#include "core/Signal.h"
#include "core/BinarySignal.h"
#include "core/CheckedSize.h"
#include "core/Hyperrectangle.h"
#include "core/Serialization.h"
#include "tests/Bytes.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <numeric>

namespace VORN {
namespace {

TEST(Signal, SwapsAndPermutesDimensions) {
    const Tuple<3, unsigned> size{2U, 3U, 4U};
    Signal<3, unsigned char> original{size};
    std::iota(original.samples().begin(), original.samples().end(), std::uint8_t{0});
    Signal<3, unsigned char> signal{original};
    signal.Permute({2U, 0U, 1U});
    EXPECT_EQ(signal.size(), (Tuple<3, unsigned>{4U, 2U, 3U}));
    for (unsigned i = 0; i < 24; ++i)
        EXPECT_EQ((signal[{i / 6, i % 2, i / 2 % 3}]), i);
    const Tuple<3, unsigned> incomplete{0U, 0U, 1U};
    EXPECT_EQ(complaintOf([&] { signal.Permute(incomplete); }),
              "order tuple is not a tuple with all dimensions represented. ");
    EXPECT_EQ(complaintOf([&] { signal.SwapDimensions(5, 4); }), "Value (4) out of bound (2). ");
    EXPECT_EQ(complaintOf([&] { signal.SwapDimensions(7, 7); }), "");
}

TEST(BinarySignal, PacksRowsIntoWords) {
    BinarySignal<2, unsigned> signal{{33U, 2U}};
    signal.set(32, 0);
    signal.set(1, 1);
    ASSERT_EQ(signal.words().size(), 4U);
    EXPECT_EQ(signal.words()[1], 1U);
    EXPECT_EQ(signal.words()[2], 2U);
    EXPECT_TRUE(signal.get(32, 0));
    EXPECT_FALSE(signal.get(31, 0));
}

TEST(CheckedSize, RemembersWhatWasTooLarge) {
    constexpr std::uint64_t kMost = ~std::uint64_t{0};
    constexpr CheckedSize kHalf{std::uint64_t{1} << 63};
    EXPECT_EQ((kHalf + (kMost >> 1)).sizeOf("size"), kMost);
    for (const CheckedSize size : {kHalf * 2 * 0, CheckedSize{0} * (kHalf + kHalf), kHalf * 2 + 1,
                                   CheckedSize{1} + kHalf * 2, kHalf + kHalf + 0}) {
        EXPECT_EQ(size.saturated(), kMost);
        EXPECT_EQ(complaintOf([&] { size.sizeOf("size"); }), "Failed to allocate size. ");
    }
}

TEST(Hyperrectangle, ExcludesItsUpperEdge) {
    const Hyperrectangle<2, float> box{{1, 2}, {3, 4}};
    EXPECT_TRUE(box.contains(Point<2, float>{1, 2}));
    EXPECT_TRUE(box.contains(Point<2, float>{3.99F, 5.99F}));
    EXPECT_FALSE(box.contains(Point<2, float>{4, 3}));
    EXPECT_FALSE(box.contains(Point<2, float>{0.99F, 3}));
    EXPECT_TRUE((box.centre() == Point<2, float>{2.5F, 4}));
}

TEST(Serialization, WritesLittleEndianWithLengths) {
    const Bytes bytes = written([](WriteStream& stream) {
        Serializer out{stream};
        Tuple<2, unsigned>{1U, 0x01020304U}.serialize(out);
        out.put(std::map<std::string, std::string>{{"k", "vw"}});
    });
    EXPECT_EQ(bytes,
              (Bytes{1, 0, 0, 0, 4, 3, 2, 1, 1, 0, 0, 0, 1, 0, 0, 0, 'k', 2, 0, 0, 0, 'v', 'w'}));
}

} // namespace
} // namespace VORN
