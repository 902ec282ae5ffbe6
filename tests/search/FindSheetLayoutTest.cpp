#include <QComboBox>
#include <QScreen>
#include <QTabWidget>
#include <algorithm>

#include "k4cmndlg/frame/StringTable.h"
#include "k4cmndlg/search/CK4CmnDlgFindNam.h"
#include "k4cmndlg/search/CK4CmnDlgFindSign.h"
#include "k4cmndlg/search/CK4CmnDlgFindSize.h"
#include "tests/search/FindSheetFixture.h"
#include "tests/support/FontScale.h"
#include "tests/support/MemoryProfile.h"
#include "tests/support/RecordingHelpSystem.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// How large a plain sheet of the same pages is, and its OK button.
struct PlainSheet {
    QSize sheet;
    QSize ok;
    QFont font;
};

PlainSheet Plain() {
    CK4CmnDlgFindNam name;
    CK4CmnDlgFindSign sign;
    CK4CmnDlgFindSize size;
    CPropertySheet sheet("Find Files", nullptr);
    for (CPropertyPage* page :
         {static_cast<CPropertyPage*>(&name), static_cast<CPropertyPage*>(&sign),
          static_cast<CPropertyPage*>(&size)})
        sheet.AddPage(page);
    PlainSheet plain;
    RunModal(sheet, [&] {
        const auto* ok = Item<QPushButton>(sheet, IDOK);
        plain = {sheet.size(), ok->size(), ok->font()};
        sheet.close();
    });
    return plain;
}

class FindSheetLayout : public FindSheet {
 protected:
    QRect Place(const QWidget* control) const {
        return {control->mapTo(dialog.get(), QPoint()), control->size()};
    }
    QRect Place(int id) const { return Place(The<QWidget>(id)); }
    int PagesHeight() const { return dialog->findChild<QTabWidget*>()->height(); }
    /// The strip's buttons, the list, and what the page in front shows.
    std::vector<QWidget*> Controls() const {
        std::vector<QWidget*> controls;
        for (QWidget* control : dialog->findChildren<QWidget*>()) {
            if (control->isVisible() && control->property("controlId").isValid())
                controls.push_back(control);
        }
        return controls;
    }
    void ExpectNothingClipped() const {
        const std::vector<QWidget*> controls = Controls();
        for (const QWidget* control : controls) {
            const int id = control->property("controlId").toInt();
            const QRect place = Place(control);
            EXPECT_TRUE(dialog->rect().contains(place)) << id;
            if (qobject_cast<const QAbstractButton*>(control)) {
                EXPECT_GE(control->width(), control->sizeHint().width()) << id;
                EXPECT_GE(control->height(), control->sizeHint().height()) << id;
            }
            for (const QWidget* other : controls) {
                EXPECT_TRUE(other == control || !place.intersects(Place(other)))
                    << id << " and " << other->property("controlId").toInt();
            }
        }
    }
    void ExpectCountInItsRoom() const {
        const auto* const count = CountLabel();
        ASSERT_NE(count, nullptr);
        EXPECT_GE(count->height(), count->heightForWidth(count->width()));
        EXPECT_GE(count->y(), Place(kPrevious).bottom());
        if (List()) {
            EXPECT_LE(count->geometry().bottom(), List()->y());
        }
    }
    int FocusedControl() const {
        const QWidget* control = dialog->focusWidget();
        while (control && !control->property("controlId").isValid())
            control = control->parentWidget();
        return control ? control->property("controlId").toInt() : 0;
    }
};

// At the start -------------------------------------------------------------------------------

