#include <gtest/gtest.h>

#include <algorithm>

#include "tests/suite/signservice/EngineRig.h"

namespace {

using k4test::DibPicture;
using k4test::DibPixel;
using k4test::EngineRig;

/// A rig whose signs stand still.
class EnginePicture : public testing::Test {
 protected:
    EnginePicture() {
        for (const char* sign : {"Main", "Small", "Strip", "Quad", "Disc", "Packed"})
            rig.rpc->k4ssStopSequence(sign);
    }
    void Open(std::uint32_t window, std::int32_t row, std::int32_t column,
              const char* sign = "Main") {
        ASSERT_EQ(rig.rpc->k4ssWindowMove(sign, window, row, column), 0);
        ASSERT_EQ(rig.rpc->k4ssWindowEnable(sign, window, 1), 0);
    }

    EngineRig rig;
};

TEST_F(EnginePicture, ItHasOnePixelALampAndTheFirstRowOnTop) {
    const DibPicture picture = rig.Picture("Disc");
    EXPECT_EQ(picture.width, 17);
    EXPECT_EQ(picture.height, -7);
    EXPECT_EQ(picture.pixels.size(), 7U * 17U);
}

TEST_F(EnginePicture, ABufferTooSmallFailsAndTellsWhatItTakes) {
    constexpr std::uint32_t takes = 40 + 32 * 64 * 4;
    std::vector<char> bytes(takes);
    std::uint32_t length = 0;
    EXPECT_NE(rig.rpc->k4ssGetDIB("Main", bytes.data(), takes - 1, &length), 0);
    EXPECT_EQ(length, takes);
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\0'), takes) << "untouched";
    EXPECT_EQ(rig.rpc->k4ssGetDIB("Main", bytes.data(), takes, nullptr), 0);
}

TEST_F(EnginePicture, ASignShowsOnlyWhatItsTechnologyCan) {
    struct Row {
        const char* sign;
        bool hasBlue;
        std::size_t colors;  ///< at most
    };
    constexpr Row rows[] = {
        {"Small", true, 16}, {"Strip", false, 4},     {"Quad", true, 256},
        {"Disc", true, 2},   {"Packed", true, 32768},
    };
    for (const Row& row : rows) {
        std::vector<DibPixel> colors;
        for (std::uint32_t frame = 1; frame <= 40; ++frame) {
            ASSERT_EQ(rig.rpc->k4ssSelectFrame(row.sign, frame), 0);
            for (const DibPixel& pixel : rig.Picture(row.sign).pixels)
                if (std::find(colors.begin(), colors.end(), pixel) == colors.end())
                    colors.push_back(pixel);
        }
        EXPECT_GE(colors.size(), 2U) << row.sign << " isn't uniform";
        EXPECT_LE(colors.size(), row.colors) << row.sign;
        for (const DibPixel& color : colors)
            if (!row.hasBlue) {
                EXPECT_EQ(color.blue, 0) << row.sign;
            }
    }
}

TEST_F(EnginePicture, AManualLevelLowersTheLightInProportion) {
    const DibPicture bright = rig.Picture();
    // 119 of 255 leaves half of the light: the darkest level still shows 16 parts.
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 119), 0);
    const DibPicture half = rig.Picture();
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Main", K4_SIGN_DIM_MANUAL, 0), 0);
    const DibPicture dark = rig.Picture();
    int lit = 0;
    for (std::size_t lamp = 0; lamp < bright.pixels.size(); ++lamp) {
        const int before = bright.pixels[lamp].red;
        EXPECT_NEAR(half.pixels[lamp].red, before / 2.0, 1.5);
        EXPECT_NEAR(dark.pixels[lamp].red, before * 16 / 255.0, 1);
        if (before > 0) {
            EXPECT_GT(dark.pixels[lamp].red, 0) << "what is lit stays lit";
            ++lit;
        }
    }
    EXPECT_GT(lit, 100);
}

TEST_F(EnginePicture, DiscsArentDimmed) {
    const DibPicture bright = rig.Picture("Disc");
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Disc", K4_SIGN_DIM_MANUAL, 0), 0);
    EXPECT_EQ(rig.Picture("Disc"), bright);
}

TEST_F(EnginePicture, AnOpenWindowShowsItsSignAtItsPlaceAndNothingElseChanges) {
    const DibPicture before = rig.Picture();
    const DibPicture small = rig.Picture("Small");
    Open(1, 5, 24);
    const DibPicture after = rig.Picture();
    int changed = 0;
    for (int row = 0; row < 32; ++row)
        for (int column = 0; column < 64; ++column) {
            const bool inside = row >= 5 && row < 21 && column >= 24 && column < 56;
            if (inside)
                ASSERT_EQ(after.At(row, column), small.At(row - 5, column - 24))
                    << row << " " << column;
            else
                ASSERT_EQ(after.At(row, column), before.At(row, column)) << row << " " << column;
            changed += after.At(row, column) != before.At(row, column);
        }
    EXPECT_GT(changed, 100);
    ASSERT_EQ(rig.rpc->k4ssWindowEnable("Main", 1, 0), 0);
    EXPECT_EQ(rig.Picture(), before);
}

