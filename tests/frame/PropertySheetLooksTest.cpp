#include <gmock/gmock.h>

#include <QTabWidget>

#include "tests/frame/SheetProbe.h"
#include "tests/support/MemoryProfile.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RecordingHelpSystem.h"

using k4test::MemoryProfile;
using k4test::PageProbe;
using k4test::RecordingHelpSystem;
using k4test::RunModal;
using k4test::SheetProbe;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::uint32_t kOffset = 0x1000000;

class PropertySheetHelp : public testing::Test {
 protected:
    PropertySheetHelp() {
        sheet.Create();
        sheet.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&sheet));
    }

    RecordingHelpSystem help;
    k4cmn::ScopedProvider<k4cmn::HelpSystem> installed{help};
    SheetProbe sheet;
};

QRect TabsOf(const CPropertySheet& sheet) {
    return sheet.findChild<QTabWidget*>()->geometry();
}

}  // namespace

TEST_F(PropertySheetHelp, AControlAsksByTheNumberOfItsPage) {
    QTest::keyClick(sheet.one.m_field, Qt::Key_F1);
    const std::uint32_t id = kOffset + (61U << 16) + PageProbe::kField + 61;
    EXPECT_THAT(help.calls,
                ElementsAre(RecordingHelpSystem::Call{sheet.one.m_field, "k4test.hlp", 8, id}));
}

TEST_F(PropertySheetHelp, APageHasItsOwnTopic) {
    QTest::keyClick(&sheet.one, Qt::Key_F1);
    EXPECT_THAT(help.calls, ElementsAre(RecordingHelpSystem::Call{&sheet.one, "k4test.hlp", 8,
                                                                  kOffset + 0x20000 + 61}));
}

TEST_F(PropertySheetHelp, TheTabsShowTheContentsWhereTheSheetHasNoTopic) {
    QTest::keyClick(sheet.Tabs(), Qt::Key_F1);
    EXPECT_THAT(help.calls,
                ElementsAre(RecordingHelpSystem::Call{&sheet, "k4test.hlp", 11, kOffset}));
}

TEST(PropertySheetPlace, IsNotRemembered) {
    MemoryProfile profile;
    const k4cmn::ScopedProvider<k4cmn::Profile> installed(profile);
    SheetProbe sheet;
    RunModal(sheet, [&] { sheet.close(); });
    EXPECT_THAT(profile.reads, IsEmpty());
    EXPECT_THAT(profile.writes, IsEmpty());
}

TEST(PropertySheetButtons, StandInARowBelowThePages) {
    SheetProbe sheet;
    RunModal(sheet, [&] {
        int right = 0;
        for (const int id : {+IDOK, +IDCANCEL, +ID_APPLY_NOW, +IDHELP}) {
            auto* button = k4test::Item<QPushButton>(sheet, id);
            EXPECT_TRUE(button->isVisible()) << id;
            EXPECT_FALSE(button->accessibleName().isEmpty()) << id;
            const QRect place(button->mapTo(&sheet, QPoint()), button->size());
            EXPECT_GT(place.left(), right) << id;
            EXPECT_GT(place.top(), TabsOf(sheet).bottom()) << id;
            EXPECT_TRUE(sheet.rect().contains(place)) << id;
            right = place.right();
        }
        EXPECT_TRUE(k4test::Item<QPushButton>(sheet, IDOK)->isDefault());
        sheet.close();
    });
}

TEST(PropertySheetButtons, HelpShowsTheContents) {
    RecordingHelpSystem help;
    const k4cmn::ScopedProvider<k4cmn::HelpSystem> installed(help);
    SheetProbe sheet;
    RunModal(sheet, [&] {
        k4test::Click(sheet, IDHELP);
        sheet.close();
    });
    EXPECT_EQ(help.calls.size(), 1U);
}

