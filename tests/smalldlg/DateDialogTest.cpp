#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QWhatsThis>
#include <memory>

#include "k4cmndlg/frame/DialogFrame.h"
#include "k4cmndlg/smalldlg/CK4CmnDlgDate.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RecordingHelpSystem.h"
#include "tests/support/ScriptedCalendars.h"

namespace k4test {
namespace {

using k4cmn::Message;
using k4cmn::MessageButtons;
using k4cmn::MessageIcon;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kCalendar = 1145;

Message DateError(const char* text) {
    return {text, "Date Error", MessageButtons::Ok, MessageIcon::Exclamation};
}

/// The dialog "Select Date" with a scripted calendar.
class DateDialog : public testing::Test {
 protected:
    ~DateDialog() override { QWhatsThis::leaveWhatsThisMode(); }

    /// Runs the dialog and the steps in it. The calendar's calls on opening are kept.
    template <class Steps>
    int Run(Steps steps) {
        return RunModal(m_dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
            steps();
        });
    }
    ScriptedCalendar& Calendar() { return *m_calendars.last; }
    std::vector<int> Date() const {
        return {m_dialog.GetDay(), m_dialog.GetMonth(), m_dialog.GetYear()};
    }

    MessageQueue m_messages;
    RecordingHelpSystem m_help;
    k4cmn::ScopedProvider<k4cmn::HelpSystem> m_useHelp{m_help};
    ScriptedCalendars m_calendars;
    CK4CmnDlgDate m_dialog{nullptr};
};

TEST_F(DateDialog, IsTemplate116WithItsTitle) {
    EXPECT_EQ(m_dialog.ResourceId(), 116U);
    EXPECT_EQ(m_dialog.windowTitle().toStdString(), "Select Date");
    EXPECT_EQ(TextOf(m_dialog, kOk), "OK");
    EXPECT_EQ(TextOf(m_dialog, kCancel), "Cancel");
}

TEST_F(DateDialog, MakesItsCalendarWithItsWindow) {
    EXPECT_EQ(m_calendars.asked, 0);
    EXPECT_EQ(Run([&] {
                  EXPECT_EQ(Item<K4CalendarCtrl>(m_dialog, kCalendar), m_calendars.last);
                  EXPECT_TRUE(Calendar().isVisible());
                  EXPECT_EQ(Calendar().window(), &m_dialog);
                  Click(m_dialog, kCancel);
              }),
              IDCANCEL);
    EXPECT_EQ(m_calendars.asked, 1);
}

TEST_F(DateDialog, SetsDayThenMonthThenYear) {
    m_dialog.SetStartDate(31, 3, 2024);
    Run([&] {
        EXPECT_THAT(Calendar().calls, ElementsAre("SetDay(31)", "SetMonth(3)", "SetYear(2024)"));
        Click(m_dialog, kCancel);
    });
}

TEST_F(DateDialog, WithoutADateTheCalendarIsGivenNone) {
    Run([&] {
        EXPECT_THAT(Calendar().calls, ElementsAre("SetDay(0)", "SetMonth(0)", "SetYear(0)"));
        Click(m_dialog, kCancel);
    });
}

TEST_F(DateDialog, OpensAgainWithTheSameCalendar) {
    m_dialog.SetStartDate(1, 2, 2003);
    Run([&] { Click(m_dialog, kOk); });
    const K4CalendarCtrl* const first = m_calendars.last;
    Calendar().calls.clear();
    m_dialog.SetStartDate(4, 5, 2006);
    Run([&] {
        EXPECT_EQ(m_calendars.last, first);
        EXPECT_THAT(Calendar().calls, ElementsAre("SetDay(4)", "SetMonth(5)", "SetYear(2006)"));
        Click(m_dialog, kOk);
    });
    EXPECT_EQ(m_calendars.asked, 1);
    EXPECT_THAT(Date(), ElementsAre(4, 5, 2006));
}

// The place --------------------------------------------------------------------------------------

struct Place {
    const char* what;
    int x, y;
    int openedX, openedY;
};

class DateDialogPlace : public DateDialog, public testing::WithParamInterface<Place> {};

TEST_P(DateDialogPlace, OpensThere) {
    m_dialog.SetStartLocation(GetParam().x, GetParam().y);
    Run([&] {
        EXPECT_EQ(m_dialog.pos(), QPoint(GetParam().openedX, GetParam().openedY));
        Click(m_dialog, kCancel);
    });
}

INSTANTIATE_TEST_SUITE_P(Places, DateDialogPlace,
                         testing::Values(Place{"None", 0, 0, 0, 0},
                                         Place{"Inside", 120, 300, 120, 300},
                                         Place{"AtTheLimit", 2000, 2000, 2000, 2000},
                                         Place{"BehindItOnX", 2001, 300, 0, 300},
                                         Place{"BehindItOnY", 300, 2001, 300, 0},
                                         Place{"BehindItOnBoth", 2001, 2001, 0, 0},
                                         Place{"FarBehind", 2147483647, 40, 0, 40},
                                         Place{"LeftOfTheScreen", -30, 50, -30, 50},
                                         Place{"AboveTheScreen", 50, -30, 50, -30}),
                         [](const auto& row) { return row.param.what; });

TEST_F(DateDialog, ItsSizeStaysWhereverItOpens) {
    QSize size;
    Run([&] {
        size = m_dialog.size();
        Click(m_dialog, kCancel);
    });
    EXPECT_GE(size.width(), 240);
    EXPECT_GE(size.height(), 180);
    m_dialog.SetStartLocation(2001, 700);
    Run([&] {
        EXPECT_EQ(m_dialog.size(), size);
        Click(m_dialog, kCancel);
    });
}

TEST_F(DateDialog, IsTopMostAndHasTheQuestionMark) {
    EXPECT_FALSE(m_dialog.windowFlags() & Qt::WindowStaysOnTopHint);
    Run([&] {
        EXPECT_TRUE(m_dialog.windowFlags() & Qt::WindowStaysOnTopHint);
        EXPECT_TRUE(m_dialog.windowFlags() & Qt::WindowContextHelpButtonHint);
        EXPECT_TRUE(m_dialog.isModal());
        Click(m_dialog, kCancel);
    });
}

// OK ---------------------------------------------------------------------------------------------

TEST_F(DateDialog, OkReadsTheDateAndCloses) {
    m_dialog.SetStartDate(1, 2, 2003);
    EXPECT_EQ(Run([&] {
                  Calendar().Pick(29, 2, 2024);
                  EXPECT_EQ(Calendar().reads, 0);
                  Click(m_dialog, kOk);
              }),
              IDOK);
    EXPECT_THAT(Date(), ElementsAre(29, 2, 2024));
    EXPECT_EQ(Calendar().reads, 3);
}

struct Refusal {
    const char* what;
    std::vector<int> picked;
    const char* words;
    int reads;
    std::vector<int> stored;
};

class DateDialogRefusal : public DateDialog, public testing::WithParamInterface<Refusal> {};

TEST_P(DateDialogRefusal, OkTellsAndStaysOpenWithWhatWasRead) {
    m_dialog.SetStartDate(1, 2, 2003);
    const std::vector<int>& picked = GetParam().picked;
    m_messages.Expect(DateError(GetParam().words), k4cmn::MessageAnswer::Ok,
                      [&] { EXPECT_EQ(Date(), GetParam().stored); });
    EXPECT_EQ(Run([&] {
                  Calendar().Pick(picked[0], picked[1], picked[2]);
                  Click(m_dialog, kOk);
                  EXPECT_EQ(m_messages.Pending(), 0U);
                  EXPECT_TRUE(m_dialog.isVisible());
                  EXPECT_EQ(Calendar().reads, GetParam().reads);
                  EXPECT_EQ(Date(), GetParam().stored);
                  Click(m_dialog, kCancel);
              }),
              IDCANCEL);
    EXPECT_EQ(Date(), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(
    Pieces, DateDialogRefusal,
    testing::Values(Refusal{"NoDay", {0, 5, 2010}, "A day must be selected.", 1, {0, 2, 2003}},
                    Refusal{"NoMonth", {9, 0, 2010}, "A month must be selected.", 2, {9, 0, 2003}},
                    Refusal{"NoYear", {9, 5, 0}, "A year must be selected.", 3, {9, 5, 0}},
                    Refusal{"Nothing", {0, 0, 0}, "A day must be selected.", 1, {0, 2, 2003}},
                    Refusal{"DayAlone", {9, 0, 0}, "A month must be selected.", 2, {9, 0, 2003}},
                    Refusal{"NoDayNorYear", {0, 5, 0}, "A day must be selected.", 1, {0, 2, 2003}}),
    [](const auto& row) { return row.param.what; });

TEST_F(DateDialog, ARefusedOkCanBePressedAgain) {
    m_messages.Expect(DateError("A day must be selected."));
    m_messages.Expect(DateError("A year must be selected."));
    EXPECT_EQ(Run([&] {
                  Click(m_dialog, kOk);
                  Calendar().Pick(7, 8, 0);
                  Click(m_dialog, kOk);
                  Calendar().Pick(7, 8, 1999);
                  Click(m_dialog, kOk);
              }),
              IDOK);
    EXPECT_THAT(Date(), ElementsAre(7, 8, 1999));
}

TEST_F(DateDialog, EnterIsOkAndEscapeIsCancel) {
    m_dialog.SetStartDate(1, 2, 2003);
    EXPECT_EQ(Run([&] { PressKey(m_dialog, Qt::Key_Return); }), IDOK);
    EXPECT_EQ(Run([&] {
                  Calendar().Pick(9, 9, 1999);
                  PressKey(m_dialog, Qt::Key_Escape);
              }),
              IDCANCEL);
    EXPECT_THAT(Date(), ElementsAre(1, 2, 2003));
    EXPECT_EQ(Run([&] { m_dialog.close(); }), IDCANCEL);
}

// Double clicks ----------------------------------------------------------------------------------

TEST_F(DateDialog, ADoubleClickIsOk) {
    EXPECT_EQ(Run([&] {
                  Calendar().Pick(3, 4, 2005);
                  QTest::mouseDClick(&Calendar(), Qt::LeftButton);
              }),
              IDOK);
    EXPECT_THAT(Date(), ElementsAre(3, 4, 2005));
}

TEST_F(DateDialog, ADoubleClickWithoutADayTellsSo) {
    m_messages.Expect(DateError("A day must be selected."));
    EXPECT_EQ(Run([&] {
                  QTest::mouseDClick(&Calendar(), Qt::LeftButton);
                  Click(m_dialog, kCancel);
              }),
              IDCANCEL);
}

TEST_F(DateDialog, WithTheCtrlKeyADoubleClickShowsTheAboutBoxInstead) {
    m_dialog.SetStartDate(1, 2, 2003);
    EXPECT_EQ(Run([&] {
                  Calendar().calls.clear();
                  QTest::mouseDClick(&Calendar(), Qt::LeftButton, Qt::ControlModifier);
                  QTest::mouseDClick(&Calendar(), Qt::LeftButton,
                                     Qt::ControlModifier | Qt::ShiftModifier);
                  EXPECT_THAT(Calendar().calls, ElementsAre("AboutBox", "AboutBox"));
                  EXPECT_EQ(Calendar().reads, 0);
                  EXPECT_TRUE(m_dialog.isVisible());
                  Click(m_dialog, kCancel);
              }),
              IDCANCEL);
    EXPECT_THAT(Date(), ElementsAre(1, 2, 2003));
}

TEST_F(DateDialog, OtherKeysMakeNoDifferenceToADoubleClick) {
    m_dialog.SetStartDate(1, 2, 2003);
    for (const Qt::KeyboardModifier key : {Qt::ShiftModifier, Qt::AltModifier}) {
        EXPECT_EQ(Run([&] { QTest::mouseDClick(&Calendar(), Qt::LeftButton, key); }), IDOK);
    }
}

// Help -------------------------------------------------------------------------------------------

TEST_F(DateDialog, HelpOnAControlAsksTheApplicationForThePopupOfItsId) {
    Run([&] {
        const auto popup = [&](int id) {
            return RecordingHelpSystem::Call{m_dialog.GetDlgItem(id), "k4test.hlp", 8,
                                             (116u << 16) + static_cast<unsigned>(id)};
        };
        for (const int id : {kCalendar, kOk, kCancel}) {
            m_help.calls.clear();
            Item<QWidget>(m_dialog, id)->setFocus();
            PressKey(m_dialog, Qt::Key_F1);
            EXPECT_THAT(m_help.calls, ElementsAre(popup(id)));
            m_help.calls.clear();
            PressKey(m_dialog, Qt::Key_F1, Qt::ShiftModifier);
            EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
            QTest::mouseClick(Item<QWidget>(m_dialog, id), Qt::LeftButton);
            EXPECT_THAT(m_help.calls, ElementsAre(popup(id)));
            EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
        }
        EXPECT_TRUE(m_dialog.isVisible());
        Click(m_dialog, kCancel);
    });
}

TEST_F(DateDialog, HelpOnAPartOfTheCalendarIsThatOfTheCalendar) {
    Run([&] {
        auto* part = new QPushButton(&Calendar());
        part->show();
        part->setFocus();
        QTest::keyClick(part, Qt::Key_F1);
        QWhatsThis::enterWhatsThisMode();
        QTest::mouseClick(part, Qt::LeftButton);
        const RecordingHelpSystem::Call popup{&Calendar(), "k4test.hlp", 8, (116u << 16) + 1145};
        EXPECT_THAT(m_help.calls, ElementsAre(popup, popup));
        Click(m_dialog, kCancel);
    });
}

TEST_F(DateDialog, WhatIsNoControlHasNoHelp) {
    Run([&] {
        QTest::keyClick(&Calendar(), Qt::Key_F2);
        QTest::keyClick(&Calendar(), Qt::Key_F1, Qt::ControlModifier);
        QWhatsThis::enterWhatsThisMode();
        QTest::mouseClick(&m_dialog, Qt::LeftButton, {}, QPoint(1, 1));
        EXPECT_THAT(m_help.calls, IsEmpty());
        EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
        Click(m_dialog, kCancel);
    });
}

// Modeless and failing ---------------------------------------------------------------------------

TEST_F(DateDialog, CreateMakesItModelessWithoutAParent) {
    QWidget parent;
    CK4CmnDlgDate dialog(&parent);
    dialog.SetStartDate(5, 6, 2007);
    dialog.SetStartLocation(2001, 60);
    EXPECT_EQ(dialog.Create(), 1);
    EXPECT_EQ(dialog.parentWidget(), nullptr);
    EXPECT_TRUE(dialog.isWindow());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Create(), 0) << "there is a window already";
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_EQ(dialog.pos(), QPoint(0, 60));
    EXPECT_TRUE(dialog.windowFlags() & Qt::WindowStaysOnTopHint);
    m_calendars.last->Pick(8, 9, 2010);
    Click(dialog, kOk);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.GetDay(), 8);
    dialog.DestroyWindow();
}

TEST_F(DateDialog, RunModalItKeepsItsParent) {
    QWidget parent;
    CK4CmnDlgDate dialog(&parent);
    RunModal(dialog, [&] {
        EXPECT_EQ(dialog.parentWidget(), &parent);
        dialog.EndDialog(IDCANCEL);
    });
}

TEST_F(DateDialog, WithoutACalendarItCantBeCreated) {
    m_calendars.fails = true;
    m_dialog.SetStartDate(1, 2, 2003);
    EXPECT_EQ(m_dialog.DoModal(), -1);
    EXPECT_EQ(m_dialog.Create(), 0);
    EXPECT_FALSE(m_dialog.HasWindow());
    EXPECT_FALSE(m_dialog.isVisible());
    EXPECT_THAT(Date(), ElementsAre(1, 2, 2003));
    m_calendars.fails = false;
    EXPECT_EQ(Run([&] { Click(m_dialog, kOk); }), IDOK) << "it is there the next time";
}

TEST(DateDialogAlone, WithNothingInstalledThereIsNoCalendar) {
    ASSERT_EQ(k4cmn::Provided<k4cmn::Calendars>::Install(nullptr), nullptr);
    CK4CmnDlgDate dialog(nullptr);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.Create(), 0);
}

