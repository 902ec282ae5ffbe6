#include "k4cmndlg/smalldlg/CK4CmnDlgDate.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/search/FindPagesFixture.h"

namespace k4test {
namespace {

using k4cmn::CalendarDay;
using testing::ElementsAre;

/// The page "Size" with its dates enabled, on 15 January 2027, UTC.
class FindDates : public FindPages {
 protected:
    void SetUp() override {
        FindPages::SetUp();
        Open(kSize);
        Click(sheet, kModified);
    }
    /// Presses a key in a date, which opens the calendar, and does the steps in that.
    void TypeAndPick(int date, const std::function<void(CK4CmnDlgDate&)>& steps) {
        Of<QWidget>(date)->setFocus();
        InDialog<CK4CmnDlgDate>([&] { PressKey(sheet, Qt::Key_5); }, steps);
    }
    /// Picks a day in the calendar that a key opens.
    void Pick(int date, int day, int month, int year) {
        TypeAndPick(date, [&](CK4CmnDlgDate& dialog) {
            calendars.last->Pick(day, month, year);
            Click(dialog, IDOK);
        });
    }
    void PressWithoutCalendar(int date, Qt::Key key) {
        const int asked = calendars.asked;
        Of<QWidget>(date)->setFocus();
        PressKey(sheet, key);
        EXPECT_EQ(calendars.asked, asked) << "no calendar";
    }

    ScopedTimeZone zone{"UTC"};
};

TEST_F(FindDates, TheFirstChangeOpensTheCalendarAtTheStoredDate) {
    TypeAndPick(kFirstDate, [&](CK4CmnDlgDate& dialog) {
        EXPECT_THAT(calendars.last->calls,
                    ElementsAre("SetDay(17)", "SetMonth(10)", "SetYear(2026)"));
        Click(dialog, IDCANCEL);
    });
    TypeAndPick(kLastDate, [&](CK4CmnDlgDate& dialog) {
        EXPECT_THAT(calendars.last->calls,
                    ElementsAre("SetDay(15)", "SetMonth(1)", "SetYear(2027)"));
        Click(dialog, IDCANCEL);
    });
}

TEST_F(FindDates, TheCalendarOpensAtTheBottomLeftCornerOfTheEdit) {
    sheet.move(100, 60);
    for (const int date : {kFirstDate, kLastDate}) {
        TypeAndPick(date, [&](CK4CmnDlgDate& dialog) {
            const auto* edit = Of<QWidget>(date);
            EXPECT_EQ(dialog.pos(), edit->mapToGlobal(QPoint(0, edit->height()))) << date;
            Click(dialog, IDCANCEL);
        });
        PressWithoutCalendar(date, Qt::Key_1);
    }
}

TEST_F(FindDates, OkStoresTheDayAndWritesIt) {
    Pick(kFirstDate, 9, 3, 2026);
    EXPECT_EQ(Text(kFirstDate), " 3/ 9/2026");
    EXPECT_EQ(sheet.size.m_firstDate, (CalendarDay{9, 3, 2026}));
    EXPECT_EQ(sheet.size.m_lastDate, (CalendarDay{15, 1, 2027}));
    Pick(kLastDate, 31, 12, 2026);
    EXPECT_EQ(Text(kLastDate), "12/31/2026");
    EXPECT_EQ(sheet.size.m_lastDate, (CalendarDay{31, 12, 2026}));
    EXPECT_EQ(sheet.size.m_firstDate, (CalendarDay{9, 3, 2026}));
}

TEST_F(FindDates, WhatOkWritesOpensNoCalendarAndTheNextChangeDoes) {
    for (int round = 0; round < 3; ++round) {
        const int asked = calendars.asked;
        Pick(kFirstDate, 1 + round, 3, 2026);
        EXPECT_EQ(calendars.asked, asked + 1);
    }
    EXPECT_EQ(sheet.size.m_firstDate, (CalendarDay{3, 3, 2026}));
}

TEST_F(FindDates, TheTextThatIsThereAlreadyIsWrittenLikeAnyOther) {
    // A person takes away and puts back what makes the text that OK writes.
    auto* edit = Of<QLineEdit>(kFirstDate);
    InDialog<CK4CmnDlgDate>([&] { edit->setText(QStringLiteral(" 3/ 9/2026")); },
                            [&](CK4CmnDlgDate& dialog) {
                                calendars.last->Pick(9, 3, 2026);
                                Click(dialog, IDOK);
                            });
    EXPECT_EQ(Text(kFirstDate), " 3/ 9/2026");
    Pick(kFirstDate, 10, 3, 2026);
    EXPECT_EQ(Text(kFirstDate), " 3/10/2026") << "the first change behind it opened";
}

TEST_F(FindDates, CancelLeavesWhatWasTypedAndTheStoredDate) {
    auto* edit = Of<QLineEdit>(kLastDate);
    edit->setFocus();
    edit->end(false);
    TypeAndPick(kLastDate, [&](CK4CmnDlgDate& dialog) {
        calendars.last->Pick(1, 2, 2003);
        Click(dialog, IDCANCEL);
    });
    EXPECT_EQ(Text(kLastDate), " 1/15/20275");
    EXPECT_EQ(sheet.size.m_lastDate, (CalendarDay{15, 1, 2027}));
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.size.m_lastDate, (CalendarDay{15, 1, 2027}));
    EXPECT_TRUE(sheet.size.UpdateData(false));
    ClickTab(kName);
    ClickTab(kSize);
    EXPECT_EQ(Text(kLastDate), " 1/15/20275") << "also when the page comes back";
}

TEST_F(FindDates, AfterCancelOneChangeIsPassedOver) {
    const auto cancel = [](CK4CmnDlgDate& dialog) { Click(dialog, IDCANCEL); };
    TypeAndPick(kFirstDate, cancel);
    PressWithoutCalendar(kFirstDate, Qt::Key_7);
    TypeAndPick(kFirstDate, cancel);
    PressWithoutCalendar(kFirstDate, Qt::Key_Backspace);
    TypeAndPick(kFirstDate, cancel);
}

TEST_F(FindDates, EachDateHasAGuardOfItsOwn) {
    const auto cancel = [](CK4CmnDlgDate& dialog) { Click(dialog, IDCANCEL); };
    TypeAndPick(kFirstDate, cancel);
    TypeAndPick(kLastDate, cancel);
    PressWithoutCalendar(kFirstDate, Qt::Key_7);
    PressWithoutCalendar(kLastDate, Qt::Key_7);
}

TEST_F(FindDates, AChangeByTheProgramCounts) {
    InDialog<CK4CmnDlgDate>([&] { Of<QLineEdit>(kFirstDate)->clear(); },
                            [](CK4CmnDlgDate& dialog) { Click(dialog, IDCANCEL); });
    EXPECT_EQ(Text(kFirstDate), "");
    EXPECT_EQ(sheet.size.m_firstDate, (CalendarDay{17, 10, 2026}));
}

TEST_F(FindDates, KeysThatChangeNothingOpenNothing) {
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Left, Qt::Key_Tab})
        PressWithoutCalendar(kFirstDate, key);
}