TEST_F(EnginePicture, AWindowMayStickOutOverEachEdge) {
    struct Row {
        std::int32_t row, column;
    };
    const DibPicture before = rig.Picture();
    const DibPicture small = rig.Picture("Small");
    for (const Row& at : {Row{-10, -24}, Row{-15, 60}, Row{31, -31}, Row{20, 40}}) {
        Open(1, at.row, at.column);
        const DibPicture after = rig.Picture();
        for (int row = 0; row < 32; ++row)
            for (int column = 0; column < 64; ++column) {
                const int r = row - at.row;
                const int c = column - at.column;
                const bool inside = r >= 0 && r < 16 && c >= 0 && c < 32;
                ASSERT_EQ(after.At(row, column), inside ? small.At(r, c) : before.At(row, column))
                    << at.row << " " << at.column << ": " << row << " " << column;
            }
    }
}

TEST_F(EnginePicture, AHigherWindowLiesOnTop) {
    const DibPicture strip = rig.Picture("Strip");
    Open(2, 4, 8);  // the strip
    Open(1, 0, 0);  // the small sign, opened later
    const DibPicture after = rig.Picture();
    for (int row = 0; row < 8; ++row)
        for (int column = 0; column < 32; ++column)
            ASSERT_EQ(after.At(row + 4, column + 8), strip.At(row, column));
}

TEST_F(EnginePicture, WindowsAreDimmedWithTheSignThatShowsThem) {
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Small", K4_SIGN_DIM_MANUAL, 0), 0);
    Open(1, 0, 0);
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Small", K4_SIGN_DIM_MANUAL, 255), 0);
    const DibPicture bright = rig.Picture("Small");
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Small", K4_SIGN_DIM_MANUAL, 0), 0);
    EXPECT_EQ(rig.Picture().At(8, 8), bright.At(8, 8)) << "the shown sign's dimming is its own";
}

TEST_F(EnginePicture, ABlankSignInAWindowIsADarkField) {
    ASSERT_EQ(rig.rpc->k4ssBlankSign("Small"), 0);
    Open(1, 4, 4);
    const DibPicture after = rig.Picture();
    for (int row = 4; row < 20; ++row)
        for (int column = 4; column < 36; ++column)
            ASSERT_EQ(after.At(row, column), DibPixel());
}

TEST_F(EnginePicture, WindowsInWindowsAreShown) {
    ASSERT_EQ(rig.Window(1, "Small")[0], "Strip");
    Open(1, 8, 0, "Small");
    Open(1, 16, 32);
    const DibPicture small = rig.Picture("Small");
    const DibPicture main = rig.Picture();
    for (int row = 0; row < 16; ++row)
        for (int column = 0; column < 32; ++column)
            ASSERT_EQ(main.At(row + 16, column + 32), small.At(row, column));
}

TEST_F(EnginePicture, SignsThatShowEachOtherComeToAnEnd) {
    // Disc shows Main, and Main shows Disc; all windows of all signs are open.
    for (const char* sign : {"Main", "Small", "Strip", "Quad", "Disc", "Packed"})
        for (std::uint32_t window = 1; window <= 16; ++window)
            ASSERT_EQ(rig.rpc->k4ssWindowEnable(sign, window, 1), 0);
    const DibPicture main = rig.Picture();
    EXPECT_EQ(main.pixels.size(), 32U * 64U);
    const DibPicture disc = rig.Picture("Disc");
    EXPECT_EQ(disc.pixels.size(), 7U * 17U);
    EXPECT_EQ(rig.Picture(), main);
    rig.ChangeFlag();
}

TEST_F(EnginePicture, ASignAloneDoesntShowItselfInItself) {
    ASSERT_EQ(rig.rpc->k4ssConnectSignAsUser("Far", nullptr, nullptr, nullptr), 0);
    ASSERT_EQ(rig.rpc->k4ssStopSequence("Alone"), 0);
    const DibPicture before = rig.Picture("Alone");
    Open(1, 4, 8, "Alone");
    EXPECT_EQ(rig.Picture("Alone"), before);
}