TEST(DateDialogAlone, TellsItsFailureInTheWordsThatAreKnown) {
    MessageQueue messages;
    messages.Expect(
        {"Failed to create Date dialog.\n\nCheck to make sure the file MSCAL.OCX is in "
         "the \\WinNT\\System32 directory.",
         "Dialog Error", MessageButtons::Ok, MessageIcon::Exclamation});
    CK4CmnDlgDate::ShowFailure(nullptr);
}

// Looks ------------------------------------------------------------------------------------------

TEST_F(DateDialog, TheTabKeyGoesFromTheCalendarToTheButtons) {
    Run([&] {
        EXPECT_EQ(FocusedId(m_dialog), kCalendar);
        PressKey(m_dialog, Qt::Key_Tab);
        EXPECT_EQ(FocusedId(m_dialog), kOk);
        PressKey(m_dialog, Qt::Key_Tab);
        EXPECT_EQ(FocusedId(m_dialog), kCancel);
        PressKey(m_dialog, Qt::Key_Tab);
        EXPECT_EQ(FocusedId(m_dialog), kCalendar);
        EXPECT_TRUE(Item<QPushButton>(m_dialog, kOk)->isDefault());
        Click(m_dialog, kCancel);
    });
}

}  // namespace
}  // namespace k4test
