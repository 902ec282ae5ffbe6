#include <QPushButton>

#include "tests/signctl/WindowControlFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

// What is sent ------------------------------------------------------------------------------------

TEST_F(WindowControl, ApplyWritesAllEightWindowsInOrderByOneConnection) {
    Window(2) = {"Tick", 1, -7, -7};
    std::vector<std::string> expected{"k4ssIsServer(North)",
                                      "k4ssConnectSignAsUser(North, null, null, null)"};
    for (int k = 1; k <= 8; ++k) {
        const std::string number = std::to_string(k);
        expected.push_back("k4ssWindowEnable(Main, " + number + (k == 2 ? ", 1)" : ", 0)"));
        expected.push_back(k == 2 ? "k4ssWindowMove(Main, 2, -8, -8)"
                                  : "k4ssWindowMove(Main, " + number + ", 0, " +
                                        std::to_string(8 * (k - 1)) + ")");
    }
    expected.push_back("k4ssDisconnectSign()");
    Run([&] {
        Click(dialog, kApply);
        EXPECT_THAT(rpc.calls, ElementsAreArray(expected));
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(Item<QPushButton>(dialog, kApply)->isEnabled());
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, OkWritesAndCloses) {
    EXPECT_EQ(Run([&] { Click(dialog, kOk); }), IDOK);
    EXPECT_EQ(rpc.Count("k4ssWindowEnable"), 8U);
    EXPECT_EQ(rpc.Count("k4ssWindowMove"), 8U);
    EXPECT_EQ(rpc.Count("k4ssConnectSignAsUser"), 1U);
}

TEST_F(WindowControl, WhatAPersonChangesIsSent) {
    Run([&] {
        Click(dialog, kEnable + 3);
        Enter(kRow + 3, "5");
        Enter(kColumn + 3, "34");
        ClickSpin(kRowSpin + 6, 1);
        Item<QCheckBox>(dialog, kEnable + 6)->setFocus();
        PressKey(dialog, Qt::Key_Space);
        Click(dialog, kApply);
        const std::vector<std::string> sent = Sent();
        EXPECT_EQ(sent.at(4), "k4ssWindowEnable(Main, 3, 1)");
        EXPECT_EQ(sent.at(5), "k4ssWindowMove(Main, 3, 4, 32)");
        EXPECT_EQ(sent.at(10), "k4ssWindowEnable(Main, 6, 1)");
        EXPECT_EQ(sent.at(11), "k4ssWindowMove(Main, 6, 1, 40)");
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AWindowAtRowOrColumnNoughtIsEnabledAndNotMoved) {
    Window(1).row = 0;
    Window(4).column = 0;
    Window(5).column = 2;  // its remainder makes up for that of window 4
    Run([&] {
        Click(dialog, kApply);
        EXPECT_EQ(rpc.Count("k4ssWindowEnable"), 8U);
        EXPECT_THAT(Sent(), testing::Not(
                                testing::Contains(testing::StartsWith("k4ssWindowMove(Main, 1,"))));
        EXPECT_THAT(Sent(), testing::Not(
                                testing::Contains(testing::StartsWith("k4ssWindowMove(Main, 4,"))));
        EXPECT_EQ(rpc.Count("k4ssWindowMove"), 6U);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, TheResultsOfTheWritesArentLookedAt) {
    rpc.results["k4ssWindowEnable"] = 1;
    EXPECT_EQ(Run([&] {
                  Click(dialog, kApply);
                  EXPECT_EQ(rpc.Count("k4ssWindowEnable"), 8U);
                  rpc.results.erase("k4ssWindowEnable");
                  rpc.results["k4ssWindowMove"] = 1;
                  rpc.calls.clear();
                  Click(dialog, kOk);
              }),
              IDOK);
    EXPECT_EQ(rpc.Count("k4ssWindowMove"), 8U);
}

// Range -------------------------------------------------------------------------------------------

struct Range {
    const char* what;
    int field;
    const char* typed;
    const char* words;
};

class WindowControlRange : public WindowControl, public testing::WithParamInterface<Range> {};

TEST_P(WindowControlRange, IsToldAndTheDialogStaysOpen) {
    Run([&] {
        for (const int button : {+kApply, +kOk}) {
            Enter(GetParam().field, GetParam().typed);
            messages.Expect(GetParam().words);
            Click(dialog, button);
            EXPECT_EQ(messages.Pending(), 0U);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(FocusedId(dialog), GetParam().field);
            EXPECT_TRUE(Item<QLineEdit>(dialog, GetParam().field)->hasSelectedText() ||
                        Text(GetParam().field).empty());
            EXPECT_THAT(rpc.calls, IsEmpty());
        }
        Click(dialog, kCancel);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Fields, WindowControlRange,
    testing::Values(Range{"RowTooLow", 1031, "-8", "Enter an integer between -7 and 16."},
                    Range{"RowTooHigh", 1031, "17", "Enter an integer between -7 and 16."},
                    Range{"LastRowTooHigh", 1038, "99", "Enter an integer between -7 and 16."},
                    Range{"ColumnTooLow", 1039, "-15", "Enter an integer between -8 and 80."},
                    Range{"ColumnTooHigh", 1039, "81", "Enter an integer between -8 and 80."},
                    Range{"LastColumnTooHigh", 1046, "89", "Enter an integer between -8 and 80."},
                    Range{"NoRow", 1033, "", "Enter an integer."},
                    Range{"OnlyAMinus", 1033, "-", "Enter an integer."},
                    Range{"RowOf33Bits", 1033, "4294967296", "Enter an integer."}),
    [](const auto& row) { return row.param.what; });

TEST_F(WindowControl, TheEndsOfTheRangesPass) {
    Run([&] {
        Enter(kRow + 1, "-7");
        Enter(kRow + 2, "16");
        Enter(kColumn + 1, "-7");
        Enter(kColumn + 2, "73");
        Click(dialog, kApply);
        EXPECT_EQ(Sent().at(1), "k4ssWindowMove(Main, 1, -8, -8)");
        EXPECT_EQ(Sent().at(3), "k4ssWindowMove(Main, 2, 15, 72)");
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ALoneWindowPassesOnlyOnTheGrid) {
    Run([&] {
        for (int column = -8; column <= 80; ++column) {
            rpc.calls.clear();
            Item<QLineEdit>(dialog, kColumn + 1)->setText(QString::number(column));
            const bool onGrid = (column + 7) % 8 == 0;
            if (!onGrid)
                messages.Expect("Columns must be on boundries of 8. (1 based)");
            Item<QPushButton>(dialog, kApply)->click();
            EXPECT_EQ(!Sent().empty(), onGrid) << column;
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AnArrowGoesPastTheLastColumnWhichIsTold) {
    Run([&] {
        for (const char* column : {"65", "73", "80"}) {
            ClickSpin(kColumnSpin + 8, 1);
            EXPECT_EQ(Text(kColumn + 8), column);
        }
        PressKey(dialog, Qt::Key_Tab);
        EXPECT_EQ(Text(kColumn + 8), "81");
        messages.Expect("Enter an integer between -8 and 80.");
        Click(dialog, kOk);
        EXPECT_EQ(messages.Pending(), 0U);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(FocusedId(dialog), kColumn + 8);
        EXPECT_THAT(Sent(), IsEmpty());
        ClickSpin(kColumnSpin + 8, -1);
        EXPECT_EQ(Text(kColumn + 8), "73");
        Click(dialog, kOk);
    });
    EXPECT_EQ(Sent().at(15), "k4ssWindowMove(Main, 8, 0, 72)");
}

TEST_F(WindowControl, RangesAreCheckedWindowByWindowTheRowFirst) {
    Run([&] {
        Enter(kRow + 2, "40");
        Enter(kColumn + 1, "97");
        messages.Expect("Enter an integer between -8 and 80.");
        Click(dialog, kOk);
        EXPECT_EQ(FocusedId(dialog), kColumn + 1);
        Enter(kRow + 1, "41");
        messages.Expect("Enter an integer between -7 and 16.");
        Click(dialog, kOk);
        EXPECT_EQ(FocusedId(dialog), kRow + 1);
        Click(dialog, kCancel);
    });
}

// Grid --------------------------------------------------------------------------------------------

TEST_F(WindowControl, AnEvenRowOnAQuadSignIsToldAndTheDialogStaysOpen) {
    MainSign(64, 80, kQuad);
    Window(6).row = 4;
    Run([&] {
        const auto refuse = [&](const auto& press) {
            messages.Expect("For Quad color signs, row must be on odd boundry");
            press();
            EXPECT_EQ(messages.Pending(), 0U);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(FocusedId(dialog), kRow + 6);
            EXPECT_EQ(Text(kRow + 6), "4");
            EXPECT_THAT(rpc.calls, IsEmpty());
        };
        refuse([&] { Click(dialog, kApply); });
        refuse([&] { PressKey(dialog, Qt::Key_Return); });
        // Left, the field puts itself right.
        PressKey(dialog, Qt::Key_Tab);
        EXPECT_EQ(Text(kRow + 6), "5");
        Click(dialog, kApply);
        EXPECT_EQ(rpc.Count("k4ssWindowMove"), 8U);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ANegativeOddRowPassesOnAQuadSign) {
    MainSign(64, 80, kQuad);
    Window(6).row = -5;
    EXPECT_EQ(Run([&] { Click(dialog, kOk); }), IDOK);
    EXPECT_EQ(Sent().at(11), "k4ssWindowMove(Main, 6, -6, 40)");
}

TEST_F(WindowControl, AColumnOffTheGridIsToldAndTheDialogStaysOpen) {
    for (const int color : {kMono, kQuad}) {
        MainSign(64, 80, color);
        Window(7).column = 50;
        CK4CmnDlgWindowControl other("North", "Main", nullptr);
        Run(other, [&] {
            messages.Expect("Columns must be on boundries of 8. (1 based)");
            Click(other, kOk);
            EXPECT_EQ(messages.Pending(), 0U);
            EXPECT_TRUE(other.isVisible());
            EXPECT_EQ(FocusedId(other), kColumn + 7);
            EXPECT_THAT(rpc.calls, IsEmpty());
            other.EndDialog(IDCANCEL);
        });
    }
}

TEST_F(WindowControl, TwoWindowsOffTheGridInOppositeDirectionsPass) {
    Window(1).column = 0;
    Window(2).column = 2;
    EXPECT_EQ(Run([&] { Click(dialog, kOk); }), IDOK);
    EXPECT_EQ(rpc.Count("k4ssWindowEnable"), 8U);
}

TEST_F(WindowControl, TheRangeComesBeforeTheRowsAndTheRowsBeforeTheColumns) {
    MainSign(64, 80, kQuad);
    Window(1).column = 3;
    Window(2).row = 2;
    Window(8).column = 81;
    Run([&] {
        messages.Expect("Enter an integer between -8 and 79.");
        Click(dialog, kApply);
        Enter(kColumn + 8, "57");
        messages.Expect("For Quad color signs, row must be on odd boundry");
        Click(dialog, kApply);
        Enter(kRow + 2, "3");
        messages.Expect("Columns must be on boundries of 8. (1 based)");
        Click(dialog, kApply);
        EXPECT_EQ(messages.Pending(), 0U);
        EXPECT_THAT(Sent(), IsEmpty());
        Click(dialog, kCancel);
    });
}

// Failures ----------------------------------------------------------------------------------------

TEST_F(WindowControl, AServiceOutOfReachOnApplyIsToldAndNothingIsSent) {
    Run([&] {
        rpc.results["k4ssConnectSignAsUser"] = 1;
        messages.Expect("Sign service unavailable.");
        Click(dialog, kApply);
        EXPECT_EQ(messages.Pending(), 0U);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_THAT(rpc.calls, ElementsAre("k4ssIsServer(North)",
                                           "k4ssConnectSignAsUser(North, null, null, null)",
                                           "k4ssDisconnectSign()"));
        rpc.results.clear();
        Click(dialog, kApply);
        EXPECT_EQ(rpc.Count("k4ssWindowEnable"), 8U);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AServiceOutOfReachOnOkIsToldAndTheDialogCloses) {
    EXPECT_EQ(Run([&] {
                  rpc.results["k4ssConnectSignAsUser"] = 1;
                  messages.Expect("Sign service unavailable.");
                  Click(dialog, kOk);
                  EXPECT_EQ(messages.Pending(), 0U);
              }),
              IDOK);
    EXPECT_THAT(Sent(), IsEmpty());
}

// Ends --------------------------------------------------------------------------------------------

TEST_F(WindowControl, CancelAndEscapeSendNothing) {
    EXPECT_EQ(Run([&] {
                  Click(dialog, kEnable + 1);
                  Enter(kRow + 1, "999");
                  Click(dialog, kCancel);
              }),
              IDCANCEL);
    EXPECT_THAT(rpc.calls, IsEmpty());
    EXPECT_EQ(Run([&] { PressKey(dialog, Qt::Key_Escape); }), IDCANCEL);
    EXPECT_THAT(rpc.calls, IsEmpty());
}

TEST_F(WindowControl, EnterInAFieldIsOkWithTheNumberAsItStands) {
    EXPECT_EQ(Run([&] {
                  TypeOver(dialog, kColumn + 1, QStringLiteral("5"));
                  messages.Expect("Columns must be on boundries of 8. (1 based)");
                  PressKey(dialog, Qt::Key_Return);
                  EXPECT_EQ(messages.Pending(), 0U);
                  EXPECT_TRUE(dialog.isVisible());
                  TypeOver(dialog, kColumn + 1, QStringLiteral("9"));
                  PressKey(dialog, Qt::Key_Return);
              }),
              IDOK);
    EXPECT_EQ(Sent().at(1), "k4ssWindowMove(Main, 1, 0, 8)");
}

TEST_F(WindowControl, LaterChangesOnTheSignAreNotFollowed) {
    Run([&] {
        MainSign(8, 8, kQuad);
        Sign("Tick", 1, 8);
        Window(1) = {"clock", 1, 4, 17};
        Click(dialog, kApply);
        EXPECT_EQ(rpc.Count("k4ssGetConfig"), 0U);
        EXPECT_EQ(rpc.Count("k4ssListWindows"), 0U);
        EXPECT_EQ(rpc.Count("k4ssListSigns"), 0U);
        EXPECT_EQ(Sent().at(0), "k4ssWindowEnable(Main, 1, 0)");
        EXPECT_EQ(Sent().at(1), "k4ssWindowMove(Main, 1, 0, 0)");
        EXPECT_FALSE(Item<QCheckBox>(dialog, kEnable + 1)->isChecked());
        const auto* sign = Item<QComboBox>(dialog, kWindowSign + 1);
        EXPECT_EQ(sign->currentText().toStdString(), "Tick");
        EXPECT_EQ(Text(kRow + 1), "1");
        EXPECT_EQ(Text(kColumn + 1), "1");
        EXPECT_EQ(Spin(kRowSpin + 1)->Lower(), -7);
        EXPECT_EQ(Spin(kRowSpin + 1)->Upper(), 16);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, OpenedAgainItReadsAgain) {
    Run([&] {
        Enter(kRow + 1, "9");
        Click(dialog, kCancel);
    });
    Window(1).row = 4;
    Run([&] {
        EXPECT_EQ(Text(kRow + 1), "4");
        EXPECT_EQ(Item<QComboBox>(dialog, kWindowSign + 1)->count(), 4);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, OpenedAgainOnASignThatCantBeReadItShowsNothingOfBefore) {
    Window(1).open = 1;
    Run([&] { Click(dialog, kCancel); });
    configs.clear();
    windowsFail = true;
    Run([&] {
        EXPECT_FALSE(Item<QCheckBox>(dialog, kEnable + 1)->isChecked());
        EXPECT_EQ(Text(kColumn + 2), "0");
        EXPECT_EQ(Spin(kRowSpin + 1)->Lower(), 1);
        EXPECT_EQ(Spin(kRowSpin + 1)->Upper(), 7);
        Click(dialog, kCancel);
    });
}

}  // namespace
}  // namespace k4test
