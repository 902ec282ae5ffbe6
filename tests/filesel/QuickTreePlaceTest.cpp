#include "k4cmndlg/filesel/QuickTreePlace.h"

#include "tests/support/StoreFixture.h"

namespace {

using k4cmn::QuickTreePlace;
using k4cmn::ScreenPlace;

class QuickTree : public k4test::StoreFixture {
 protected:
    void Store(std::uint32_t height) {
        const auto key = registry.OpenUserKey("Tree", "", 1);
        ASSERT_TRUE(key);
        ASSERT_EQ(key->SetDword("Quick_Tree_Size", height), 1);
    }
    const QuickTreePlace place{"Tree"};
};

TEST_F(QuickTree, KeepsItsHeight) {
    place.Keep(321);
    EXPECT_EQ(place.InitialHeight(0, 50, 1000), 321);
    EXPECT_EQ(place.MovedHeight(0, 1000), 321);
    const QuickTreePlace without(nullptr);
    without.Keep(400);
    EXPECT_EQ(without.InitialHeight(0, 50, 1000), 50);
    EXPECT_EQ(without.MovedHeight(0, 700), 100);
    EXPECT_EQ(place.InitialHeight(0, 50, 1000), 321);
}

TEST_F(QuickTree, WithoutAKeptHeightTheDefaultsDiffer) {
    EXPECT_EQ(place.InitialHeight(0, 250, 1000), 250) << "the window's own";
    EXPECT_EQ(place.MovedHeight(0, 1000), 142) << "a seventh of the screen";
}

struct HeightCase {
    std::uint32_t stored;
    int top;
    int initial;
    int moved;
};

class QuickTreeHeight : public QuickTree, public testing::WithParamInterface<HeightCase> {};

TEST_P(QuickTreeHeight, IsCappedAndMended) {
    Store(GetParam().stored);
    EXPECT_EQ(place.InitialHeight(GetParam().top, 50, 1000), GetParam().initial);
    EXPECT_EQ(place.MovedHeight(GetParam().top, 1000), GetParam().moved);
}

INSTANTIATE_TEST_SUITE_P(Heights, QuickTreeHeight,
                         testing::Values(HeightCase{300, 0, 300, 300},
                                         HeightCase{300, 800, 200, 200}, HeightCase{9, 0, 100, 9},
                                         HeightCase{10, 0, 10, 10}, HeightCase{0, 0, 100, 100},
                                         HeightCase{300, 1000, 100, 100},
                                         HeightCase{300, 1005, 100, -5},
                                         HeightCase{0xFFFFFFFF, 0, 1000, 1000}));

TEST_F(QuickTree, BeginsOnTheScreen) {
    EXPECT_EQ(QuickTreePlace::OnScreen({10, 20, 30, 40}, 800, 600), (ScreenPlace{10, 20, 30, 40}));
    EXPECT_EQ(QuickTreePlace::OnScreen({-1, -1, 30, 40}, 800, 600), (ScreenPlace{0, 0, 30, 40}));
    EXPECT_EQ(QuickTreePlace::OnScreen({801, 601, 30, 40}, 800, 600), (ScreenPlace{0, 0, 30, 40}));
    EXPECT_EQ(QuickTreePlace::OnScreen({800, 600, 30, 40}, 800, 600),
              (ScreenPlace{800, 600, 30, 40}));
}

TEST_F(QuickTree, BottomDragsKeepItAboveItsLeastSize) {
    EXPECT_TRUE(QuickTreePlace::AcceptsBottomDrag({0, 0, 201, 143}, 1000, 1000));
    EXPECT_FALSE(QuickTreePlace::AcceptsBottomDrag({0, 0, 200, 143}, 1000, 1000));
    EXPECT_FALSE(QuickTreePlace::AcceptsBottomDrag({0, 0, 201, 142}, 1000, 1000));
}

}  // namespace
