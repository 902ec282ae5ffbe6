#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <array>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "k4cmndlg/signctl/CK4CmnDlgWindowControl.h"
#include "tests/support/DialogControls.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RecordingSSRpc.h"

namespace k4test {

/// The dialog "Window Control" over the sign "Main" of the machine "North", on a recording service.
/// Main is a monochrome sign of 16 rows and 80 columns. Its eight windows show the sign "Tick" of 8
/// rows and 16 columns, closed, at row 1 and the columns 1, 9, 17 and so on.
class WindowControl : public testing::Test {
 protected:
    enum : int {
        kOk = 1,
        kCancel = 2,
        kApply = 3,
        kEnable = 1014,
        kWindowSign = 1022,
        kRow = 1030,
        kColumn = 1038,
        kRowSpin = 1046,
        kColumnSpin = 1054,
    };
    static constexpr int kMono = 0;
    static constexpr int kQuad = 1;

    struct Place {
        std::string sign = "Tick";
        int open = 0;
        int row = 1;
        int column = 1;
    };

    WindowControl() {
        for (int k = 0; k < 8; ++k)
            places[static_cast<std::size_t>(k)].column = 1 + 8 * k;
        MainSign(16, 80, kMono);
        Sign("Tick", 8, 16);
        rpc.replies["k4ssListSigns"].text = "Main\n\tTick\n\tclock\n\n";
        rpc.onCall = [this](const std::string& stub) { Prepare(stub); };
    }

    void MainSign(std::uint32_t rows, std::uint32_t columns, int color) {
        configs["Main"] = std::to_string(rows) + "\t" + std::to_string(columns) + "\t" +
                          std::to_string(color) + "\t3\t0\t5\t0\t0\t0";
    }
    void Sign(const std::string& name, std::uint32_t rows, std::uint32_t columns) {
        configs[name] =
            std::to_string(rows) + "\t" + std::to_string(columns) + "\t0\t3\t0\t5\t0\t0\t0";
    }
    Place& Window(int k) { return places[static_cast<std::size_t>(k - 1)]; }

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

    /// Types a number into a field and leaves the field by the Tab key.
    void Enter(int field, const char* text) {
        TypeOver(dialog, field, QString::fromLatin1(text));
        PressKey(dialog, Qt::Key_Tab);
    }
    std::string Text(int field) const { return TextOf(dialog, field); }
    CSpinButtonCtrl* Spin(int id) const { return Item<CSpinButtonCtrl>(dialog, id); }
    /// Clicks an arrow of a spin: 1 up, -1 down.
    void ClickSpin(int id, int direction) {
        QTest::mouseClick(Arrow(id, direction), Qt::LeftButton);
    }
    QToolButton* Arrow(int id, int direction) const {
        for (QToolButton* arrow : Spin(id)->findChildren<QToolButton*>()) {
            if (arrow->arrowType() == (direction > 0 ? Qt::UpArrow : Qt::DownArrow))
                return arrow;
        }
        throw std::runtime_error("a spin without arrows");
    }
    /// The calls that change the sign.
    std::vector<std::string> Sent() const {
        std::vector<std::string> sent;
        for (const std::string& call : rpc.calls) {
            if (call.starts_with("k4ssWindow"))
                sent.push_back(call);
        }
        return sent;
    }

    MessageQueue messages;
    DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> installedClock{clock};
    RecordingSSRpc rpc;
    k4cmn::ScopedProvider<K4SSRpc> installed{rpc};
    std::array<Place, 8> places;
    std::map<std::string, std::string> configs;  ///< replies by sign; without one the read fails
    bool windowsFail = false;
    CK4CmnDlgWindowControl dialog{"North", "Main", nullptr};

 private:
    // A reply is taken before the hook of its own call, so that each call sets up the next.
    void Prepare(const std::string& stub) {
        if (stub == "k4ssConnectSignAsUser") {
            m_window = 0;
            SetConfig("Main");
            std::string lines;
            for (const Place& place : places)
                lines += place.sign + "\t" + std::to_string(place.open) + "\t" +
                         std::to_string(place.row - 1) + "\t" + std::to_string(place.column - 1) +
                         "\n";
            rpc.replies["k4ssListWindows"].text = lines;
            rpc.results["k4ssListWindows"] = windowsFail;
        } else if (stub == "k4ssListWindows") {
            SetConfig(windowsFail ? std::string() : places[m_window % 8].sign);
            ++m_window;
        }
    }
    void SetConfig(const std::string& sign) {
        const auto found = configs.find(sign);
        rpc.results["k4ssGetConfig"] = found == configs.end();
        rpc.replies["k4ssGetConfig"].text = found == configs.end() ? "" : found->second;
    }

    std::size_t m_window = 0;
};

}  // namespace k4test
