#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "k4cmndlg/frame/DialogFrame.h"
#include "k4cmndlg/smalldlg/CK4CmnDlgQuickMsg.h"
#include "tests/support/DialogControls.h"
#include "tests/support/FontScale.h"
#include "tests/support/MemoryProfile.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RecordingHelpSystem.h"

namespace k4test {
namespace {

using testing::ElementsAre;

constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kText = 1150;
constexpr int kFont = 1151;
constexpr int kRows = 1152;
constexpr int kCols = 1153;

class QuickMessage : public testing::Test {
 protected:
    template <class Steps>
    int Run(Steps steps) {
        return RunModal(m_dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
            steps();
        });
    }

    MemoryProfile m_profile;
    k4cmn::ScopedProvider<k4cmn::Profile> m_useProfile{m_profile};
    CK4CmnDlgQuickMsg m_dialog{nullptr};
};

TEST_F(QuickMessage, IsTemplate117WithItsTitleAndLabels) {
    EXPECT_EQ(m_dialog.ResourceId(), 117U);
    EXPECT_EQ(m_dialog.windowTitle().toStdString(), "Quick Message");
    EXPECT_EQ(TextOf(m_dialog, 1154), "&Font");
    EXPECT_EQ(TextOf(m_dialog, 1155), "&Rows");
    EXPECT_EQ(TextOf(m_dialog, 1156), "&Cols");
    EXPECT_EQ(TextOf(m_dialog, kOk), "OK");
    EXPECT_EQ(TextOf(m_dialog, kCancel), "Cancel");
}

TEST_F(QuickMessage, HasThreeFontsAndTakesAnyOther) {
    Run([&] {
        auto* const fonts = Item<QComboBox>(m_dialog, kFont);
        std::vector<std::string> names;
        for (int at = 0; at < fonts->count(); ++at)
            names.push_back(fonts->itemText(at).toStdString());
        EXPECT_THAT(names, ElementsAre("FW07X5_1", "FW07X6_2", "FW08X6_2"));
        EXPECT_EQ(fonts->currentText().toStdString(), "");
        fonts->setFocus();
        QTest::keyClicks(fonts, QStringLiteral("FW07"));
        EXPECT_EQ(fonts->currentText().toStdString(), "FW07") << "stays as it was typed";
        QTest::keyClick(fonts, Qt::Key_Down);
        EXPECT_EQ(fonts->currentText().toStdString(), "FW07X5_1");
        EXPECT_EQ(fonts->count(), 3);
        Click(m_dialog, kCancel);
    });
}

TEST_F(QuickMessage, RowsAndColumnsAreNumbers) {
    Run([&] {
        for (const int id : {kRows, kCols}) {
            TypeOver(m_dialog, id, QStringLiteral("1a-2.3 4"));
            EXPECT_EQ(TextOf(m_dialog, id), "1234") << id;
            TypeOver(m_dialog, id, QString());
            EXPECT_EQ(TextOf(m_dialog, id), "") << id;
        }
        Click(m_dialog, kCancel);
    });
}

TEST_F(QuickMessage, TheTextHasManyLines) {
    Run([&] {
        auto* const text = Item<QPlainTextEdit>(m_dialog, kText);
        EXPECT_TRUE(text->hasFocus());
        QTest::keyClicks(text, QStringLiteral("one"));
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, QStringLiteral("two"));
        EXPECT_EQ(text->toPlainText().toStdString(), "one\ntwo");
        EXPECT_TRUE(m_dialog.isVisible());
        Click(m_dialog, kCancel);
    });
}

TEST_F(QuickMessage, OkAndCancelEndItAndNothingIsChecked) {
    EXPECT_EQ(Run([&] { Click(m_dialog, kOk); }), IDOK);
    EXPECT_EQ(Run([&] { Click(m_dialog, kCancel); }), IDCANCEL);
    EXPECT_EQ(Run([&] { PressKey(m_dialog, Qt::Key_Escape); }), IDCANCEL);
    EXPECT_EQ(Run([&] {
                  Item<QWidget>(m_dialog, kRows)->setFocus();
                  PressKey(m_dialog, Qt::Key_Return);
              }),
              IDOK);
}

