#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QMenu>
#include <QStatusBar>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <memory>

#include "apps/workbench/FileDialogs.h"
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/QuickTreeHost.h"
#include "apps/workbench/TourHands.h"
#include "k4cmndlg/filesel/CK4CmnDlgK4FileTree.h"
#include "k4cmndlg/search/CK4CmnDlgFind.h"
#include "k4cmndlg/search/FoundListWidget.h"
#include "suite/EmbeddedSuite.h"
#include "suite/remoteservice/RemoteEngine.h"
#include "suite/sample/SampleData.h"
#include "suite/store/FolderFiles.h"
#include "suite/ui/SuiteWindows.h"
#include "tests/support/TempFolder.h"

using workbench::MainWindow;

namespace {

class FilesMenu : public testing::Test {
 protected:
    void SetUp() override {
        std::string problem;
        ASSERT_TRUE(k4suite::SeedSampleData(home, &problem)) << problem;
        suite = std::make_unique<k4suite::EmbeddedSuite>(home, "test");
        window = std::make_unique<MainWindow>(*suite);
        window->show();
    }
    QAction* PhoneEntry() const {
        const auto* menu = window->findChild<QMenu*>(QStringLiteral("phone"));
        return menu && !menu->isEmpty() ? menu->actions().first() : nullptr;
    }
    QString PhoneText() const {
        Q_EMIT window->findChild<QMenu*>(QStringLiteral("phone"))->aboutToShow();
        return PhoneEntry()->text();
    }

    const k4test::TempFolder folder;
    const k4suite::DataHome home{folder / "home"};
    k4suite::SuiteWindows windows;
    std::unique_ptr<k4suite::EmbeddedSuite> suite;
    std::unique_ptr<MainWindow> window;
};

TEST_F(FilesMenu, EveryDialogOverFilesHasAnEntry) {
    for (const workbench::DialogEntry& entry : workbench::FileDialogs()) {
        ASSERT_NE(window->DialogAction(entry.name), nullptr) << entry.name;
        EXPECT_TRUE(window->DialogAction(entry.name)->isEnabled()) << entry.name;
    }
    ASSERT_TRUE(window->SelectSign("North Tower", ""));
    for (const workbench::DialogEntry& entry : workbench::FileDialogs())
        EXPECT_EQ(window->DialogAction(entry.name)->isEnabled(), !entry.needsSign) << entry.name;
}

TEST_F(FilesMenu, ThePhoneBookEntryIsDialledAndHungUp) {
    k4suite::RemoteEngine& engine = *suite->Remote();
    ASSERT_NE(PhoneEntry(), nullptr);
    EXPECT_EQ(PhoneText(), QStringLiteral("Hilltop"));
    PhoneEntry()->trigger();
    EXPECT_EQ(PhoneText(), QStringLiteral("Hilltop (dialing…)"));
    EXPECT_FALSE(PhoneEntry()->isChecked());
    PhoneEntry()->trigger();
    EXPECT_EQ(PhoneText(), QStringLiteral("Hilltop")) << "dialing is stopped";

    engine.SetDialingTime(std::chrono::milliseconds(0));
    PhoneEntry()->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return engine.Links().size() == 1; }));
    EXPECT_EQ(PhoneText(), QStringLiteral("Hilltop (connected)"));
    EXPECT_TRUE(PhoneEntry()->isChecked());
    PhoneEntry()->trigger();
    EXPECT_TRUE(engine.Links().empty());
}

TEST_F(FilesMenu, AFailedCallIsTold) {
    k4suite::RemoteEngine& engine = *suite->Remote();
    engine.SetDialingTime(std::chrono::milliseconds(0));
    ASSERT_TRUE(engine.SetLineFault("Hilltop", k4suite::LineFault::Busy));
    PhoneEntry()->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return PhoneText() == QStringLiteral("Hilltop (busy)"); }));
}

