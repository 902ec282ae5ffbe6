#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "tests/signctl/WindowControlFixture.h"

namespace k4test {
namespace {

// What a field takes ------------------------------------------------------------------------------

TEST_F(WindowControl, AFieldTakesDigitsAndALeadingMinusWhereItsLowerBoundIsNegative) {
    configs.erase("Tick");
    Sign("clock", 8, 16);
    Window(2).sign = "clock";
    const struct {
        int field;
        const char* typed;
        const char* taken;
    } rows[] = {
        {kRow + 2, "12", "12"},     {kRow + 2, "-5", "-5"},   {kRow + 2, "--5", "-5"},
        {kRow + 2, "5-", "5"},      {kRow + 2, "+5", "5"},    {kRow + 2, "1a2.3 4", "1234"},
        {kRow + 1, "-5", "5"},      {kRow + 1, "12", "12"},   {kColumn + 2, "-7", "-7"},
        {kColumn + 2, "x-7", "-7"}, {kColumn + 1, "-9", "9"}, {kColumn + 1, "1e5", "15"},
    };
    Run([&] {
        for (const auto& row : rows) {
            TypeOver(dialog, row.field, QString::fromLatin1(row.typed));
            EXPECT_EQ(Text(row.field), row.taken) << row.typed;
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AFieldRefusesWhatIsPastedUnlessItIsANumber) {
    configs.erase("Tick");
    Sign("clock", 8, 16);
    Window(2).sign = "clock";
    Run([&] {
        const auto paste = [&](int field, const char* text) {
            TypeOver(dialog, field, QStringLiteral("3"));
            QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
            Item<QLineEdit>(dialog, field)->selectAll();
            PressKey(dialog, Qt::Key_V, Qt::ControlModifier);
            return Text(field);
        };
        EXPECT_EQ(paste(kRow + 1, "12"), "12");
        EXPECT_EQ(paste(kRow + 1, "-12"), "3");
        EXPECT_EQ(paste(kRow + 2, "-12"), "-12");
        for (const char* text : {"1-2", "1 2", "0x1", "1.5", "twelve", "\xD9\xA3", "1\n2"})
            EXPECT_EQ(paste(kRow + 2, text), "3") << text;
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AFieldThatOpenedOutsideOfItsRangeCanBeClearedKeyByKey) {
    configs.erase("Tick");
    Window(1).row = -3;
    Run([&] {
        auto* edit = Item<QLineEdit>(dialog, kRow + 1);
        EXPECT_EQ(Text(kRow + 1), "-3");
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_End);
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClick(edit, Qt::Key_Backspace);
        EXPECT_EQ(Text(kRow + 1), "");
        QTest::keyClicks(edit, QStringLiteral("4"));
        EXPECT_EQ(Text(kRow + 1), "4");
        Click(dialog, kCancel);
    });
}

// Leaving a field ---------------------------------------------------------------------------------

struct Left {
    const char* typed;
    const char* becomes;
};

TEST_F(WindowControl, AColumnLeftGoesToTheNearestPlaceOnTheGrid) {
    const Left rows[] = {{"5", "9"},
                         {"4", "1"},
                         {"0", "1"},
                         {"-3", "1"},
                         {"1", "1"},
                         {"9", "9"},
                         {"10", "9"},
                         {"12", "9"},
                         {"13", "17"},
                         {"-4", "-7"},
                         {"-8", "-7"},
                         {"80", "81"},
                         {"", "1"},
                         {"-", "1"},
                         {"0009", "0009"},
                         {"99999999999999999999", "2147483641"},
                         {"-99999999999999999999", "-2147483647"}};
    for (const int color : {kMono, kQuad}) {
        MainSign(16, 80, color);
        CK4CmnDlgWindowControl other("North", "Main", nullptr);
        Run(other, [&] {
            for (const Left& row : rows) {
                TypeOver(other, kColumn + 4, QString::fromLatin1(row.typed));
                PressKey(other, Qt::Key_Tab);
                EXPECT_EQ(TextOf(other, kColumn + 4), row.becomes) << row.typed;
            }
            other.EndDialog(IDCANCEL);
        });
    }
}

TEST_F(WindowControl, AnEvenRowLeftGoesUpByOneOnAQuadSign) {
    MainSign(64, 80, kQuad);
    Run([&] {
        for (const Left& row : {Left{"2", "3"}, Left{"3", "3"}, Left{"0", "1"}, Left{"-2", "-1"},
                                Left{"-5", "-5"}, Left{"62", "63"}, Left{"", "1"}}) {
            Enter(kRow + 3, row.typed);
            EXPECT_EQ(Text(kRow + 3), row.becomes) << row.typed;
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ARowLeftStaysOnOtherSigns) {
    Run([&] {
        for (const char* row : {"2", "3", "0", "-2", "-5", "14", ""}) {
            Enter(kRow + 3, row);
            EXPECT_EQ(Text(kRow + 3), row);
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AFieldIsLeftByTheMouseAndBackwardsToo) {
    Run([&] {
        TypeOver(dialog, kColumn + 1, QStringLiteral("5"));
        Item<QLineEdit>(dialog, kColumn + 2)->setFocus(Qt::MouseFocusReason);
        EXPECT_EQ(Text(kColumn + 1), "9");
        TypeOver(dialog, kColumn + 2, QStringLiteral("14"));
        PressKey(dialog, Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(Text(kColumn + 2), "17");
        EXPECT_EQ(FocusedId(dialog), kRow + 2);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AFieldIsLeftWhenAMessageTakesTheFocus) {
    Run([&] {
        TypeOver(dialog, kColumn + 1, QStringLiteral("5"));
        messages.Expect(k4cmn::PlainMessage("Columns must be on boundries of 8. (1 based)"),
                        k4cmn::MessageAnswer::Ok, [&] {
                            EXPECT_EQ(Text(kColumn + 1), "5");
                            QDialog box(&dialog);
                            box.open();
                            EXPECT_TRUE(QTest::qWaitFor([&] { return box.isActiveWindow(); }));
                        });
        PressKey(dialog, Qt::Key_Return);
        EXPECT_EQ(messages.Pending(), 0U);
        EXPECT_EQ(Text(kColumn + 1), "9");
        EXPECT_EQ(FocusedId(dialog), kColumn + 1);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, TheMenuOfAFieldDoesntLeaveIt) {
    Run([&] {
        TypeOver(dialog, kColumn + 1, QStringLiteral("5"));
        QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
        QCoreApplication::sendEvent(Item<QLineEdit>(dialog, kColumn + 1), &popup);
        EXPECT_EQ(Text(kColumn + 1), "5");
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ANumberIsLeftAloneWhileItIsTyped) {
    Run([&] {
        TypeOver(dialog, kColumn + 1, QStringLiteral("5"));
        EXPECT_EQ(Text(kColumn + 1), "5");
        Click(dialog, kCancel);
    });
}

// Spins -------------------------------------------------------------------------------------------

TEST_F(WindowControl, AColumnSpinGoesByEights) {
    Run([&] {
        ClickSpin(kColumnSpin + 1, 1);
        EXPECT_EQ(Text(kColumn + 1), "9");
        ClickSpin(kColumnSpin + 1, -1);
        EXPECT_EQ(Text(kColumn + 1), "1");
        ClickSpin(kColumnSpin + 1, -1);
        EXPECT_EQ(Text(kColumn + 1), "-7");
        // Held inside the range first, and put back on the grid when the field is left.
        ClickSpin(kColumnSpin + 1, -1);
        EXPECT_EQ(Text(kColumn + 1), "-8");
        PressKey(dialog, Qt::Key_Tab);
        EXPECT_EQ(Text(kColumn + 1), "-7");
        ClickSpin(kColumnSpin + 8, 1);
        EXPECT_EQ(Text(kColumn + 8), "65");
        ClickSpin(kColumnSpin + 8, 1);
        EXPECT_EQ(Text(kColumn + 8), "73");
        ClickSpin(kColumnSpin + 8, 1);
        EXPECT_EQ(Text(kColumn + 8), "80");
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ARowSpinGoesByOnes) {
    Run([&] {
        for (const char* row : {"2", "3", "4"}) {
            ClickSpin(kRowSpin + 2, 1);
            EXPECT_EQ(Text(kRow + 2), row);
        }
        for (const char* row : {"3", "2", "1", "0", "-1"}) {
            ClickSpin(kRowSpin + 2, -1);
            EXPECT_EQ(Text(kRow + 2), row);
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ARowSpinGoesByTwosOnAQuadSign) {
    MainSign(64, 80, kQuad);
    Run([&] {
        for (const char* row : {"3", "5"}) {
            ClickSpin(kRowSpin + 2, 1);
            EXPECT_EQ(Text(kRow + 2), row);
        }
        for (const char* row : {"3", "1", "-1"}) {
            ClickSpin(kRowSpin + 2, -1);
            EXPECT_EQ(Text(kRow + 2), row);
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ASpinMovesOnlyItsOwnField) {
    Run([&] {
        for (int k = 1; k <= 8; ++k) {
            ClickSpin(kRowSpin + k, 1);
            ClickSpin(kColumnSpin + k, 1);
        }
        for (int k = 1; k <= 8; ++k) {
            EXPECT_EQ(Text(kRow + k), "2");
            EXPECT_EQ(Text(kColumn + k), std::to_string(9 + 8 * (k - 1)));
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AHeldSpinGetsFasterAfterTwoAndFourSeconds) {
    MainSign(400, 400, kMono);
    Run([&] {
        const auto hold = [&](int field, const std::vector<std::pair<int, const char*>>& steps) {
            auto* edit = Item<QLineEdit>(dialog, field);
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
        hold(kColumn + 1, {{0, "17"}, {1999, "25"}, {1, "33"}, {1, "49"}, {1998, "65"}, {1, "97"}});
        hold(kRow + 1, {{0, "3"}, {1999, "4"}, {1, "9"}, {1999, "17"}, {1, "33"}, {0, "49"}});
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ASpinHeldByTheMouseGetsFaster) {
    MainSign(400, 30000, kMono);
    Run([&] {
        auto* edit = Item<QLineEdit>(dialog, kColumn + 1);
        QWidget* up = Arrow(kColumnSpin + 1, 1);
        QTest::mousePress(up, Qt::LeftButton);
        EXPECT_EQ(edit->text().toInt(), 9);
        clock.Advance(std::chrono::seconds(4));
        int last = 9;
        bool slower = false;
        QObject::connect(edit, &QLineEdit::textChanged, edit, [&](const QString& text) {
            slower |= text.toInt() % 32 != 1;
            last = text.toInt();
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return last >= 33 + 3 * 32; }));
        QTest::mouseRelease(up, Qt::LeftButton);
        EXPECT_FALSE(slower);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, OnlyTheLow16BitsOfAPositionReachTheSpin) {
    MainSign(16, 100000, kMono);
    Run([&] {
        TypeOver(dialog, kColumn + 1, QStringLiteral("70001"));
        ClickSpin(kColumnSpin + 1, 1);
        EXPECT_EQ(Text(kColumn + 1), "4473");  // 70009 less 65536
        TypeOver(dialog, kColumn + 1, QStringLiteral("32761"));
        ClickSpin(kColumnSpin + 1, 1);
        EXPECT_EQ(Text(kColumn + 1), "-8");  // -32767, held inside the range
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, TheSpinsOfASignWithoutSizeStayAtTheirLowerBound) {
    MainSign(0, 0, kMono);
    configs.erase("Tick");
    Run([&] {
        ClickSpin(kRowSpin + 1, 1);
        ClickSpin(kColumnSpin + 1, -1);
        EXPECT_EQ(Text(kRow + 1), "1");
        EXPECT_EQ(Text(kColumn + 1), "1");
        Click(dialog, kCancel);
    });
}

}  // namespace
}  // namespace k4test