TEST_F(QuickMessage, WhatWasTypedStaysInItsControls) {
    Run([&] {
        Item<QPlainTextEdit>(m_dialog, kText)->setPlainText(QStringLiteral("Hi"));
        TypeOver(m_dialog, kRows, QStringLiteral("16"));
        Click(m_dialog, kOk);
    });
    EXPECT_EQ(Item<QPlainTextEdit>(m_dialog, kText)->toPlainText().toStdString(), "Hi");
    EXPECT_EQ(TextOf(m_dialog, kRows), "16");
}

TEST_F(QuickMessage, TheTabKeyGoesAsTheEyeDoes) {
    Run([&] {
        std::vector<int> stops;
        for (int at = 0; at < 7; ++at) {
            stops.push_back(FocusedId(m_dialog));
            PressKey(m_dialog, Qt::Key_Tab);
        }
        EXPECT_THAT(stops, ElementsAre(kText, kFont, kRows, kCols, kOk, kCancel, kText));
        EXPECT_TRUE(Item<QPushButton>(m_dialog, kOk)->isDefault());
        for (const auto& [key, id] :
             {std::pair{Qt::Key_F, kFont}, {Qt::Key_R, kRows}, {Qt::Key_C, kCols}}) {
            QTest::keyClick(&m_dialog, key, Qt::AltModifier);
            EXPECT_EQ(FocusedId(m_dialog), id);
        }
        Click(m_dialog, kCancel);
    });
}

TEST_F(QuickMessage, EveryControlHasAnAccessibleName) {
    const std::pair<int, const char*> names[] = {{kText, "Text"}, {kFont, "Font"},
                                                 {kRows, "Rows"}, {kCols, "Cols"},
                                                 {kOk, "OK"},     {kCancel, "Cancel"}};
    for (const auto& [id, name] : names)
        EXPECT_EQ(Item<QWidget>(m_dialog, id)->accessibleName().toStdString(), name);
}

TEST_F(QuickMessage, HasHelpAsTheLibrarysDialogsHave) {
    RecordingHelpSystem help;
    const k4cmn::ScopedProvider<k4cmn::HelpSystem> useHelp(help);
    Run([&] {
        EXPECT_EQ(k4cmn::GetWindowContextHelpId(&m_dialog), 0x20075u);
        Item<QWidget>(m_dialog, kRows)->setFocus();
        PressKey(m_dialog, Qt::Key_F1);
        Click(m_dialog, kCancel);
    });
    EXPECT_THAT(help.calls, ElementsAre(RecordingHelpSystem::Call{Item<QWidget>(m_dialog, kRows),
                                                                  "k4test.hlp", 8, 0x1750480}));
}

TEST_F(QuickMessage, ComesBackWhereItWasLeft) {
    Run([&] {
        m_dialog.move(77, 66);
        Click(m_dialog, kCancel);
    });
    CK4CmnDlgQuickMsg again(nullptr);
    RunModal(again, [&] {
        EXPECT_EQ(again.pos(), QPoint(77, 66));
        again.EndDialog(IDCANCEL);
    });
}

TEST_F(QuickMessage, NothingIsClippedAtAnyFontSize) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        const FontScale scale(factor);
        CK4CmnDlgQuickMsg dialog(nullptr);
        RunModal(dialog, [&] {
            EXPECT_LE(dialog.minimumSizeHint().width(), 800) << factor;
            EXPECT_LE(dialog.minimumSizeHint().height(), 600) << factor;
            for (const int id : {kText, kFont, kRows, kCols, kOk, kCancel, 1154, 1155, 1156}) {
                const auto* const control = Item<QWidget>(dialog, id);
                EXPECT_TRUE(dialog.rect().contains(control->geometry())) << id;
                EXPECT_GE(control->width(), control->minimumSizeHint().width()) << id;
                EXPECT_GE(control->height(), control->minimumSizeHint().height()) << id;
            }
            const auto* const fonts = Item<QComboBox>(dialog, kFont);
            EXPECT_GT(fonts->width(),
                      fonts->fontMetrics().horizontalAdvance(QStringLiteral("FW08X6_2")));
            dialog.EndDialog(IDCANCEL);
        });
    }
}

}  // namespace
}  // namespace k4test