TEST_F(EnginePicture, PlacesOutOfReachAreRefused) {
    struct Row {
        std::int32_t row, column;
        bool fits;
    };
    // Window 1 shows 16 rows of 32 columns on 32 rows of 64 columns.
    constexpr Row rows[] = {
        {0, 0, true},
        {31, 63, true},
        {-16, -32, true},
        {32, 0, false},
        {0, 64, false},
        {-17, 0, false},
        {0, -33, false},
        {2147483647, 0, false},
        {0, 2147483647, false},
        {-2147483647 - 1, 0, false},
        {0, -2147483647 - 1, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(rig.rpc->k4ssWindowMove("Main", 1, row.row, row.column) == 0, row.fits)
            << row.row << " " << row.column;
        EXPECT_EQ(rig.rpc->k4ssQueueWindowMove("Main", 1, row.row, row.column) == 0, row.fits);
    }
    EXPECT_EQ(rig.Window(1), (std::vector<std::string>{"Small", "0", "-16", "-32"}));
}

TEST_F(EnginePicture, BulbDataHasTheSizeOfItsPlanes) {
    struct Row {
        const char* sign;
        std::uint32_t bytes, planes;
    };
    constexpr Row rows[] = {
        {"Main", 4 * 32 * 24 * 2, 24}, {"Small", 2 * 16 * 4 * 2, 4},
        {"Strip", 2 * 8 * 2 * 2, 2},   {"Quad", 1 * 16 * 2 * 2, 2},
        {"Disc", 2 * 8 * 1 * 2, 1},    {"Packed", 2 * 10 * 16 * 2, 16},
    };
    for (const Row& row : rows) {
        std::uint32_t bytes = 0;
        std::uint32_t planes = 0;
        EXPECT_NE(rig.rpc->k4ssGetBulb(row.sign, nullptr, 0, &bytes, &planes), 0) << row.sign;
        EXPECT_EQ(bytes, row.bytes) << row.sign;
        EXPECT_EQ(planes, row.planes) << row.sign;
        std::vector<std::uint8_t> bulbs(bytes, 0x5A);
        EXPECT_NE(rig.rpc->k4ssGetBulb(row.sign, bulbs.data(), bytes - 1, nullptr, nullptr), 0);
        EXPECT_EQ(bulbs, std::vector<std::uint8_t>(bytes, 0x5A)) << "untouched";
        EXPECT_EQ(rig.rpc->k4ssGetBulb(row.sign, bulbs.data(), bytes, nullptr, nullptr), 0);
    }
}

TEST_F(EnginePicture, BulbsAreTheLampsOfThePicture) {
    // One plane: a bit is set exactly where the picture has light.
    const DibPicture picture = rig.Picture("Disc");
    const std::vector<std::uint8_t> bulbs = rig.Bulbs("Disc");
    for (int row = 0; row < 7; ++row)
        for (int column = 0; column < 17; ++column) {
            const std::size_t word = static_cast<std::size_t>(row * 2 + column / 16);
            const int value = bulbs[2 * word] | bulbs[2 * word + 1] << 8;
            const bool lit = (value >> (15 - column % 16) & 1) != 0;
            ASSERT_EQ(lit, picture.At(row, column) != DibPixel()) << row << " " << column;
        }
}

TEST_F(EnginePicture, DimmedBulbsAreLowerShadesAndLitOnesStayLit) {
    const auto shades = [&] {
        const std::vector<std::uint8_t> bulbs = rig.Bulbs("Small");
        std::vector<int> all;
        for (std::size_t lamp = 0; lamp < 16 * 32; ++lamp) {
            int shade = 0;
            for (std::size_t plane = 0; plane < 4; ++plane) {
                const std::size_t word = plane * 2 * 16 + lamp / 32 * 2 + lamp % 32 / 16;
                const int value = bulbs[2 * word] | bulbs[2 * word + 1] << 8;
                shade |= (value >> (15 - lamp % 16) & 1) << plane;
            }
            all.push_back(shade);
        }
        return all;
    };
    const std::vector<int> bright = shades();
    ASSERT_EQ(rig.rpc->k4ssSetDimming("Small", K4_SIGN_DIM_MANUAL, 119), 0);
    const std::vector<int> half = shades();
    EXPECT_EQ(*std::max_element(bright.begin(), bright.end()), 15);
    for (std::size_t lamp = 0; lamp < bright.size(); ++lamp) {
        ASSERT_NEAR(half[lamp], bright[lamp] / 2.0, 0.6);
        ASSERT_EQ(half[lamp] > 0, bright[lamp] > 0);
    }
}

TEST(EnginePattern, ItMovesAndComesBack) {
    EngineRig rig;
    const DibPicture first = rig.Picture();
    DibPicture before = first;
    for (int frame = 1; frame < 40; ++frame) {
        rig.clock.Advance(std::chrono::milliseconds(100));
        const DibPicture now = rig.Picture();
        EXPECT_NE(now, before) << frame;
        before = now;
    }
    rig.clock.Advance(std::chrono::milliseconds(100));
    EXPECT_EQ(rig.Picture(), first);
}

}  // namespace
