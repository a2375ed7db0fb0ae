#include "core/Signal.h"
#include "core/BinarySignal.h"
#include "core/BufferStream.h"
#include "core/Hyperrectangle.h"
#include "core/Serialization.h"
#include "tests/Complaint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace VORN {
namespace {

Signal<3, unsigned char> counted(const Tuple<3, unsigned>& size) {
    Signal<3, unsigned char> signal{size};
    std::iota(signal.samples().begin(), signal.samples().end(), static_cast<unsigned char>(0));
    return signal;
}

TEST(Signal, PermutesAnyWay) {
    const Signal<3, unsigned char> original = counted({2U, 3U, 4U});
    std::array order{0U, 1U, 2U};
    do {
        SCOPED_TRACE(testing::Message() << order[0] << order[1] << order[2]);
        Signal<3, unsigned char> signal{original};
        signal.Permute({order[0], order[1], order[2]});
        for (std::size_t k = 0; k < 3; ++k)
            ASSERT_EQ(signal.size()[k], original.size()[order[k]]);
        Tuple<3, unsigned> old;
        for (old[2] = 0; old[2] < 4; ++old[2])
            for (old[1] = 0; old[1] < 3; ++old[1])
                for (old[0] = 0; old[0] < 2; ++old[0])
                    ASSERT_EQ((signal[{old[order[0]], old[order[1]], old[order[2]]}]),
                              original[old]);
    } while (std::ranges::next_permutation(order).found);
    Signal<3, unsigned char> signal{original};
    const Tuple<3, unsigned> incomplete{0U, 0U, 1U};
    EXPECT_EQ(complaintOf([&] { signal.Permute(incomplete); }),
              "order tuple is not a tuple with all dimensions represented. ");
    EXPECT_EQ(complaintOf([&] { signal.SwapDimensions(3, 0); }), "Value (3) out of bound (2). ");
    EXPECT_EQ(complaintOf([&] { signal.SwapDimensions(5, 4); }), "Value (4) out of bound (2). ");
    EXPECT_EQ(complaintOf([&] { signal.SwapDimensions(7, 7); }), "");
    EXPECT_TRUE(std::ranges::equal(signal.samples(), original.samples()));
}

TEST(Signal, KeepsItsSizeHonest) {
    const Tuple<3, unsigned> huge{~0U, ~0U, 2U};
    EXPECT_EQ(complaintOf([&] { sampleCount(huge); }), "Failed to allocate signal. ");
    Signal<3, unsigned char> owner = counted({1U, 2U, 3U});
    SignalBorrow<3, unsigned char> view{owner.size(), owner.samples().data()};
    EXPECT_EQ(complaintOf([&] { view.Resize({1U, 2U, 4U}); }), "Missmatching signal size. ");
    Signal<3, unsigned char> moved{std::move(owner)};
    EXPECT_EQ(moved.count(), 6U);
    EXPECT_EQ((moved[{0U, 1U, 2U}]), 5);
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
    const Tuple<2, unsigned> single{1U, 1U};
    EXPECT_EQ(complaintOf([&] { signal.Resize(single); }), "No support for binary signal resize. ");
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
    IncrementalBuffer bytes;
    BufferStream stream{bytes};
    Serializer out{stream};
    Tuple<2, unsigned>{1U, 0x01020304U}.serialize(out);
    out.put(std::map<std::string, std::string>{{"k", "vw"}});
    const std::vector<std::uint8_t> kWritten{1, 0, 0, 0, 4,   3, 2, 1, 1, 0,   0,  0,
                                             1, 0, 0, 0, 'k', 2, 0, 0, 0, 'v', 'w'};
    EXPECT_TRUE(std::ranges::equal(bytes.data(), kWritten));
}

/// Reads each value back from where it was written; returns the bytes they take.
template <class... Values>
std::size_t carry(Values... values) {
    IncrementalBuffer bytes;
    BufferStream stream{bytes};
    Serializer out{stream};
    (out.put(values), ...);
    ConstBufferStream source{bytes};
    Deserializer in{source};
    EXPECT_TRUE(((in.get<Values>() == values) && ...));
    EXPECT_TRUE(source.atEnd());
    return bytes.size();
}

TEST(Serialization, CarriesEveryKindOfNumber) {
    EXPECT_EQ(carry(true, 'c', static_cast<signed char>(-3), static_cast<unsigned char>(200)), 4U);
    EXPECT_EQ(carry(short{-30000}, static_cast<unsigned short>(60000)), 4U);
    EXPECT_EQ(carry(-2000000000, 4000000000U), 8U);
    EXPECT_EQ(carry(-5L, 7UL, -5LL, 0xFFFFFFFFFFFFFFFFULL), 2 * sizeof(long) + 16);
    EXPECT_EQ(carry(0.1F, -1e300, 1e-300L), 12 + sizeof(long double));
    unsigned turned = 0x01020304;
    SwapEndianess{}.process(turned);
    EXPECT_EQ(turned, 0x04030201U);
}

} // namespace
} // namespace VORN