TEST_F(FindSheetLayout, BeginsWithAStripOfButtonsBesideThePages) {
    const PlainSheet plain = Plain();
    Make();
    Run([&] {
        EXPECT_EQ(dialog->size(), plain.sheet + QSize(plain.ok.width() + 10, -plain.ok.height()));
        int top = plain.ok.height() + 4;
        const std::pair<int, const char*> buttons[] = {
            {kFind, "Find"}, {IDCANCEL, "Cancel"}, {kNew, "New"}, {kPrevious, "Previous"}};
        for (const auto& [id, text] : buttons) {
            EXPECT_EQ(TextOf(*dialog, id), text);
            EXPECT_EQ(Place(id), QRect(QPoint(plain.sheet.width(), top), plain.ok)) << text;
            EXPECT_EQ(The<QWidget>(id)->font(), plain.font) << text;
            EXPECT_TRUE(The<QWidget>(id)->isVisible()) << text;
            top += plain.ok.height() + 2;
        }
        EXPECT_TRUE(The<QRadioButton>(kNew)->isChecked());
        EXPECT_FALSE(The<QRadioButton>(kPrevious)->isChecked());
        EXPECT_EQ(dialog->GetDlgItem(kResults), nullptr) << "until the first search";
        EXPECT_EQ(Count(), "");
        Press(IDCANCEL);
    });
}

TEST_F(FindSheetLayout, HidesAndDisablesTheStandardButtons) {
    Make();
    std::vector<QPointer<QPushButton>> buttons;
    for (const int id : {+IDOK, +IDCANCEL, +ID_APPLY_NOW, +IDHELP})
        buttons.emplace_back(The<QPushButton>(id));
    Run([&] {
        for (const QPushButton* button : buttons) {
            EXPECT_FALSE(button->isVisible());
            EXPECT_FALSE(button->isEnabled());
        }
        for (const int id : {+IDOK, +ID_APPLY_NOW, +IDHELP})
            EXPECT_EQ(dialog->GetDlgItem(id), nullptr) << id;
        Press(IDCANCEL);
    });
}

TEST_F(FindSheetLayout, EveryPageExistsAndTheFirstIsInFrontWhateverIsAskedFor) {
    for (const int first : {0, 1, 2, 7, -1}) {
        CK4CmnDlgFind sheet("Find Files", nullptr, first);
        RunModal(sheet, [&] {
            EXPECT_EQ(sheet.GetActiveIndex(), 0) << first;
            for (int page = 0; page < 3; ++page)
                EXPECT_TRUE(sheet.GetPage(page)->HasWindow()) << page;
            sheet.close();
        });
    }
}

TEST_F(FindSheetLayout, HasItsTitleByTextOrByNumberAndThePagesInTheirOrder) {
    const k4cmn::StringRow rows[] = {{4711, "By number"}};
    const k4cmn::StringModule module(rows);
    const CK4CmnDlgFind text("Find Files", nullptr);
    const CK4CmnDlgFind number(4711, nullptr, 0);
    EXPECT_EQ(text.windowTitle().toStdString(), "Find Files");
    EXPECT_EQ(number.windowTitle().toStdString(), "By number");
    const CK4CmnDlgFind none(static_cast<const char*>(nullptr), nullptr);
    EXPECT_EQ(none.windowTitle(), QString());
    ASSERT_EQ(text.GetPageCount(), 3);
    EXPECT_NE(qobject_cast<CK4CmnDlgFindNam*>(text.GetPage(0)), nullptr);
    EXPECT_NE(qobject_cast<CK4CmnDlgFindSign*>(text.GetPage(1)), nullptr);
    EXPECT_NE(qobject_cast<CK4CmnDlgFindSize*>(text.GetPage(2)), nullptr);
}

// The first search ---------------------------------------------------------------------------

TEST_F(FindSheetLayout, TheFirstSearchMakesTheListBelowThePages) {
    Make();
    Run([&] {
        const QSize before = dialog->size();
        const int pages = PagesHeight();
        Press(kFind);
        EXPECT_EQ(dialog->size(), before + QSize(0, 150));
        const QRect list(QPoint(5, before.height() - 5),
                         QPoint(before.width() - 10 - 1, before.height() + 120 - 1));
        EXPECT_EQ(Place(kResults), list);
        EXPECT_TRUE(List()->isVisible());
        EXPECT_EQ(PagesHeight(), pages);
        ExpectNothingClipped();
        ExpectCountInItsRoom();
        Press(kFind);
        EXPECT_EQ(dialog->size(), before + QSize(0, 150)) << "once";
        EXPECT_EQ(Place(kResults), list);
        Press(IDCANCEL);
    });
}

