#include "apps/workbench/MainWindow.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QTreeWidget>
#include <memory>
#include <string>
#include <vector>

#include "apps/parts/SignView.h"
#include "apps/workbench/DialogMenu.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/EmbeddedSuite.h"
#include "suite/sample/SampleData.h"
#include "suite/signservice/ServicesLock.h"
#include "suite/signservice/SignEngine.h"
#include "tests/support/TempFolder.h"

using k4cmn::FromQt;
using k4suite::EmbeddedSuite;
using k4suite::Fault;
using parts::SignView;
using workbench::MainWindow;

namespace {

class MainWindowTest : public testing::Test {
 protected:
    void SetUp() override {
        std::string problem;
        ASSERT_TRUE(k4suite::SeedSampleData(home, &problem)) << problem;
        suite = std::make_unique<EmbeddedSuite>(home, "test");
    }

    QTreeWidget* Tree(MainWindow& window) const {
        return window.findChild<QTreeWidget*>(QStringLiteral("signs"));
    }
    SignView* View(MainWindow& window) const {
        return window.findChild<SignView*>(QStringLiteral("picture"));
    }
    QMenu* FaultMenu(MainWindow& window) const {
        return window.findChild<QMenu*>(QStringLiteral("machine"));
    }

    const k4test::TempFolder folder;
    const k4suite::DataHome home{folder / "home"};
    std::unique_ptr<EmbeddedSuite> suite;
};

TEST_F(MainWindowTest, TheFirstSignIsChosenAndShownLive) {
    MainWindow window(*suite);
    EXPECT_EQ(window.Service(), "Local");
    EXPECT_FALSE(window.Sign().empty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !View(window)->Picture().isNull(); }));
}

TEST_F(MainWindowTest, DialogsOfASignNeedASign) {
    MainWindow window(*suite);
    for (const workbench::DialogEntry& entry : workbench::Dialogs())
        EXPECT_TRUE(window.DialogAction(entry.name)->isEnabled()) << entry.name;
    ASSERT_TRUE(window.SelectSign("North Tower", ""));
    for (const workbench::DialogEntry& entry : workbench::Dialogs())
        EXPECT_EQ(window.DialogAction(entry.name)->isEnabled(), !entry.needsSign) << entry.name;
    EXPECT_EQ(View(window)->Words(), QStringLiteral("Choose a sign."));
}

TEST_F(MainWindowTest, RefreshKeepsTheChosenSign) {
    MainWindow window(*suite);
    ASSERT_TRUE(window.SelectSign("North Tower", "Weather"));
    QTest::keyClick(&window, Qt::Key_F5);
    window.RefreshSigns();
    EXPECT_EQ(window.Service(), "North Tower");
    EXPECT_EQ(window.Sign(), "Weather");
}

TEST_F(MainWindowTest, ASignThatCantBeListedIsNotExchangedForAnother) {
    MainWindow window(*suite);
    ASSERT_TRUE(window.SelectSign("North Tower", "Weather"));
    suite->Engine()->SetFault("North Tower", Fault::Unreachable());
    window.RefreshSigns();
    EXPECT_EQ(window.Service(), "North Tower");
    EXPECT_EQ(window.Sign(), "");
    const QTreeWidgetItem* machine = Tree(window)->currentItem();
    ASSERT_EQ(machine->childCount(), 1);
    EXPECT_EQ(machine->child(0)->text(0), QStringLiteral("Sign service unavailable."));
}

TEST_F(MainWindowTest, WithTheFirstMachineDownASignOfTheNextIsChosen) {
    suite->Engine()->SetFault("Local", Fault::Unreachable());
    MainWindow window(*suite);
    EXPECT_NE(window.Service(), "Local");
    EXPECT_FALSE(window.Sign().empty());
}

TEST_F(MainWindowTest, WithoutAnySignThePaneSaysWhatToDo) {
    for (const char* service : {"Local", "North Tower", "Harbour Gate"})
        suite->Engine()->SetFault(service, Fault::Unreachable());
    MainWindow window(*suite);
    EXPECT_EQ(window.Sign(), "");
    EXPECT_EQ(View(window)->Words(), QStringLiteral("Choose a sign."));
}

TEST_F(MainWindowTest, FactsThatCantBeReadAreNotMadeUp) {
    suite->Engine()->SetFault("Local", Fault::FailingStub("k4ssGetConfig"));
    MainWindow window(*suite);
    const QTreeWidgetItem* sign = Tree(window)->topLevelItem(0)->child(0);
    EXPECT_EQ(sign->text(1), QStringLiteral("unknown"));
    EXPECT_EQ(sign->text(2), QString());
}

TEST_F(MainWindowTest, AFailureIsShownInPlaceOfThePictureUntilTheMachineIsBack) {
    MainWindow window(*suite);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !View(window)->Picture().isNull(); }));
    suite->Engine()->SetFault("Local", Fault::Unreachable());
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return View(window)->Words() == QStringLiteral("Sign service unavailable."); }));
    EXPECT_TRUE(View(window)->Picture().isNull());
    EXPECT_TRUE(window.LastLook().picture.isNull());
    suite->Engine()->ClearFaults();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !View(window)->Picture().isNull(); }));
}

TEST_F(MainWindowTest, FaultsAreForAChosenMachine) {
    MainWindow window(*suite);
    QMenu* menu = FaultMenu(window);
    ASSERT_NE(menu, nullptr);
    Q_EMIT menu->aboutToShow();
    QAction* unreachable = menu->actions().first();
    EXPECT_TRUE(unreachable->isEnabled());
    ASSERT_TRUE(window.SelectSign("Harbour Gate", "Ferry"));
    unreachable->trigger();
    CK4CmnSS client;
    std::vector<std::string> signs;
    EXPECT_FALSE(client.GetSignList("Harbour Gate", signs));
    menu->actions().last()->trigger();
    EXPECT_TRUE(client.GetSignList("Harbour Gate", signs));
    Tree(window)->clear();
    Q_EMIT menu->aboutToShow();
    EXPECT_FALSE(unreachable->isEnabled());
}

TEST_F(MainWindowTest, ASecondProcessIsToldWhoRunsTheServices) {
    suite.reset();
    k4suite::ServicesLock holder(home, "other program");
    ASSERT_TRUE(holder.TryAcquire());
    suite = std::make_unique<EmbeddedSuite>(home, "test");
    MainWindow window(*suite);
    EXPECT_EQ(FaultMenu(window), nullptr);
    bool told = false;
    for (const QLabel* label : window.findChildren<QLabel*>())
        told |= label->text().contains(QStringLiteral("other program"));
    EXPECT_TRUE(told);
    EXPECT_EQ(Tree(window)->topLevelItem(0)->child(0)->text(0),
              QStringLiteral("Sign service unavailable."));
}

}  // namespace