TEST_F(FilesMenu, TheQuickTreePicksAFileAndCloses) {
    const std::string path = "A:\\64x192.RGB16M.LED.Sign\\Default.Lib\\Tick.SQ4";
    std::ofstream(suite->Files().NativePath(path)) << "x";
    window->DialogAction("QuickFileTree")->trigger();
    const auto* host = window->findChild<workbench::QuickTreeHost*>();
    ASSERT_TRUE(host && host->Tree());
    host->Tree()->SetSelectedFile(path);
    QTest::keyClick(host->Tree()->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return host->Tree() == nullptr; }));
    EXPECT_EQ(window->statusBar()->currentMessage(),
              QStringLiteral("Chosen: ") + QString::fromStdString(path));
}

TEST_F(FilesMenu, TheQuickTreeClosesWhenItIsLeft) {
    window->DialogAction("QuickFileTree")->trigger();
    const auto* host = window->findChild<workbench::QuickTreeHost*>();
    ASSERT_TRUE(host && host->Tree());
    ASSERT_TRUE(QTest::qWaitForWindowActive(host->Tree()));
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return host->Tree() == nullptr; }));
}

// Finding -------------------------------------------------------------------------------------

constexpr int kFileName = 1104;
constexpr int kLookIn = 1106;
constexpr int kFind = 1160;
constexpr int kResults = 1163;

class FindFilesEntry : public FilesMenu {
 protected:
    /// Opens the search by its entry and hands it to `drive`, which ends it.
    template <class Drive>
    void Search(Drive drive) {
        EXPECT_TRUE(
            workbench::TriggerAndDrive(*window->DialogAction("FindFiles"), [&](QWidget& sheet) {
                EXPECT_EQ(sheet.windowTitle(), QStringLiteral("Find Files"));
                drive(dynamic_cast<CK4CmnDlgFind&>(sheet));
            }));
    }
    /// Searches by name. @return the list of results.
    static k4cmn::FoundListWidget& Find(CK4CmnDlgFind& sheet, const char* name) {
        workbench::Type(sheet, kFileName, QLatin1String(name));
        workbench::Click(sheet, kFind);
        return *qobject_cast<k4cmn::FoundListWidget*>(sheet.GetDlgItem(kResults));
    }
    QString Told() const { return window->statusBar()->currentMessage(); }
};

TEST_F(FindFilesEntry, LooksInAllServersAndTellsWhatWasChosen) {
    const std::string path = "\\\\STORE\\SIGNS\\64x192.RGB16M.LED.Sign\\Default.Lib\\Tick.SD4";
    const std::filesystem::path native = suite->Files().NativePath(path);
    std::filesystem::create_directories(native.parent_path());
    std::ofstream(native) << "x";
    Search([](CK4CmnDlgFind& sheet) {
        EXPECT_EQ(workbench::FieldText(sheet, kLookIn), QStringLiteral("File Servers\\"));
        k4cmn::FoundListWidget& list = Find(sheet, "Tick.*");
        list.SelectRow(0);
        QTest::keyClick(list.findChild<QAbstractItemView*>(), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet.isVisible(); }));
    });
    EXPECT_EQ(Told(), QStringLiteral("Chosen: ") + QString::fromStdString(path));
}

TEST_F(FindFilesEntry, WithoutAFileNothingIsChosen) {
    Search([](CK4CmnDlgFind& sheet) { workbench::Click(sheet, IDCANCEL); });
    EXPECT_EQ(Told(), QStringLiteral("Nothing was chosen"));
    // A double click beside all rows ends the search too.
    window->statusBar()->clearMessage();
    Search([](CK4CmnDlgFind& sheet) {
        QWidget* place = Find(sheet, "none.*").findChild<QAbstractItemView*>()->viewport();
        QTest::mouseDClick(place, Qt::LeftButton, {}, place->rect().center());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet.isVisible(); }));
    });
    EXPECT_EQ(Told(), QStringLiteral("Nothing was chosen"));
}

}  // namespace
