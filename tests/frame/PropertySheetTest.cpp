#include "k4cmndlg/frame/CPropertySheet.h"

#include <gmock/gmock.h>

#include <QCloseEvent>
#include <QComboBox>
#include <memory>

#include "k4cmndlg/frame/StringTable.h"
#include "tests/frame/SheetProbe.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"

using k4test::Click;
using k4test::MessageQueue;
using k4test::PageProbe;
using k4test::RunModal;
using k4test::SheetProbe;
using testing::ElementsAre;

namespace {

/// What a sheet does while it is modeless, with its events of the opening left out.
class ModelessSheet : public testing::Test {
 protected:
    ModelessSheet() {
        EXPECT_EQ(sheet.Create(), 1);
        sheet.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&sheet));
        sheet.events.clear();
    }

    SheetProbe sheet;
};

}  // namespace

TEST(PropertySheet, HasATabForEachPageInTheirOrder) {
    SheetProbe sheet;
    EXPECT_EQ(sheet.GetPageCount(), 3);
    EXPECT_EQ(sheet.GetPage(0), &sheet.one);
    EXPECT_EQ(sheet.GetPage(1), &sheet.two);
    EXPECT_EQ(sheet.GetPage(2), &sheet.three);
    EXPECT_EQ(sheet.GetPage(3), nullptr);
    EXPECT_EQ(sheet.GetPage(-1), nullptr);
    for (int index = 0; index < 3; ++index)
        EXPECT_EQ(sheet.Tabs()->tabText(index), sheet.GetPage(index)->windowTitle());
    EXPECT_EQ(sheet.one.GetSheet(), &sheet);
}

TEST(PropertySheet, APageWithoutASheetHasNone) {
    std::vector<std::string> events;
    const PageProbe page("Lone", 60, events);
    EXPECT_EQ(page.GetSheet(), nullptr);
    EXPECT_FALSE(page.IsActive());
}

TEST(PropertySheet, HasItsTitleByTextOrByNumber) {
    const k4cmn::StringRow rows[] = {{4711, "By number"}};
    const k4cmn::StringModule module(rows);
    const CPropertySheet text("By text", nullptr);
    const CPropertySheet number(4711, nullptr);
    EXPECT_EQ(text.windowTitle().toStdString(), "By text");
    EXPECT_EQ(number.windowTitle().toStdString(), "By number");
}

