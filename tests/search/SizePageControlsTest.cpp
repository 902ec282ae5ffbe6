#include "k4cmndlg/search/SizePageControls.h"

#include <gtest/gtest.h>

namespace {

using k4cmn::SizePageControls;

struct Row {
    int relation;
    int filter;
    int mode;
    SizePageControls usable;  ///< size, modes, dates, months, days
};

// clang-format off
constexpr Row kRows[] = {
    {0, 0, 0, {false, false, false, false, false}},
    {0, 0, 1, {false, false, false, false, false}},
    {0, 0, 2, {false, false, false, false, false}},
    {0, 1, 0, {false, true,  true,  false, false}},
    {0, 1, 1, {false, true,  false, true,  false}},
    {0, 1, 2, {false, true,  false, false, true}},
    {1, 0, 0, {true,  false, false, false, false}},
    {1, 0, 1, {true,  false, false, false, false}},
    {1, 0, 2, {true,  false, false, false, false}},
    {1, 1, 0, {true,  true,  true,  false, false}},
    {1, 1, 1, {true,  true,  false, true,  false}},
    {1, 1, 2, {true,  true,  false, false, true}},
    {2, 0, 0, {true,  false, false, false, false}},
    {2, 0, 1, {true,  false, false, false, false}},
    {2, 0, 2, {true,  false, false, false, false}},
    {2, 1, 0, {true,  true,  true,  false, false}},
    {2, 1, 1, {true,  true,  false, true,  false}},
    {2, 1, 2, {true,  true,  false, false, true}},
    {0, 1, -1, {false, true, false, false, false}},
    {0, -1, 0, {false, false, false, false, false}},
};
// clang-format on

TEST(SizePageControls, AreUsableAsTheTableSays) {
    for (const Row& row : kRows)
        EXPECT_EQ(k4cmn::UsableControls(row.relation, row.filter, row.mode), row.usable)
            << row.relation << ", " << row.filter << ", " << row.mode;
}

}  // namespace
