#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/frame/CPropertySheet.h"
#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "k4cmndlg/frame/WindowMessages.h"
#include "k4cmndlg/search/CK4CmnDlgFindNam.h"
#include "k4cmndlg/search/CK4CmnDlgFindSign.h"
#include "k4cmndlg/search/CK4CmnDlgFindSize.h"
#include "tests/support/DialogControls.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ScriptedCalendars.h"
#include "tests/support/StoreFixture.h"

namespace k4test {

/// A sheet of the three pages of a search that keeps the commands it gets.
class FindSheet final : public CPropertySheet {
 public:
    FindSheet() : CPropertySheet("Find Files", nullptr) {
        HideStandardButtons();
        AddPage(&name);
        AddPage(&sign);
        AddPage(&size);
    }
    ~FindSheet() override { DestroyWindow(); }

    CK4CmnDlgFindNam name;
    CK4CmnDlgFindSign sign;
    CK4CmnDlgFindSize size;
    std::vector<std::uintptr_t> commands;
    std::function<void()> onCommand;

 protected:
    std::intptr_t OnWindowMessage(std::uint32_t message, std::uintptr_t wParam,
                                  std::intptr_t lParam) override {
        if (message != k4cmn::WM_COMMAND || lParam != 0)
            return CPropertySheet::OnWindowMessage(message, wParam, lParam);
        commands.push_back(wParam);
        if (onCommand)
            onCommand();
        return 0;
    }
};

/// Waits for a dialog to be shown while something runs, and does the steps in it, which end it.
/// @param run what shows the dialog, and returns when it has ended.
template <class Dialog, class Run, class Steps>
void InDialog(Run run, Steps steps) {
    bool shown = false;
    QTimer whenShown;
    QObject::connect(&whenShown, &QTimer::timeout, &whenShown, [&] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        whenShown.stop();
        shown = true;
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
        steps(*dialog);
    });
    QTimer tooLong;
    tooLong.setSingleShot(true);
    QObject::connect(&tooLong, &QTimer::timeout, &tooLong, [] {
        ADD_FAILURE() << "the dialog stayed open";
        if (auto* dialog = qobject_cast<CDialog*>(QApplication::activeModalWidget()))
            dialog->EndDialog(-99);
    });
    whenShown.start(std::chrono::milliseconds(0));
    tooLong.start(std::chrono::seconds(10));
    run();
    EXPECT_TRUE(shown) << "the dialog wasn't shown";
}

/// The pages of the search dialog in a sheet of their own, over a store in which nothing is yet.
class FindPages : public StoreFixture {
 protected:
    enum : int {
        kName = 0,
        kKeywords = 1101,
        kAnd = 1102,
        kOr = 1103,
        kFileName = 1104,
        kFileType = 1105,
        kSearchPath = 1106,
        kBrowse = 1107,

        kSign = 1,
        kEnable = 1111,
        kRows = 1112,
        kRowSpin = 1113,
        kColumns = 1114,
        kColumnSpin = 1115,
        kColor = 1116,
        kPixel = 1117,

        kSize = 2,
        kRelation = 1121,
        kSizeField = 1122,
        kSizeSpin = 1123,
        kAllFiles = 1124,
        kModified = 1125,
        kBetween = 1126,
        kFirstDate = 1127,
        kLastDate = 1128,
        kDuringMonths = 1129,
        kMonths = 1130,
        kMonthSpin = 1131,
        kDuringDays = 1132,
        kDays = 1133,
        kDaySpin = 1134,

        kTree = 1140,
    };

    void TearDown() override {
        sheet.DestroyWindow();
        StoreFixture::TearDown();
    }

    /// Opens the sheet with a page in front; each page has been there once.
    void Open(int page) {
        ASSERT_EQ(sheet.Create(), 1);
        for (int index = sheet.GetPageCount() - 1; index >= 0; --index)
            ASSERT_EQ(sheet.SetActivePage(index), 1);
        ASSERT_EQ(sheet.SetActivePage(page), 1);
        sheet.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet));
    }
    /// Clicks on a page's tab.
    void ClickTab(int index) {
        auto* bar = sheet.findChild<QTabBar*>();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }

    template <class Control>
    Control* Of(int id) const {
        return Item<Control>(sheet, id);
    }
    std::string Text(int id) const { return TextOf(sheet, id); }
    bool IsEnabled(int id) const { return Of<QWidget>(id)->isEnabled(); }
    void Type(int id, const char* text) { TypeOver(sheet, id, QString::fromUtf8(text)); }
    /// Chooses an entry of a combo box by keys, as a person does.
    void Choose(int combo, int index) {
        auto* box = Of<QComboBox>(combo);
        box->setFocus();
        while (box->currentIndex() != index)
            QTest::keyClick(box, box->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    }
    int Index(int combo) const { return Of<QComboBox>(combo)->currentIndex(); }
    std::vector<std::string> Entries(int combo) const {
        std::vector<std::string> entries;
        for (int at = 0; at < Of<QComboBox>(combo)->count(); ++at)
            entries.push_back(Of<QComboBox>(combo)->itemText(at).toStdString());
        return entries;
    }
    /// What stands in front of a control, and has it for its buddy.
    std::string CaptionOf(int id) const {
        for (const QLabel* label : sheet.findChildren<QLabel*>()) {
            if (label->buddy() == Of<QWidget>(id))
                return label->text().toStdString();
        }
        return {};
    }
    /// Clicks an arrow of a spin: 1 up, -1 down.
    void ClickSpin(int spin, int direction) {
        for (QToolButton* arrow : Of<CSpinButtonCtrl>(spin)->findChildren<QToolButton*>()) {
            if (arrow->arrowType() == (direction > 0 ? Qt::UpArrow : Qt::DownArrow))
                QTest::mouseClick(arrow, Qt::LeftButton);
        }
    }
    /// Holds the Up key in a field, with so much time before each of its repeats.
    /// @return the texts behind each.
    std::vector<std::string> Hold(int field, const std::vector<int>& milliseconds) {
        auto* edit = Of<QLineEdit>(field);
        edit->setFocus();
        std::vector<std::string> texts;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
        QCoreApplication::sendEvent(edit, &press);
        for (const int later : milliseconds) {
            clock.Advance(std::chrono::milliseconds(later));
            QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(edit, &repeat);
            texts.push_back(edit->text().toStdString());
        }
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Up, Qt::NoModifier);
        QCoreApplication::sendEvent(edit, &release);
        return texts;
    }

    /// Reads a page of a sheet that is deleted while the message about a field stands.
    void ReadWhileItGoes(int page, int field, const char* text, const char* words) {
        const QPointer<FindSheet> going = new FindSheet;
        ASSERT_EQ(going->Create(), 1);
        ASSERT_EQ(going->SetActivePage(page), 1);
        auto* edit = Item<QLineEdit>(*going, field);
        edit->setMaxLength(1000);
        edit->setText(QLatin1String(text));
        messages.Expect(k4cmn::PlainMessage(words), k4cmn::MessageAnswer::Ok,
                        [&] { delete going.data(); });
        EXPECT_FALSE(going->ReadActivePage()) << field << ": " << text;
        EXPECT_TRUE(going.isNull());
    }

    MessageQueue messages;
    DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> installedClock{clock};
    ScriptedCalendars calendars;
    FindSheet sheet;
};

}  // namespace k4test