TEST(PropertySheet, EventsComeInTheirOrder) {
    SheetProbe sheet;
    const int result = RunModal(sheet, [&] {
        EXPECT_TRUE(sheet.one.IsActive());
        EXPECT_TRUE(sheet.one.isVisible());
        Click(sheet, IDOK);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_THAT(sheet.events, ElementsAre("sheet init", "One create", "One init", "One set",
                                          "sheet ok", "sheet destroy", "One destroy"));
    EXPECT_FALSE(sheet.isVisible());
}

struct FirstPage {
    int wanted;
    int shown;
};

class PropertySheetFirstPage : public testing::TestWithParam<FirstPage> {};

TEST_P(PropertySheetFirstPage, IsInFrontAtFirst) {
    SheetProbe sheet(GetParam().wanted);
    EXPECT_EQ(sheet.GetActiveIndex(), -1);
    EXPECT_EQ(sheet.GetActivePage(), nullptr);
    sheet.Create();
    sheet.show();
    EXPECT_EQ(sheet.GetActiveIndex(), GetParam().shown);
    EXPECT_EQ(sheet.GetActivePage(), sheet.GetPage(GetParam().shown));
    EXPECT_EQ(sheet.Tabs()->currentIndex(), GetParam().shown);
    for (int index = 0; index < 3; ++index)
        EXPECT_EQ(sheet.GetPage(index)->isVisible(), index == GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Indices, PropertySheetFirstPage,
                         testing::Values(FirstPage{0, 0}, FirstPage{1, 1}, FirstPage{2, 2},
                                         FirstPage{3, 0}, FirstPage{-1, 0}));

TEST(PropertySheet, ThePageThatIsChosenBeforeItRunsIsTheFirst) {
    SheetProbe sheet;
    EXPECT_EQ(sheet.SetActivePage(2), 1);
    EXPECT_EQ(sheet.SetActivePage(3), 0);
    sheet.Create();
    EXPECT_EQ(sheet.GetActiveIndex(), 2);
}

TEST_F(ModelessSheet, APageIsCreatedWhenItIsFirstShown) {
    sheet.ClickTab(1);
    EXPECT_THAT(sheet.events, ElementsAre("One kill", "Two create", "Two init", "Two set"));
    EXPECT_TRUE(sheet.two.isVisible());
    EXPECT_FALSE(sheet.one.isVisible());
    sheet.events.clear();
    sheet.ClickTab(0);
    EXPECT_THAT(sheet.events, ElementsAre("Two kill", "One set"));
    EXPECT_TRUE(sheet.one.IsActive());
    EXPECT_FALSE(sheet.two.IsActive());
}

TEST_F(ModelessSheet, LeavingAPageReadsItAndComingBackFillsIt) {
    sheet.one.m_field->setText(QStringLiteral("12"));
    sheet.ClickTab(1);
    EXPECT_EQ(sheet.one.value, 12);
    sheet.one.value = 13;
    sheet.ClickTab(0);
    EXPECT_EQ(sheet.one.m_field->text(), QStringLiteral("13"));
}

TEST_F(ModelessSheet, APageThatRefusesStaysInFront) {
    sheet.one.onKill = [&] {
        EXPECT_TRUE(sheet.one.isVisible()) << "in front while it is asked";
        EXPECT_EQ(sheet.Tabs()->currentIndex(), 0);
        return 0;
    };
    sheet.ClickTab(2);
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
    EXPECT_EQ(sheet.Tabs()->currentIndex(), 0);
    EXPECT_TRUE(sheet.one.isVisible());
    EXPECT_FALSE(sheet.three.isVisible());
    EXPECT_EQ(sheet.SetActivePage(1), 0);
    EXPECT_THAT(sheet.events, ElementsAre("One kill", "One kill"));
}

TEST_F(ModelessSheet, AFieldThatIsRefusedKeepsItsPageAndHasTheFocus) {
    MessageQueue messages;
    messages.Expect("Enter an integer.");
    sheet.one.m_field->setText(QStringLiteral("x"));
    sheet.ClickTab(1);
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
    EXPECT_TRUE(sheet.one.m_field->hasFocus());
}

TEST_F(ModelessSheet, EveryPageIsMadeByShowingThemFromTheLastToTheFirst) {
    for (int index = sheet.GetPageCount() - 1; index >= 0; --index)
        EXPECT_EQ(sheet.SetActivePage(index), 1);
    EXPECT_THAT(sheet.events,
                ElementsAre("One kill", "Three create", "Three init", "Three set", "Three kill",
                            "Two create", "Two init", "Two set", "Two kill", "One set"));
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
}

TEST_F(ModelessSheet, ShowingThePageInFrontDoesNothing) {
    EXPECT_EQ(sheet.SetActivePage(0), 1);
    EXPECT_THAT(sheet.events, ElementsAre());
}

TEST_F(ModelessSheet, ControlTabGoesToTheNextPage) {
    QTest::keyClick(sheet.one.m_field, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(sheet.GetActiveIndex(), 1);
    QTest::keyClick(sheet.two.m_field, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
}

TEST_F(ModelessSheet, ControlTabGoesRoundWhateverHasTheFocus) {
    auto* list = new QComboBox(&sheet.one);
    list->addItem(QStringLiteral("entry"));
    list->show();
    auto* button = new QPushButton(&sheet);
    button->show();
    for (QWidget* control : {static_cast<QWidget*>(list), static_cast<QWidget*>(button)}) {
        EXPECT_EQ(sheet.SetActivePage(0), 1);
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(sheet.GetActiveIndex(), 1) << control->metaObject()->className();
        QTest::keyClick(sheet.focusWidget(), Qt::Key_Backtab,
                        Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(sheet.GetActiveIndex(), 0) << control->metaObject()->className();
    }
    QTest::keyClick(button, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(sheet.GetActiveIndex(), 2) << "round";
    QTest::keyClick(button, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(sheet.GetActiveIndex(), 0);
}

TEST_F(ModelessSheet, ReadsThePageInFrontOnDemand) {
    MessageQueue messages;
    sheet.one.m_field->setText(QStringLiteral("21"));
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.one.value, 21);
    messages.Expect("Enter an integer.");
    sheet.one.m_field->setText(QStringLiteral("x"));
    EXPECT_FALSE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.one.value, 21);
}

TEST_F(ModelessSheet, HasNoButtonsOfItsOwn) {
    for (const int id : {+IDOK, +IDCANCEL, +ID_APPLY_NOW, +IDHELP})
        EXPECT_FALSE(k4test::Item<QPushButton>(sheet, id)->isVisible()) << id;
}

TEST_F(ModelessSheet, EscapeAndTheCloseButtonDestroyItsWindow) {
    QTest::keyClick(sheet.one.m_field, Qt::Key_Escape);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetActiveIndex(), -1);
    EXPECT_THAT(sheet.events, ElementsAre("sheet cancel", "sheet destroy", "One destroy"));
    sheet.Create();
    sheet.show();
    sheet.events.clear();
    sheet.close();
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_THAT(sheet.events, ElementsAre("sheet cancel", "sheet destroy", "One destroy"));
}

TEST_F(ModelessSheet, StandsOnceAndAgainAfterItHasGone) {
    EXPECT_EQ(sheet.Create(), 0) << "it stands already";
    EXPECT_EQ(sheet.DoModal(), -1) << "it stands already";
    const QSize size = sheet.size();
    for (int round = 0; round < 3; ++round) {
        sheet.ClickTab(1);
        sheet.DestroyWindow();
        sheet.events.clear();
        EXPECT_EQ(sheet.Create(), 1);
        sheet.show();
        EXPECT_THAT(sheet.events, ElementsAre("sheet init", "One create", "One init", "One set"));
        EXPECT_TRUE(sheet.one.isVisible());
        EXPECT_FALSE(sheet.two.isVisible());
        EXPECT_EQ(sheet.size(), size);
    }
}

TEST_F(ModelessSheet, ShowsAPageAgainThatWasInFrontWhenItWent) {
    sheet.DestroyWindow();
    sheet.Create();
    sheet.show();
    EXPECT_TRUE(sheet.one.isVisible());
}

TEST_F(ModelessSheet, MessagesReachItsPages) {
    EXPECT_EQ(k4cmn::SendWindowMessage(&sheet.two, 1500), 77);
    EXPECT_THAT(sheet.two.messages, ElementsAre(1500U));
}

TEST_F(ModelessSheet, FindsTheControlsOfAllPages) {
    EXPECT_EQ(sheet.GetDlgItem(PageProbe::kField + 61), sheet.one.m_field);
    EXPECT_EQ(sheet.GetDlgItem(PageProbe::kField + 63), sheet.three.m_field);
    EXPECT_EQ(sheet.one.GetDlgItem(PageProbe::kField + 63), nullptr);
}

TEST_F(ModelessSheet, MayGoWhileAPageIsAskedToBeLeft) {
    sheet.one.onKill = [&] {
        sheet.DestroyWindow();
        return 1;
    };
    EXPECT_EQ(sheet.SetActivePage(1), 0);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_THAT(sheet.events, ElementsAre("One kill", "sheet destroy", "One destroy"));
}

TEST(PropertySheet, EnterInAPagePressesOk) {
    SheetProbe sheet;
    const int result = RunModal(sheet, [&] {
        sheet.one.m_field->setFocus();
        sheet.one.m_field->setText(QStringLiteral("5"));
        QTest::keyClick(sheet.one.m_field, Qt::Key_Return);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(sheet.one.value, 5);
}

TEST(PropertySheet, EscapeInAPageCancels) {
    SheetProbe sheet;
    const int result = RunModal(sheet, [&] {
        sheet.one.m_field->setText(QStringLiteral("5"));
        QTest::keyClick(sheet.one.m_field, Qt::Key_Escape);
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(sheet.one.value, 7) << "it isn't read";
}

TEST(PropertySheet, OkWithARefusedFieldStaysOpen) {
    MessageQueue messages;
    messages.Expect("Enter an integer.");
    SheetProbe sheet;
    const int result = RunModal(sheet, [&] {
        sheet.one.m_field->setText(QStringLiteral("x"));
        Click(sheet, IDOK);
        EXPECT_TRUE(sheet.isVisible());
        Click(sheet, IDCANCEL);
    });
    EXPECT_EQ(result, IDCANCEL);
}

TEST(PropertySheet, ApplyReadsThePageAndStays) {
    SheetProbe sheet;
    RunModal(sheet, [&] {
        sheet.one.m_field->setText(QStringLiteral("9"));
        Click(sheet, ID_APPLY_NOW);
        EXPECT_EQ(sheet.one.value, 9);
        EXPECT_TRUE(sheet.isVisible());
        sheet.close();
    });
    EXPECT_THAT(sheet.events,
                ElementsAre("sheet init", "One create", "One init", "One set", "sheet apply",
                            "sheet cancel", "sheet destroy", "One destroy"));
}

TEST(PropertySheet, RunsAgainAtTheSameSize) {
    SheetProbe sheet;
    QSize first;
    for (int round = 0; round < 3; ++round) {
        RunModal(sheet, [&] {
            if (round == 0)
                first = sheet.size();
            EXPECT_EQ(sheet.size(), first);
            EXPECT_TRUE(k4test::Item<QPushButton>(sheet, IDOK)->isVisible());
            EXPECT_TRUE(sheet.one.isVisible());
            Click(sheet, IDOK);
        });
    }
}

TEST(PropertySheet, EndedWhileItIsInitialisedItIsNeverShown) {
    SheetProbe sheet;
    sheet.onInit = [&] { sheet.Close(IDCANCEL); };
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.events.back(), "One destroy");
}

TEST(PropertySheet, ClosingOneWithoutAWindowDoesNothing) {
    SheetProbe sheet;
    sheet.Close(IDOK);
    sheet.DestroyWindow();
    EXPECT_THAT(sheet.events, ElementsAre());
    EXPECT_TRUE(sheet.ReadActivePage());
}

TEST(PropertySheet, DeletedInItsOwnLoopItGivesCancel) {
    auto sheet = std::make_unique<SheetProbe>();
    CDialog& running = *sheet;
    QTimer::singleShot(0, qApp, [&] { sheet.reset(); });
    EXPECT_EQ(running.DoModal(), IDCANCEL);
}

TEST(PropertySheet, ThePageThatIsLeftMayDeleteItLater) {
    auto sheet = std::make_unique<SheetProbe>();
    sheet->Create();
    sheet->show();
    sheet->one.onKill = [&sheet] {
        sheet.release()->deleteLater();
        return 1;
    };
    const QPointer<SheetProbe> watched(sheet.get());
    watched->SetActivePage(1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
}

TEST(PropertySheet, LeavesPagesThatAreNotItsOwn) {
    std::vector<std::string> events;
    PageProbe page("Kept", 60, events);
    {
        CPropertySheet sheet("Sheet", nullptr);
        sheet.AddPage(&page);
        sheet.Create();
        EXPECT_TRUE(page.IsActive());
        sheet.DestroyWindow();
    }
    EXPECT_EQ(page.GetSheet(), nullptr);
    EXPECT_FALSE(page.isVisible());
}

TEST(PropertySheet, LosesAPageThatGoes) {
    std::vector<std::string> events;
    CPropertySheet sheet("Sheet", nullptr);
    {
        PageProbe page("Gone", 60, events);
        sheet.AddPage(&page);
    }
    EXPECT_EQ(sheet.GetPageCount(), 0);
    EXPECT_EQ(sheet.Create(), 1) << "without a page";
    EXPECT_EQ(sheet.GetActivePage(), nullptr);
    EXPECT_TRUE(sheet.ReadActivePage());
    sheet.DestroyWindow();
}
