#include <gtest/gtest.h>

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
#include "k4cmndlg/filesel/CK4CmnDlgK4FileTree.h"
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

}  // namespace