TEST_F(FindDates, ARefusedOkIsNothingForThePage) {
    TypeAndPick(kFirstDate, [&](CK4CmnDlgDate& dialog) {
        calendars.last->Pick(4, 0, 2020);
        messages.Expect(k4cmn::Message{"A month must be selected.", "Date Error"});
        Click(dialog, IDOK);
        Click(dialog, IDCANCEL);
    });
    EXPECT_EQ(sheet.size.m_firstDate, (CalendarDay{17, 10, 2026}));
}

TEST_F(FindDates, WithoutACalendarItTells) {
    calendars.fails = true;
    messages.Expect(k4cmn::Message{
        "Failed to create Date dialog.\n\nCheck to make sure the file MSCAL.OCX is in "
        "the \\WinNT\\System32 directory.",
        "Dialog Error"});
    Of<QLineEdit>(kFirstDate)->setFocus();
    PressKey(sheet, Qt::Key_5);
    EXPECT_EQ(sheet.size.m_firstDate, (CalendarDay{17, 10, 2026}));
    PressKey(sheet, Qt::Key_5);
    calendars.fails = false;
    Pick(kFirstDate, 9, 3, 2026);
    EXPECT_EQ(Text(kFirstDate), " 3/ 9/2026");
}

TEST_F(FindDates, TheGuardsAreArmedAtEveryStartOfTheSheet) {
    TypeAndPick(kFirstDate, [](CK4CmnDlgDate& dialog) { Click(dialog, IDCANCEL); });
    for (int start = 0; start < 2; ++start) {
        sheet.DestroyWindow();
        Open(kSize);
        Click(sheet, kModified);
        EXPECT_EQ(Text(kFirstDate), "10/17/2026");
        Pick(kFirstDate, 9, 3, 2026);
        EXPECT_EQ(Text(kFirstDate), " 3/ 9/2026");
    }
}

TEST_F(FindDates, AYearOfZeroIsNeverStored) {
    TypeAndPick(kLastDate, [&](CK4CmnDlgDate& dialog) {
        calendars.last->Pick(4, 5, 0);
        messages.Expect(k4cmn::Message{"A year must be selected.", "Date Error"});
        Click(dialog, IDOK);
        calendars.last->Pick(4, 5, 1999);
        Click(dialog, IDOK);
    });
    EXPECT_EQ(sheet.size.m_lastDate, (CalendarDay{4, 5, 1999}));
    EXPECT_EQ(Text(kLastDate), " 5/ 4/1999");
}

TEST_F(FindDates, ASheetThatGoesTakesItsCalendarAlong) {
    const QPointer<FindSheet> going = new FindSheet;
    ASSERT_EQ(going->Create(), 1);
    ASSERT_EQ(going->SetActivePage(kSize), 1);
    going->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(going));
    Click(*going, kModified);
    Item<QWidget>(*going, kFirstDate)->setFocus();
    InDialog<CK4CmnDlgDate>([&] { PressKey(*going, Qt::Key_5); },
                            [&](CK4CmnDlgDate&) { delete going.data(); });
    EXPECT_TRUE(going.isNull());
}

}  // namespace
}  // namespace k4test
