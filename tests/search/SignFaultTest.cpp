#include "k4cmndlg/search/SignFault.h"

#include "tests/support/StoreFixture.h"

namespace k4test {
namespace {

using k4cmn::FindSignFault;
using k4cmn::SignField;

using SignFaults = StoreFixture;

struct Row {
    std::uint32_t rows;
    std::uint32_t columns;
    tag_K4_SIGN_COLOR color;
    SignField field;
    const char* words;  ///< null: none
};

TEST_F(SignFaults, TheFirstBrokenRuleIsTold) {
    constexpr tag_K4_SIGN_COLOR kBad = K4_SIGN_COLOR_QUAD16;
    constexpr tag_K4_SIGN_COLOR kGood = K4_SIGN_COLOR_MONO1;
    const Row rows[] = {
        {2048, 16384, kBad, SignField::Rows, "Rows x Cols cannot be > 8388608"},
        {2047, 4099, kBad, SignField::Rows, "Rows x Cols cannot be > 8388608"},
        {9, 17, kBad, SignField::Rows, "Number of rows must be 7 or a multiple of 8.\n"},
        {7, 17, kBad, SignField::Columns, "Number of columns must be a multiple of 8.\n"},
        {7, 24, kBad, SignField::Technologies, "Color and pixel technology are invalid."},
        {7, 24, kGood, SignField::Rows, nullptr},
        {2048, 4096, kGood, SignField::Rows, nullptr},
    };
    for (const Row& row : rows) {
        const auto fault = FindSignFault(row.rows, row.columns, row.color, K4_PIXEL_TECH_LED);
        ASSERT_EQ(fault.has_value(), row.words != nullptr) << row.rows << " x " << row.columns;
        if (!fault)
            continue;
        EXPECT_EQ(fault->words, row.words);
        EXPECT_EQ(fault->field, row.field);
    }
}

TEST_F(SignFaults, WithoutAStoreNoPairIsValid) {
    EXPECT_FALSE(FindSignFault(7, 16, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_INCAND));
    k4cmn::Provided<k4cmn::FilesProvider>::Install(nullptr);
    EXPECT_TRUE(FindSignFault(7, 16, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_INCAND));
}

}  // namespace
}  // namespace k4test
