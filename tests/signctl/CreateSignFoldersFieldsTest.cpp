#include <QGuiApplication>
#include <QKeyEvent>
#include <chrono>
#include <utility>
#include <vector>

#include "tests/signctl/CreateSignFoldersFixture.h"

namespace k4test {
namespace {

using Seconds = std::chrono::seconds;

// The folder text ---------------------------------------------------------------------------------

TEST_F(CreateSignFolders, TheFolderFollowsEveryKeyOfTheFields) {
    Look([&] {
        TypeOver(dialog, kRows, QStringLiteral("2"));
        EXPECT_EQ(Folder(), "Folder: 2x16.Mono1.Incand.Sign");
        PressKey(dialog, Qt::Key_4);
        EXPECT_EQ(Folder(), "Folder: 24x16.Mono1.Incand.Sign");
        TypeOver(dialog, kColumns, QStringLiteral("96"));
        EXPECT_EQ(Folder(), "Folder: 24x96.Mono1.Incand.Sign");
        TypeOver(dialog, kColumns, QString());
        EXPECT_EQ(Folder(), "Folder: 24x0.Mono1.Incand.Sign");
        TypeOver(dialog, kColumns, QStringLiteral("99999999999"));
        EXPECT_EQ(Folder(), "Folder: 24x4294967295.Mono1.Incand.Sign");
    });
}

TEST_F(CreateSignFolders, TheFieldsTakeDigitsAlone) {
    Look([&] {
        for (const int field : {kRows, kColumns}) {
            TypeOver(dialog, field, QStringLiteral("-1a2.3 +4"));
            EXPECT_EQ(Text(field), "1234");
        }
    });
}

TEST_F(CreateSignFolders, ThePaletteBoxGreysTheSizesAndNothingElse) {
    Look([&] {
        Click(dialog, kPalette);
        EXPECT_EQ(Folder(), "Folder: 8x16.Mono1.Incand.Palette.Sign");
        for (const int id : {kRows, kColumns, kRowSpin, kColumnSpin})
            EXPECT_FALSE(IsEnabled(id)) << id;
        EXPECT_FALSE(Arrow(kRowSpin, 1)->isEnabled());
        EXPECT_TRUE(IsEnabled(kColor));
        EXPECT_TRUE(IsEnabled(kPixel));
        Choose(kColor, 2);
        EXPECT_EQ(Folder(), "Folder: 8x16.Tri3.LED.Palette.Sign");
        Click(dialog, kPalette);
        EXPECT_EQ(Folder(), "Folder: 8x16.Tri3.LED.Sign");
        for (const int id : {kRows, kColumns, kRowSpin, kColumnSpin})
            EXPECT_TRUE(IsEnabled(id)) << id;
    });
}

// Leaving a field ---------------------------------------------------------------------------------

struct Left {
    const char* typed;
    const char* becomes;
};

TEST_F(CreateSignFolders, RowsAreRoundedWhenTheFieldIsLeft) {
    const Left rows[] = {{"20", "24"},     {"19", "16"},
                         {"7", "7"},       {"3", "0"},
                         {"4", "8"},       {"6", "8"},
                         {"", "0"},        {"008", "8"},
                         {"11", "8"},      {"2048", "2048"},
                         {"2049", "2048"}, {"9999", "2048"},
                         {"2044", "2048"}, {"99999999999999999999", "2048"}};
    Look([&] {
        for (const Left& row : rows) {
            Enter(kRows, row.typed);
            EXPECT_EQ(Text(kRows), row.becomes) << row.typed;
            EXPECT_EQ(Folder(), std::string("Folder: ") + row.becomes + "x16.Mono1.Incand.Sign");
        }
    });
}

TEST_F(CreateSignFolders, ColumnsAreRoundedWhenTheFieldIsLeft) {
    const Left rows[] = {{"20", "16"},       {"24", "32"},       {"7", "0"},
                         {"8", "16"},        {"", "0"},          {"16384", "16384"},
                         {"16385", "16384"}, {"16376", "16384"}, {"99999999999999999999", "16384"}};
    Look([&] {
        for (const Left& row : rows) {
            Enter(kColumns, row.typed);
            EXPECT_EQ(Text(kColumns), row.becomes) << row.typed;
            EXPECT_EQ(Folder(), std::string("Folder: 8x") + row.becomes + ".Mono1.Incand.Sign");
        }
    });
}

TEST_F(CreateSignFolders, AFieldIsLeftByTheMouseToo) {
    Look([&] {
        TypeOver(dialog, kRows, QStringLiteral("20"));
        EXPECT_EQ(Text(kRows), "20");
        QTest::mouseClick(Of<QWidget>(kColumns), Qt::LeftButton);
        EXPECT_EQ(Text(kRows), "24");
    });
}

// Spins -------------------------------------------------------------------------------------------

TEST_F(CreateSignFolders, ASpinClickLandsOnAMultipleOfItsStep) {
    const struct {
        int field;
        int spin;
        const char* from;
        int direction;
        const char* to;
    } rows[] = {{kRows, kRowSpin, "7", 1, "8"},
                {kRows, kRowSpin, "16", -1, "8"},
                {kRows, kRowSpin, "8", 1, "16"},
                {kRows, kRowSpin, "8", -1, "7"},
                {kRows, kRowSpin, "7", -1, "7"},
                {kRows, kRowSpin, "2048", 1, "2048"},
                {kRows, kRowSpin, "2048", -1, "2040"},
                {kColumns, kColumnSpin, "16", 1, "32"},
                {kColumns, kColumnSpin, "32", -1, "16"},
                {kColumns, kColumnSpin, "16", -1, "16"},
                {kColumns, kColumnSpin, "16384", 1, "16384"},
                {kColumns, kColumnSpin, "16384", -1, "16368"}};
    Look([&] {
        for (const auto& row : rows) {
            Enter(row.field, row.from);
            ClickSpin(row.spin, row.direction);
            EXPECT_EQ(Text(row.field), row.to) << row.from << ", " << row.direction;
        }
        EXPECT_EQ(Folder(), "Folder: 2040x16368.Mono1.Incand.Sign");
    });
}

TEST_F(CreateSignFolders, ASpinStartsAtWhatIsTypedAndTakes16BitsOfWhereItGoes) {
    Look([&] {
        TypeOver(dialog, kRows, QStringLiteral("13"));
        PressKey(dialog, Qt::Key_Up);
        EXPECT_EQ(Text(kRows), "16");
        TypeOver(dialog, kRows, QStringLiteral("13"));
        PressKey(dialog, Qt::Key_Down);
        EXPECT_EQ(Text(kRows), "8");
        TypeOver(dialog, kColumns, QStringLiteral("70001"));
        PressKey(dialog, Qt::Key_Up);
        EXPECT_EQ(Text(kColumns), "4480");  // 70016 less 65536
        TypeOver(dialog, kColumns, QStringLiteral("40000"));
        PressKey(dialog, Qt::Key_Up);
        EXPECT_EQ(Text(kColumns), "16");  // a word with a sign, held inside the range
    });
}

TEST_F(CreateSignFolders, AHeldSpinGetsFasterAfterTwoAndFourSeconds) {
    const auto hold = [&](int field, const std::vector<std::pair<int, const char*>>& steps) {
        auto* edit = Of<QLineEdit>(field);
        edit->setFocus();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
        QCoreApplication::sendEvent(edit, &press);
        for (const auto& [later, text] : steps) {
            clock.Advance(std::chrono::milliseconds(later));
            QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(edit, &repeat);
            EXPECT_EQ(edit->text().toStdString(), text);
        }
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Up, Qt::NoModifier);
        QCoreApplication::sendEvent(edit, &release);
    };
    Look([&] {
        hold(kRows, {{0, "24"}, {1999, "32"}, {1, "64"}, {1999, "128"}, {1, "256"}, {0, "384"}});
        hold(kColumns, {{0, "48"}, {1999, "64"}, {1, "128"}, {1999, "256"}, {1, "512"}});
    });
}

TEST_F(CreateSignFolders, TheSpinsHaveTheirRangesAndSpeeds) {
    Look([&] {
        const auto* rows = Of<CSpinButtonCtrl>(kRowSpin);
        EXPECT_EQ(rows->Lower(), 7);
        EXPECT_EQ(rows->Upper(), 2048);
        EXPECT_THAT(rows->GetAccel(),
                    testing::ElementsAre(k4cmn::SpinAccel{0, 8}, k4cmn::SpinAccel{2, 64},
                                         k4cmn::SpinAccel{4, 128}));
        const auto* columns = Of<CSpinButtonCtrl>(kColumnSpin);
        EXPECT_EQ(columns->Lower(), 16);
        EXPECT_EQ(columns->Upper(), 16384);
        EXPECT_THAT(columns->GetAccel(),
                    testing::ElementsAre(k4cmn::SpinAccel{0, 16}, k4cmn::SpinAccel{2, 128},
                                         k4cmn::SpinAccel{4, 256}));
    });
}

// Technologies ------------------------------------------------------------------------------------

struct ColorRow {
    int color;
    int from[3];  ///< where the pixel goes from Incandescent, Reflective, LED
};

class CreateSignFoldersColor : public CreateSignFolders,
                               public testing::WithParamInterface<ColorRow> {};

TEST_P(CreateSignFoldersColor, MovesThePixelWithoutAMessage) {
    Look([&] {
        for (int pixel = 0; pixel < 3; ++pixel) {
            Choose(kColor, 0);
            Choose(kPixel, pixel);
            Choose(kColor, GetParam().color);
            EXPECT_EQ(Index(kPixel), GetParam().from[pixel]) << pixel;
        }
    });
}

// On the way to a color by keys, those above it are passed. These are of one kind in each row.
INSTANTIATE_TEST_SUITE_P(Reached, CreateSignFoldersColor,
                         testing::Values(ColorRow{0, {0, 1, 2}}, ColorRow{1, {0, 0, 0}},
                                         ColorRow{2, {2, 2, 2}}, ColorRow{3, {0, 0, 0}},
                                         ColorRow{5, {0, 0, 0}}, ColorRow{7, {2, 2, 2}},
                                         ColorRow{8, {0, 0, 0}}, ColorRow{9, {2, 2, 2}},
                                         ColorRow{10, {2, 2, 2}}, ColorRow{11, {2, 2, 2}},
                                         ColorRow{13, {2, 2, 2}}, ColorRow{14, {2, 2, 2}}));

TEST_F(CreateSignFolders, ShadesOfMonochromeMoveReflectiveAlone) {
    Look([&] {
        auto* color = Of<QComboBox>(kColor);
        for (const int shades : {4, 6, 12}) {
            for (const auto& [from, to] : {std::pair(0, 0), std::pair(1, 0), std::pair(2, 2)}) {
                Choose(kColor, 0);
                Choose(kPixel, from);
                color->setCurrentIndex(shades);
                Q_EMIT color->activated(shades);
                EXPECT_EQ(Index(kPixel), to) << shades << ", " << from;
            }
        }
    });
}

TEST_F(CreateSignFolders, TriColorMovesIncandescentToLed) {
    Look([&] {
        EXPECT_EQ(Index(kPixel), 0);
        Choose(kColor, 2);
        EXPECT_EQ(Index(kPixel), 2);
        EXPECT_EQ(Folder(), "Folder: 8x16.Tri3.LED.Sign");
    });
}

TEST_F(CreateSignFolders, ReflectiveForQuadColorIsToldAndTakenBack) {
    Look([&] {
        Choose(kColor, 1);
        auto* pixel = Of<QComboBox>(kPixel);
        pixel->setFocus();
        messages.Expect("Reflective pixel technology is not valid for Quad16 color technology.");
        QTest::keyClick(pixel, Qt::Key_Down);
        EXPECT_EQ(Index(kPixel), 0);
        EXPECT_EQ(Folder(), "Folder: 8x16.Quad16.Incand.Sign");
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST_F(CreateSignFolders, APixelGoesBackToTheLastOneThatFitted) {
    dialog.Initialize(8, 16, K4_SIGN_COLOR_MONO16, K4_PIXEL_TECH_INCAND, 0);
    Look([&] {
        auto* pixel = Of<QComboBox>(kPixel);
        pixel->setFocus();
        QTest::keyClick(pixel, Qt::Key_End);
        EXPECT_EQ(Index(kPixel), 2);
        messages.Expect("Reflective pixel technology is not valid for Mono16 color technology.");
        QTest::keyClick(pixel, Qt::Key_Up);
        EXPECT_EQ(Index(kPixel), 2);
    });
}

TEST_F(CreateSignFolders, ThePixelThatItOpenedWithComesBackEvenIfItNeverFitted) {
    dialog.Initialize(8, 16, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_LED, 0);
    Look([&] {
        auto* pixel = Of<QComboBox>(kPixel);
        pixel->setFocus();
        messages.Expect("Reflective pixel technology is not valid for Quad16 color technology.");
        QTest::keyClick(pixel, Qt::Key_Up);
        EXPECT_EQ(Index(kPixel), 2);
    });
}

}  // namespace
}  // namespace k4test