TEST_F(FindSheetLayout, WhatTheWindowGrowsByIsTheLists) {
    Make();
    Run([&] {
        Press(kFind);
        const QSize before = dialog->size();
        const QRect find = Place(kFind);
        const int pages = PagesHeight();
        dialog->resize(before + QSize(120, 200));
        Settle();
        EXPECT_EQ(PagesHeight(), pages);
        EXPECT_EQ(Place(kResults),
                  QRect(QPoint(5, before.height() - 155),
                        QPoint(before.width() + 110 - 1, before.height() + 200 - 30 - 1)));
        EXPECT_EQ(Place(kFind), find.translated(120, 0));
        dialog->resize(before);
        Settle();
        EXPECT_EQ(dialog->size(), before);
        EXPECT_EQ(PagesHeight(), pages);
        Press(IDCANCEL);
    });
}

TEST_F(FindSheetLayout, BeforeTheFirstSearchItIsThePages) {
    Make();
    Run([&] {
        const int pages = PagesHeight();
        dialog->resize(dialog->size() + QSize(60, 80));
        Settle();
        EXPECT_EQ(PagesHeight(), pages + 80);
        Press(kFind);
        EXPECT_EQ(PagesHeight(), pages + 80);
        ExpectNothingClipped();
        Press(IDCANCEL);
    });
}

TEST_F(FindSheetLayout, RunsAgainAsItDidTheFirstTime) {
    Make();
    QSize size;
    int pages = 0;
    for (int round = 0; round < 3; ++round) {
        Run([&] {
            if (round == 0) {
                size = dialog->size();
                pages = PagesHeight();
            }
            EXPECT_EQ(dialog->size(), size);
            EXPECT_EQ(PagesHeight(), pages);
            EXPECT_EQ(dialog->GetDlgItem(kResults), nullptr);
            EXPECT_EQ(Count(), "");
            EXPECT_TRUE(The<QRadioButton>(kNew)->isChecked());
            Click(*dialog, kPrevious);
            Press(kFind);
            EXPECT_THAT(Names(), IsEmpty()) << "of the last time";
            Click(*dialog, kNew);
            Press(kFind);
            EXPECT_EQ(Names().size(), 5U);
            EXPECT_EQ(dialog->size(), size + QSize(0, 150));
            Press(IDCANCEL);
        });
    }
}

TEST_F(FindSheetLayout, TheGrownWindowStaysOnTheScreen) {
    Make();
    Run([&] {
        const QRect screen = dialog->screen()->availableGeometry();
        dialog->move(100, screen.bottom() - dialog->frameGeometry().height() - 20);
        Settle();
        Press(kFind);
        EXPECT_LE(dialog->frameGeometry().bottom(), screen.bottom());
        EXPECT_EQ(dialog->pos().x(), 100);
        Press(IDCANCEL);
    });
}

TEST_F(FindSheetLayout, NothingIsClippedAtAnyFontSize) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        const PlainSheet plain = Plain();
        Make();
        Run([&] {
            ExpectNothingClipped();
            const QRect find = Place(kFind);
            EXPECT_GE(find.width(), plain.ok.width());
            EXPECT_EQ(find.height(), plain.ok.height());
            EXPECT_EQ(find.top(), find.height() + 4);
            EXPECT_EQ(dialog->width(), plain.sheet.width() + find.width() + 10);
            EXPECT_EQ(dialog->height(), plain.sheet.height() - find.height());
            const int before = dialog->height();
            Press(kFind);
            EXPECT_EQ(dialog->height(), before + 150);
            for (const QSize size : {dialog->size(), dialog->minimumSize(), QSize(1400, 1000)}) {
                dialog->resize(size);
                for (int page = 0; page < 3; ++page) {
                    dialog->SetActivePage(page);
                    Settle();
                    ExpectNothingClipped();
                    ExpectCountInItsRoom();
                }
            }
            Press(IDCANCEL);
        });
    }
}

