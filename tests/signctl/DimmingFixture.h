#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <string>

#include "k4cmndlg/signctl/CK4CmnDlgDimmingCtrl.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RecordingSSRpc.h"

namespace k4test {

/// The dialog "Dimming" over the sign "Main" of the machine "North", on a recording service.
class Dimming : public testing::Test {
 protected:
    enum : int {
        kOk = 1,
        kCancel = 2,
        kApply = 3,
        kManual = 1111,
        kPhotocell = 1112,
        kRemotePhotocell = 1113,
        kScheduled = 1114,
        kLevel = 1115,
        kOffset = 1116,
        kSignName = 1118,
        kManualLow = 1119,
        kManualCaption = 1120,
        kManualHigh = 1121,
        kPhotocellLow = 1122,
        kPhotocellCaption = 1123,
        kPhotocellHigh = 1124,
    };

    void Configure(int mode, int level, int offset) {
        rpc.replies["k4ssGetConfig"].text = "16\t80\t0\t3\t0\t" + std::to_string(mode) + "\t0\t" +
                                            std::to_string(level) + "\t" + std::to_string(offset);
    }

    /// Runs the dialog and the steps in it. The calls made on opening are not kept.
    template <class Steps>
    int Run(Steps steps) {
        return Run(dialog, steps);
    }
    template <class Steps>
    int Run(CDialog& any, Steps steps) {
        return RunModal(any, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&any));
            rpc.calls.clear();
            steps();
        });
    }

    bool Enabled(int controlId) const { return Item<QWidget>(dialog, controlId)->isEnabled(); }
    int Position(int slider) const { return Item<QSlider>(dialog, slider)->value(); }
    bool On(int radio) const { return Item<QRadioButton>(dialog, radio)->isChecked(); }
    /// The index of the radio button that is on; -1 if none is.
    int RadioOn() const {
        for (int index = 0; index < 4; ++index) {
            if (On(kManual + index))
                return index;
        }
        return -1;
    }
    /// Clicks a radio button where it has its text.
    void Choose(int radio) { Click(dialog, radio); }
    void PressOn(int controlId, Qt::Key key) {
        Item<QWidget>(dialog, controlId)->setFocus();
        QTest::keyClick(Item<QWidget>(dialog, controlId), key);
    }
    /// The one call of k4ssSetDimming; empty if there is none, or more than one.
    std::string Sent() const {
        std::string sent;
        for (const std::string& call : rpc.calls) {
            if (call.starts_with("k4ssSetDimming"))
                sent = sent.empty() ? call : "more than one";
        }
        return sent;
    }

    MessageQueue messages;
    RecordingSSRpc rpc;
    k4cmn::ScopedProvider<K4SSRpc> installed{rpc};
    CK4CmnDlgDimmingCtrl dialog{"North", "Main", nullptr};
};

}  // namespace k4test
