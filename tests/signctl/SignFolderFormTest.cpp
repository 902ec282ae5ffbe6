#include "k4cmndlg/signctl/SignFolderForm.h"

#include <climits>

#include "tests/support/ScriptedPrompt.h"
#include "tests/support/StoreFixture.h"

namespace {

using k4cmn::SignFolderForm;

tag_K4_SIGN_COLOR Color(int value) {
    return static_cast<tag_K4_SIGN_COLOR>(value);
}
tag_K4_PIXEL_TECH Pixel(int value) {
    return static_cast<tag_K4_PIXEL_TECH>(value);
}

class SignFolder : public k4test::StoreFixture {
 protected:
    SignFolderForm form;
    k4test::ScriptedPrompt prompt;
};

// To begin with --------------------------------------------------------------------------------

TEST_F(SignFolder, BeginsWithTheSmallestUsualSign) {
    form.InitializeOnce();
    EXPECT_EQ(form.FolderText(), "Folder: 8x16.Mono1.Incand.Sign");
    EXPECT_FALSE(form.IsFixed());
    EXPECT_TRUE(form.AreSizesEnabled());
    EXPECT_TRUE(form.AreTechnologiesEnabled());
}

TEST_F(SignFolder, KeepsWhatItWasInitializedWith) {
    EXPECT_EQ(form.Initialize(64, 192, K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_LED, 0), 1);
    form.InitializeOnce();
    EXPECT_EQ(form.FolderText(), "Folder: 64x192.RGB16M.LED.Sign");
    EXPECT_EQ(form.colorIndex, 11);
    EXPECT_EQ(form.pixelIndex, 2);
}

TEST_F(SignFolder, IsFixedOnlyForTechnologiesInRange) {
    for (int color = -1; color <= 16; ++color) {
        for (int pixel = 0; pixel <= 4; ++pixel) {
            const bool isInRange = color >= 0 && color <= 15 && pixel >= 1 && pixel <= 3;
            form.Initialize(8, 16, Color(color), Pixel(pixel), 1);
            EXPECT_EQ(form.IsFixed(), isInRange) << color << ", " << pixel;
            EXPECT_EQ(form.AreTechnologiesEnabled(), !isInRange);
            form.Initialize(8, 16, Color(color), Pixel(pixel), 0);
            EXPECT_FALSE(form.IsFixed());
        }
    }
}

TEST_F(SignFolder, PaletteGreysTheSizesAndChangesTheFolder) {
    form.InitializeOnce();
    form.TogglePalette();
    EXPECT_EQ(form.FolderText(), "Folder: 8x16.Mono1.Incand.Palette.Sign");
    EXPECT_FALSE(form.AreSizesEnabled());
    EXPECT_TRUE(form.AreTechnologiesEnabled());
    form.TogglePalette();
    EXPECT_TRUE(form.AreSizesEnabled());
    form.Initialize(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 1);
    EXPECT_FALSE(form.AreSizesEnabled());
    form.TogglePalette();
    EXPECT_EQ(form.FolderText(), "Folder: 16x80.Mono1.LED.Palette.Sign")
        << "also where the sign type is fixed";
    form.TogglePalette();
    EXPECT_FALSE(form.AreSizesEnabled());
}

TEST_F(SignFolder, IndexesOutOfRangeAreTheFirst) {
    for (const int index : {-1, 16, INT_MAX, INT_MIN}) {
        form.colorIndex = index;
        form.pixelIndex = index;
        EXPECT_EQ(form.FolderText(), "Folder: 8x16.Mono1.Incand.Sign") << index;
    }
    form.colorIndex = 15;
    form.pixelIndex = 3;
    EXPECT_EQ(form.FolderText(), "Folder: 8x16.Color15.Incand.Sign");
    form.Initialize(8, 16, Color(INT_MIN), Pixel(INT_MIN), 1);
    EXPECT_EQ(form.FolderText(), "Folder: 8x16.Mono1.Incand.Sign");
}

// Technologies ---------------------------------------------------------------------------------

struct ColorCase {
    int color;
    int fromIncandescent;
    int fromReflective;
    int fromLed;
};

class SignFolderColor : public SignFolder, public testing::WithParamInterface<ColorCase> {};

TEST_P(SignFolderColor, MovesThePixelWithoutAMessage) {
    const int expected[] = {GetParam().fromIncandescent, GetParam().fromReflective,
                            GetParam().fromLed};
    for (int pixel = 0; pixel < 3; ++pixel) {
        form.colorIndex = GetParam().color;
        form.pixelIndex = pixel;
        form.ColorChanged();
        EXPECT_EQ(form.pixelIndex, expected[pixel]);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Colors, SignFolderColor,
    testing::Values(ColorCase{0, 0, 1, 2}, ColorCase{1, 0, 0, 0}, ColorCase{2, 2, 2, 2},
                    ColorCase{3, 0, 0, 0}, ColorCase{4, 0, 0, 2}, ColorCase{5, 0, 0, 0},
                    ColorCase{6, 0, 0, 2}, ColorCase{7, 2, 2, 2}, ColorCase{8, 0, 0, 0},
                    ColorCase{9, 2, 2, 2}, ColorCase{10, 2, 2, 2}, ColorCase{11, 2, 2, 2},
                    ColorCase{12, 0, 0, 2}, ColorCase{13, 2, 2, 2}, ColorCase{14, 2, 2, 2},
                    ColorCase{15, 0, 1, 2}, ColorCase{-1, 0, 1, 2}));

TEST_F(SignFolder, APixelThatDoesntFitGoesBackToTheLastValid) {
    form.Initialize(8, 16, K4_SIGN_COLOR_MONO16, K4_PIXEL_TECH_INCAND, 0);
    form.pixelIndex = 2;
    form.PixelChanged(prompt);
    EXPECT_EQ(form.pixelIndex, 2);
    prompt.Expect("Reflective pixel technology is not valid for Mono16 color technology.");
    form.pixelIndex = 1;
    form.PixelChanged(prompt);
    EXPECT_EQ(form.pixelIndex, 2);
}

TEST_F(SignFolder, AColorMakesItsPixelTheLastValid) {
    form.InitializeOnce();
    form.colorIndex = K4_SIGN_COLOR_QUAD16;
    form.pixelIndex = 2;
    form.ColorChanged();
    prompt.Expect("Reflective pixel technology is not valid for Quad16 color technology.");
    form.pixelIndex = 1;
    form.PixelChanged(prompt);
    EXPECT_EQ(form.pixelIndex, 0);
}

TEST_F(SignFolder, ForThePixelAColorOutOfRangeCountsAsTheFirst) {
    form.colorIndex = 16;
    form.pixelIndex = 1;
    form.PixelChanged(prompt);
    EXPECT_EQ(form.pixelIndex, 1) << "Monochrome goes with all three";
    form.colorIndex = K4_SIGN_COLOR_RGB64;
    form.pixelIndex = -1;
    prompt.Expect("Incandescent pixel technology is not valid for RGB64 color technology.");
    form.PixelChanged(prompt);
    EXPECT_EQ(form.pixelIndex, 1);
    form.colorIndex = 15;
    prompt.Expect("Reflective pixel technology is not valid for  color technology.");
    form.PixelChanged(prompt);
}

// Fields ---------------------------------------------------------------------------------------

TEST(SignFolderRows, AreRoundedWhenTheFieldIsLeft) {
    const std::pair<std::uint32_t, std::uint32_t> rows[] = {
        {7, 7}, {8, 8},       {20, 24},   {19, 16},     {3, 0},       {4, 8},
        {0, 0}, {11, 8},      {12, 16},   {2047, 2048}, {2048, 2048}, {2049, 2048},
        {6, 8}, {2056, 2048}, {100, 104}, {99, 96},     {~0u, 2048},  {~0u - 3, 2048}};
    for (const auto& [typed, becomes] : rows)
        EXPECT_EQ(SignFolderForm::RowsWhenLeft(typed), becomes) << typed;
}

TEST(SignFolderColumns, AreRoundedWhenTheFieldIsLeft) {
    const std::pair<std::uint32_t, std::uint32_t> columns[] = {
        {16, 16}, {7, 0},         {8, 16},        {23, 16},     {24, 32},
        {0, 0},   {16384, 16384}, {16400, 16384}, {~0u, 16384}, {16383, 16384}};
    for (const auto& [typed, becomes] : columns)
        EXPECT_EQ(SignFolderForm::ColumnsWhenLeft(typed), becomes) << typed;
}

struct SizeCase {
    std::uint32_t rows;
    std::uint32_t columns;
    const char* problem;  ///< null: none
};

class SignFolderSize : public testing::TestWithParam<SizeCase> {};

TEST_P(SignFolderSize, IsCheckedInOrder) {
    SignFolderForm form;
    form.rows = GetParam().rows;
    form.columns = GetParam().columns;
    const auto problem = form.SizeProblem();
    EXPECT_EQ(problem.has_value(), GetParam().problem != nullptr);
    EXPECT_EQ(problem.value_or(""), GetParam().problem ? GetParam().problem : "");
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, SignFolderSize,
    testing::Values(SizeCase{7, 16, nullptr}, SizeCase{512, 16384, nullptr},
                    SizeCase{2048, 16384, "Rows x Cols cannot be > 8388608"},
                    SizeCase{2047, 16383, "Rows x Cols cannot be > 8388608"},
                    SizeCase{9, 17, "Number of rows must be 7 or a multiple of 8.\n"},
                    SizeCase{8, 24, "Number of columns must be a multiple of 16.\n"},
                    SizeCase{7, 8, "Number of columns must be a multiple of 16.\n"}));

}  // namespace