TEST(PropertySheetButtons, HiddenOnesKeepTheirRoomAndLoseTheirIds) {
    SheetProbe plain;
    QSize size;
    RunModal(plain, [&] {
        size = plain.size();
        plain.close();
    });
    SheetProbe sheet;
    std::vector<QPushButton*> buttons;
    sheet.onInit = [&] {
        if (buttons.empty()) {
            for (const int id : {+IDOK, +IDCANCEL, +ID_APPLY_NOW, +IDHELP})
                buttons.push_back(k4test::Item<QPushButton>(sheet, id));
        }
        sheet.HideStandardButtons();
    };
    for (int round = 0; round < 2; ++round) {
        RunModal(sheet, [&] {
            EXPECT_EQ(sheet.size(), size);
            for (const QPushButton* button : buttons) {
                EXPECT_FALSE(button->isVisible());
                EXPECT_FALSE(button->isEnabled());
                EXPECT_EQ(sheet.GetDlgItem(IDOK), nullptr);
            }
            QTest::keyClick(sheet.one.m_field, Qt::Key_Return);
            EXPECT_TRUE(sheet.isVisible()) << "nothing is left to press";
            QTest::keyClick(sheet.one.m_field, Qt::Key_Escape);
        });
    }
}

TEST(PropertySheetButtons, HiddenOnesGiveTheirRoomBackWhereThatIsWanted) {
    SheetProbe plain;
    QSize size;
    int row = 0;
    RunModal(plain, [&] {
        size = plain.size();
        row = k4test::Item<QPushButton>(plain, IDOK)->parentWidget()->height();
        plain.close();
    });
    SheetProbe sheet;
    sheet.onInit = [&] { sheet.HideStandardButtons(SheetProbe::ButtonRow::GiveBack); };
    for (int round = 0; round < 2; ++round) {
        RunModal(sheet, [&] {
            EXPECT_EQ(sheet.height(), size.height() - row);
            sheet.close();
        });
    }
}

TEST(PropertySheetMargin, GrowsTheWindowByTheDifference) {
    SheetProbe sheet;
    sheet.Create();
    sheet.show();
    const QSize size = sheet.size();
    const QSize tabs = TabsOf(sheet).size();
    sheet.SetMargin(80, 27);
    EXPECT_EQ(sheet.size(), size + QSize(80, 27));
    sheet.SetMargin(80, 27);
    EXPECT_EQ(sheet.size(), size + QSize(80, 27));
    sheet.SetMargin(80, 150);
    EXPECT_EQ(sheet.size(), size + QSize(80, 150));
    EXPECT_EQ(TabsOf(sheet).size(), tabs) << "the pages keep their size";
    sheet.SetMargin(0, 0);
    EXPECT_EQ(sheet.size(), size);
}

TEST(PropertySheetMargin, StaysWhenTheWindowIsResized) {
    SheetProbe sheet;
    sheet.Create();
    sheet.show();
    sheet.SetMargin(80, 27);
    const int right = sheet.width() - TabsOf(sheet).right();
    const int below = sheet.height() - TabsOf(sheet).bottom();
    sheet.resize(sheet.size() + QSize(100, 50));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(sheet.width() - TabsOf(sheet).right(), right);
    EXPECT_EQ(sheet.height() - TabsOf(sheet).bottom(), below);
}

TEST(PropertySheetPages, MayKeepTheirHeightSoThatTheRoomBelowThemGrows) {
    SheetProbe sheet;
    sheet.Create();
    sheet.show();
    const auto resizeBy = [&](int change) {
        sheet.resize(sheet.width(), sheet.height() + change);
        QCoreApplication::sendPostedEvents();
    };
    const QRect before = sheet.PagesPlace();
    EXPECT_EQ(before, TabsOf(sheet));
    sheet.KeepPagesHeight(true);
    sheet.SetMargin(0, 150);
    EXPECT_EQ(sheet.PagesPlace(), before);
    resizeBy(80);
    EXPECT_EQ(sheet.PagesPlace(), before);
    resizeBy(-80);
    EXPECT_EQ(sheet.PagesPlace(), before);
    sheet.KeepPagesHeight(false);
    resizeBy(80);
    EXPECT_EQ(sheet.PagesPlace().height(), before.height() + 80);
    sheet.KeepPagesHeight(true);
    resizeBy(40);
    EXPECT_EQ(sheet.PagesPlace().height(), before.height() + 80);
}
