#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QStatusBar>
#include <QTest>
#include <memory>

#include "apps/workbench/MainWindow.h"
#include "apps/workbench/TourHands.h"
#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/smalldlg/CK4CmnDlgFontSel.h"
#include "k4cmndlg/smalldlg/contracts/K4CalendarCtrl.h"
#include "suite/EmbeddedSuite.h"
#include "suite/sample/SampleData.h"
#include "suite/ui/SuiteWindows.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/TempFolder.h"

// The small dialogs in the workbench's menu.

namespace {

constexpr int kCalendar = 1145;

class SmallDialogsMenu : public testing::Test {
 protected:
    void SetUp() override {
        std::string problem;
        ASSERT_TRUE(k4suite::SeedSampleData(home, &problem)) << problem;
        suite = std::make_unique<k4suite::EmbeddedSuite>(home, "test");
        window = std::make_unique<workbench::MainWindow>(*suite);
        window->show();
    }
    /// Opens a dialog by its entry and hands it to `drive`, which ends it.
    template <class Drive>
    void Open(const char* name, Drive drive) {
        EXPECT_TRUE(workbench::TriggerAndDrive(*window->DialogAction(name), drive)) << name;
    }
    std::string Told() const { return window->statusBar()->currentMessage().toStdString(); }

    const k4test::TempFolder folder;
    const k4suite::DataHome home{folder / "home"};
    k4suite::SuiteWindows windows;
    std::unique_ptr<k4suite::EmbeddedSuite> suite;
    std::unique_ptr<workbench::MainWindow> window;
};

TEST_F(SmallDialogsMenu, AQuickMessageOpens) {
    for (const int end : {IDOK, IDCANCEL})
        Open("CK4CmnDlgQuickMsg", [end](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Quick Message"));
            workbench::Click(dialog, end);
        });
}

TEST_F(SmallDialogsMenu, TheChosenFontIsTold) {
    Open("CK4CmnDlgFontSel", [](QWidget& dialog) {
        auto& fonts = dynamic_cast<CK4CmnDlgFontSel&>(dialog);
        QFont font(QStringLiteral("Liberation Sans"));
        font.setPixelSize(21);
        font.setBold(true);
        fonts.setCurrentFont(font);
        fonts.accept();
    });
    EXPECT_EQ(Told().substr(0, 8), "Chosen: ");
    EXPECT_NE(Told().find(", weight 700"), std::string::npos) << Told();
    Open("CK4CmnDlgFontSel",
         [](QWidget& dialog) { dynamic_cast<CK4CmnDlgFontSel&>(dialog).reject(); });
    EXPECT_EQ(Told(), "Nothing was chosen");
}

TEST_F(SmallDialogsMenu, ADateBeginsWithTodayAndIsTold) {
    k4test::DrivenClock clock;  // 15 January 2027
    const k4cmn::ScopedProvider<k4cmn::Clock> useClock(clock);
    Open("CK4CmnDlgDate", [](QWidget& dialog) {
        auto* calendar = dynamic_cast<K4CalendarCtrl*>(workbench::Control(dialog, kCalendar));
        ASSERT_NE(calendar, nullptr);
        EXPECT_EQ(calendar->GetDay(), 15);
        EXPECT_EQ(calendar->GetMonth(), 1);
        EXPECT_EQ(calendar->GetYear(), 2027);
        calendar->SetDay(9);
        workbench::Click(dialog, IDOK);
    });
    EXPECT_EQ(Told(), "Chosen: 2027-01-09");
    Open("CK4CmnDlgDate", [](QWidget& dialog) { workbench::Click(dialog, IDCANCEL); });
    EXPECT_EQ(Told(), "Nothing was chosen");
}

/// Where no calendar can be made.
class NoCalendars final : public k4cmn::Calendars {
 public:
    K4CalendarCtrl* Create(QWidget*) override { return nullptr; }
};

TEST_F(SmallDialogsMenu, WithoutACalendarThatIsSaid) {
    NoCalendars none;
    const k4cmn::ScopedProvider<k4cmn::Calendars> use(none);
    k4test::MessageQueue messages;
    messages.Expect(k4cmn::Message{
        "Failed to create Date dialog.\n\nCheck to make sure the file MSCAL.OCX is in "
        "the \\WinNT\\System32 directory.",
        "Dialog Error"});
    window->DialogAction("CK4CmnDlgDate")->trigger();
    EXPECT_EQ(Told(), "Nothing was chosen");
}

}  // namespace