TEST_F(FindSheetLayout, FitsIntoASmallScreenAtAnyFontSize) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        ShowFound();
        EXPECT_LE(dialog->width(), 800);
        EXPECT_LE(dialog->height(), 552);
    }
}

// Names, keys and help -----------------------------------------------------------------------

TEST_F(FindSheetLayout, EachControlHasAnAccessibleName) {
    ShowFound();
    for (const int id : {+kFind, +IDCANCEL, +kNew, +kPrevious, +kResults})
        EXPECT_FALSE(The<QWidget>(id)->accessibleName().isEmpty()) << id;
    // What has the focus is what is read out.
    EXPECT_EQ(List()->focusProxy()->accessibleName(), List()->accessibleName());
    EXPECT_EQ(List()->focusProxy()->accessibleDescription().toStdString(), "5 files");
}

TEST_F(FindSheetLayout, TheTabKeyGoesFromThePageDownTheStripToTheList) {
    ShowFound();
    The<QWidget>(kKeywords)->setFocus();
    std::vector<int> stops;
    for (int i = 0; i < 20 && (i < 2 || FocusedControl() != kKeywords); ++i) {
        stops.push_back(FocusedControl());
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Tab);
    }
    const auto find = std::find(stops.begin(), stops.end(), +kFind);
    ASSERT_NE(find, stops.end());
    EXPECT_THAT(std::vector<int>(stops.begin(), find),
                testing::Each(testing::AllOf(testing::Ge(1101), testing::Le(1110))));
    EXPECT_THAT(std::vector<int>(find, find + 4), ElementsAre(+kFind, +IDCANCEL, +kNew, +kResults))
        << "of the two radio buttons the one that is on";
}

TEST_F(FindSheetLayout, ArrowKeysChooseBetweenNewAndPrevious) {
    Make();
    Show();
    The<QWidget>(kNew)->setFocus();
    PressKey(*dialog, Qt::Key_Down);
    EXPECT_TRUE(The<QRadioButton>(kPrevious)->isChecked());
    PressKey(*dialog, Qt::Key_Up);
    EXPECT_TRUE(The<QRadioButton>(kNew)->isChecked());
}

TEST_F(FindSheetLayout, BeginsInTheFirstFieldOfThePage) {
    Make();
    Run([&] {
        EXPECT_EQ(FocusedControl(), +kKeywords);
        EXPECT_TRUE(The<QPushButton>(kFind)->isDefault());
        Press(IDCANCEL);
    });
}

TEST_F(FindSheetLayout, HasHelpOfItsOwn) {
    RecordingHelpSystem help;
    const k4cmn::ScopedProvider<k4cmn::HelpSystem> installed(help);
    ShowFound();
    for (const int id : {+kFind, +IDCANCEL, +kNew, +kResults}) {
        The<QWidget>(id)->setFocus();
        QTest::keyClick(dialog->windowHandle(), Qt::Key_F1);
        ASSERT_FALSE(help.calls.empty()) << id;
        EXPECT_EQ(help.calls.back().command, 8U);
        EXPECT_EQ(help.calls.back().data, 0x1000000 + (118U << 16) + static_cast<unsigned>(id));
    }
    QTest::keyClick(dialog.get(), Qt::Key_F1);
    EXPECT_EQ(help.calls.back().data, 0x1000000U + 0x20000 + 118);
}

TEST_F(FindSheetLayout, ItsPlaceIsNotRemembered) {
    MemoryProfile profile;
    const k4cmn::ScopedProvider<k4cmn::Profile> installed(profile);
    Make();
    Run([&] { Press(IDCANCEL); });
    EXPECT_THAT(profile.reads, IsEmpty());
    EXPECT_THAT(profile.writes, IsEmpty());
}

}  // namespace
}  // namespace k4test
