#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QToolButton>
#include <cerrno>
#include <stdexcept>
#include <string>

#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "k4cmndlg/frame/LastError.h"
#include "k4cmndlg/signctl/CK4CmnDlgCreateSignFolders.h"
#include "tests/support/DialogControls.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/StoreFixture.h"

namespace k4test {

/// The dialog "Create New Sign Folders" over the real folders of two servers, "A:" and "B:".
class CreateSignFolders : public StoreFixture {
 protected:
    enum : int {
        kOk = 1,
        kCancel = 2,
        kColor = 1014,
        kRows = 1015,
        kColumns = 1017,
        kRowSpin = 1019,
        kColumnSpin = 1020,
        kPixel = 1021,
        kServers = 1022,
        kFolder = 1048,
        kPalette = 1267,
    };

    void SetUp() override {
        StoreFixture::SetUp();
        MakeFolder("A:\\");
        MakeFolder("B:\\");
        ConfigureLocal({"A:", "B:"});
    }

    /// Runs the dialog and the steps in it.
    template <class Steps>
    int Run(Steps steps) {
        return RunModal(dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            steps();
        });
    }
    /// Runs the dialog, and cancels it behind the steps.
    template <class Steps>
    void Look(Steps steps) {
        EXPECT_EQ(Run([&] {
                      steps();
                      Click(dialog, kCancel);
                  }),
                  IDCANCEL);
    }

    std::string Text(int id) const { return TextOf(dialog, id); }
    std::string Folder() const { return Text(kFolder); }
    template <class Control>
    Control* Of(int id) const {
        return Item<Control>(dialog, id);
    }
    bool IsEnabled(int id) const { return Of<QWidget>(id)->isEnabled(); }
    /// Types a number into a field and leaves the field by the Tab key.
    void Enter(int field, const char* text) {
        TypeOver(dialog, field, QString::fromLatin1(text));
        PressKey(dialog, Qt::Key_Tab);
    }
    /// Chooses an entry of a combo box by keys, as a person does.
    void Choose(int combo, int index) {
        auto* box = Of<QComboBox>(combo);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        for (int at = 0; at < index; ++at)
            QTest::keyClick(box, Qt::Key_Down);
        EXPECT_EQ(box->currentIndex(), index);
    }
    int Index(int combo) const { return Of<QComboBox>(combo)->currentIndex(); }
    /// Clicks the check box of a server's row.
    void Tick(int row) {
        auto* list = Of<QListWidget>(kServers);
        const QRect place = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          QPoint(place.left() + place.height() / 2, place.center().y()));
    }
    bool IsTicked(int row) const {
        return Of<QListWidget>(kServers)->item(row)->checkState() == Qt::Checked;
    }
    QToolButton* Arrow(int spin, int direction) const {
        for (QToolButton* arrow : Of<CSpinButtonCtrl>(spin)->findChildren<QToolButton*>()) {
            if (arrow->arrowType() == (direction > 0 ? Qt::UpArrow : Qt::DownArrow))
                return arrow;
        }
        throw std::runtime_error("a spin without arrows");
    }
    /// Clicks an arrow of a spin: 1 up, -1 down.
    void ClickSpin(int spin, int direction) {
        QTest::mouseClick(Arrow(spin, direction), Qt::LeftButton);
    }
    /// The system's words for an error.
    static std::string Words(int error) {
        errno = error;
        return k4cmnGetLastErrorString();
    }

    MessageQueue messages;
    DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> installedClock{clock};
    CK4CmnDlgCreateSignFolders dialog{nullptr};
};

}  // namespace k4test
