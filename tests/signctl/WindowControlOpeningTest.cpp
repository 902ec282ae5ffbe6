#include <QLabel>
#include <QPushButton>
#include <future>
#include <thread>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "tests/signctl/WindowControlFixture.h"

namespace k4test {
namespace {

using k4cmn::SpinAccel;
using testing::ElementsAre;
using testing::ElementsAreArray;

TEST_F(WindowControl, ReadsTheSignOnOpeningByOneConnection) {
    std::vector<std::string> expected{"k4ssIsServer(North)",
                                      "k4ssConnectSignAsUser(North, null, null, null)",
                                      "k4ssGetConfig(Main)", "k4ssListSigns()"};
    for (int k = 1; k <= 8; ++k) {
        Window(k).sign = "W" + std::to_string(k);
        expected.push_back("k4ssListWindows(Main)");
        expected.push_back("k4ssGetConfig(W" + std::to_string(k) + ")");
    }
    expected.push_back("k4ssDisconnectSign()");
    RunModal(dialog, [&] {
        EXPECT_THAT(rpc.calls, ElementsAreArray(expected));
        dialog.EndDialog(IDCANCEL);
    });
}

TEST_F(WindowControl, IsTemplate107WithItsTitleAndWords) {
    EXPECT_EQ(dialog.ResourceId(), 107U);
    EXPECT_EQ(dialog.windowTitle().toStdString(), "Window Control");
    EXPECT_EQ(Text(kOk), "OK");
    EXPECT_EQ(Text(kApply), "Apply");
    EXPECT_EQ(Text(kCancel), "Cancel");
    std::vector<std::string> labels;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        labels.push_back(label->text().toStdString());
    EXPECT_THAT(labels, ElementsAre("Window", "Enable", "Window Sign", "Row", "Col", "1", "2", "3",
                                    "4", "5", "6", "7", "8"));
}

TEST_F(WindowControl, ShowsTheEightWindows) {
    Sign("clock", 8, 32);
    Window(2) = {"clock", 1, -3, 9};
    Window(8) = {"Tick", 1, 16, 73};
    Run([&] {
        for (int k = 1; k <= 8; ++k) {
            const Place& place = Window(k);
            EXPECT_EQ(Item<QCheckBox>(dialog, kEnable + k)->isChecked(), place.open != 0) << k;
            EXPECT_EQ(Text(kRow + k), std::to_string(place.row)) << k;
            EXPECT_EQ(Text(kColumn + k), std::to_string(place.column)) << k;
            const auto* sign = Item<QComboBox>(dialog, kWindowSign + k);
            EXPECT_EQ(sign->currentText().toStdString(), place.sign) << k;
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ItsCombosListAnEmptyEntryAndTheSignsSortedAndCantBeChanged) {
    Run([&] {
        for (int k = 1; k <= 8; ++k) {
            const auto* combo = Item<QComboBox>(dialog, kWindowSign + k);
            EXPECT_FALSE(combo->isEnabled());
            EXPECT_FALSE(combo->isEditable());
            std::vector<std::string> entries;
            for (int i = 0; i < combo->count(); ++i)
                entries.push_back(combo->itemText(i).toStdString());
            EXPECT_THAT(entries, ElementsAre("", "clock", "Main", "Tick"));
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AWindowSignThatTheListLacksIsNotShown) {
    Window(1).sign = "Gone";
    Run([&] {
        EXPECT_EQ(Item<QComboBox>(dialog, kWindowSign + 1)->currentText().toStdString(), "");
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ItsFieldsAreBoundBelowByTheWindowSignAndAboveByTheMainSign) {
    Sign("clock", 4, 40);
    Window(5).sign = "clock";
    Run([&] {
        for (int k = 1; k <= 8; ++k) {
            EXPECT_EQ(Spin(kRowSpin + k)->Lower(), k == 5 ? -3 : -7) << k;
            EXPECT_EQ(Spin(kRowSpin + k)->Upper(), 16) << k;
            EXPECT_EQ(Spin(kColumnSpin + k)->Lower(), k == 5 ? -32 : -8) << k;
            EXPECT_EQ(Spin(kColumnSpin + k)->Upper(), 80) << k;
        }
        Click(dialog, kCancel);
    });
}

struct Bounds {
    const char* what;
    std::uint32_t rows;
    std::uint32_t columns;
    int color;
    int rowMaximum;
    int columnMaximum;
};

class WindowControlBounds : public WindowControl, public testing::WithParamInterface<Bounds> {};

TEST_P(WindowControlBounds, AreThoseOfTheMainSign) {
    MainSign(GetParam().rows, GetParam().columns, GetParam().color);
    Run([&] {
        EXPECT_EQ(Spin(kRowSpin + 1)->Upper(), GetParam().rowMaximum);
        EXPECT_EQ(Spin(kColumnSpin + 8)->Upper(), GetParam().columnMaximum);
        Click(dialog, kCancel);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Signs, WindowControlBounds,
    testing::Values(Bounds{"Mono", 64, 80, 0, 64, 80}, Bounds{"QuadOf64Rows", 64, 80, 1, 63, 79},
                    Bounds{"QuadOf65Rows", 65, 81, 3, 65, 81}, Bounds{"Quad64K", 32, 32, 5, 31, 31},
                    Bounds{"Quad16M", 32, 33, 8, 31, 33}, Bounds{"FullColor", 32, 32, 11, 32, 32},
                    Bounds{"NoSize", 0, 0, 0, 0, 0}),
    [](const auto& row) { return row.param.what; });

TEST_F(WindowControl, ItsSpinsHaveTheirSpeeds) {
    Run([&] {
        for (int k = 1; k <= 8; ++k) {
            EXPECT_THAT(Spin(kRowSpin + k)->GetAccel(),
                        ElementsAre(SpinAccel{0, 1}, SpinAccel{2, 8}, SpinAccel{4, 16}));
            EXPECT_THAT(Spin(kColumnSpin + k)->GetAccel(),
                        ElementsAre(SpinAccel{0, 8}, SpinAccel{2, 16}, SpinAccel{4, 32}));
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ItsRowSpinsStepByTwoOnAQuadSign) {
    MainSign(64, 80, kQuad);
    Run([&] {
        for (int k = 1; k <= 8; ++k)
            EXPECT_THAT(Spin(kRowSpin + k)->GetAccel(),
                        ElementsAre(SpinAccel{0, 2}, SpinAccel{2, 8}, SpinAccel{4, 16}));
        Click(dialog, kCancel);
    });
}

// What can't be read ------------------------------------------------------------------------------

TEST_F(WindowControl, AServiceOutOfReachCancelsTheDialogBeforeItAppears) {
    rpc.results["k4ssConnectSignAsUser"] = 1;
    messages.Expect(k4cmn::PlainMessage("Sign service unavailable."), k4cmn::MessageAnswer::Ok,
                    [&] { EXPECT_FALSE(dialog.isVisible()); });
    bool shown = false;
    EXPECT_EQ(RunModal(dialog,
                       [&] {
                           shown = true;
                           dialog.EndDialog(IDOK);
                       }),
              IDCANCEL);
    EXPECT_FALSE(shown);
    EXPECT_THAT(rpc.calls,
                ElementsAre("k4ssIsServer(North)", "k4ssConnectSignAsUser(North, null, null, null)",
                            "k4ssDisconnectSign()"));
}

TEST_F(WindowControl, AMainSignThatCantBeReadIsTakenForASmallMonochromeOne) {
    configs.erase("Main");
    Run([&] {
        EXPECT_EQ(Spin(kRowSpin + 1)->Upper(), 7);
        EXPECT_EQ(Spin(kColumnSpin + 1)->Upper(), 16);
        EXPECT_EQ(Spin(kRowSpin + 1)->GetAccel().front().step, 1);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AWindowSignThatCantBeReadKeepsItsLowerBoundsAtOne) {
    configs.erase("Tick");
    Sign("clock", 8, 16);
    Window(3).sign = "clock";
    Run([&] {
        for (int k = 1; k <= 8; ++k) {
            EXPECT_EQ(Spin(kRowSpin + k)->Lower(), k == 3 ? -7 : 1) << k;
            EXPECT_EQ(Spin(kColumnSpin + k)->Lower(), k == 3 ? -8 : 1) << k;
        }
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, AWindowSignThatReportsNoSizeKeepsItsLowerBoundsAtOne) {
    configs["Tick"] = "";
    Run([&] {
        EXPECT_EQ(Spin(kRowSpin + 1)->Lower(), 1);
        EXPECT_EQ(Spin(kColumnSpin + 1)->Lower(), 1);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, WindowsThatCantBeReadShowRowAndColumnNoughtWithoutAMessage) {
    windowsFail = true;
    Run([&] {
        for (int k = 1; k <= 8; ++k) {
            EXPECT_FALSE(Item<QCheckBox>(dialog, kEnable + k)->isChecked());
            EXPECT_EQ(Text(kRow + k), "0");
            EXPECT_EQ(Text(kColumn + k), "0");
        }
        messages.Expect("Enter an integer between 1 and 16.");
        Click(dialog, kOk);
        EXPECT_EQ(messages.Pending(), 0U);
        EXPECT_EQ(FocusedId(dialog), kRow + 1);
        EXPECT_TRUE(Sent().empty());
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, ASignListThatCantBeReadLeavesTheEmptyEntry) {
    rpc.results["k4ssListSigns"] = 1;
    Run([&] {
        EXPECT_EQ(Item<QComboBox>(dialog, kWindowSign + 1)->count(), 1);
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, BadRepliesOpenTheDialogAllTheSame) {
    const std::string replies[] = {
        std::string(1024, '\n'),
        std::string(1024, '9'),
        "a\tb\tc\td\n",
        "Tick\t1\t99999999999999\t-99999999999999\n",
        "\xFF\xFE\t\x80\t\x81\t\x82\n",
        std::string("\0\t\0\t", 4),
        "Tick\t1\t2147483647\t-2147483648\n",
        "4294967295\t4294967295\t1\t1\n",
        "",
    };
    for (const std::string& reply : replies) {
        rpc.onCall = nullptr;
        for (const char* stub : {"k4ssGetConfig", "k4ssListWindows", "k4ssListSigns"})
            rpc.replies[stub] = {reply, {}, {}, 0, false};
        CK4CmnDlgWindowControl other("North", "Main", nullptr);
        EXPECT_EQ(Run(other,
                      [&] {
                          for (int k = 1; k <= 8; ++k)
                              QTest::keyClick(Item<QLineEdit>(other, kColumn + k), Qt::Key_Up);
                          other.EndDialog(IDCANCEL);
                      }),
                  IDCANCEL);
    }
}

// The lock ----------------------------------------------------------------------------------------

/// Another thread that waits for the lock of the sign service's client.
class Rival {
 public:
    /// Starts the wait and returns when the thread runs.
    void Start() {
        std::promise<void> running;
        m_done = std::async(std::launch::async, [&running] {
            running.set_value();
            const k4cmn::CriticalSectionLock lock(CK4CmnSS::m_cs, 0);
        });
        running.get_future().wait();
    }
    /// Whether it got the lock within a time.
    bool GotItWithin(std::chrono::milliseconds time) const {
        return m_done.wait_for(time) == std::future_status::ready;
    }

 private:
    std::future<void> m_done;
};

TEST_F(WindowControl, HoldsTheLockFromConnectingToTheLastRead) {
    Rival rival;
    const auto prepare = rpc.onCall;
    int heldCalls = 0;
    rpc.onCall = [&](const std::string& stub) {
        prepare(stub);
        if (stub == "k4ssIsServer" && rpc.calls.size() == 1)
            rival.Start();
        EXPECT_FALSE(rival.GotItWithin(std::chrono::milliseconds(2))) << rpc.calls.back();
        ++heldCalls;
    };
    RunModal(dialog, [&] {
        EXPECT_TRUE(rival.GotItWithin(std::chrono::seconds(10)));
        EXPECT_EQ(heldCalls, 21);
        rpc.onCall = prepare;
        dialog.EndDialog(IDCANCEL);
    });
}

TEST_F(WindowControl, HoldsTheLockFromConnectingToTheLastWrite) {
    Run([&] {
        Rival rival;
        const auto prepare = rpc.onCall;
        rpc.onCall = [&](const std::string& stub) {
            prepare(stub);
            if (stub == "k4ssIsServer")
                rival.Start();
            EXPECT_FALSE(rival.GotItWithin(std::chrono::milliseconds(2))) << rpc.calls.back();
        };
        Click(dialog, kApply);
        EXPECT_EQ(rpc.Count("k4ssWindowMove"), 8U);
        EXPECT_TRUE(rival.GotItWithin(std::chrono::seconds(10)));
        rpc.onCall = prepare;
        Click(dialog, kCancel);
    });
}

TEST_F(WindowControl, HoldsTheLockWhileAMessageOfOpeningIsShown) {
    Rival rival;
    rpc.results["k4ssConnectSignAsUser"] = 1;
    messages.Expect(k4cmn::PlainMessage("Sign service unavailable."), k4cmn::MessageAnswer::Ok,
                    [&] {
                        rival.Start();
                        EXPECT_FALSE(rival.GotItWithin(std::chrono::milliseconds(100)));
                    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    ASSERT_EQ(messages.Pending(), 0U);
    EXPECT_TRUE(rival.GotItWithin(std::chrono::seconds(10)));
}

TEST_F(WindowControl, HoldsTheLockWhileAMessageOfApplyingIsShown) {
    Run([&] {
        rpc.results["k4ssConnectSignAsUser"] = 1;
        for (const int button : {+kApply, +kOk}) {
            Rival rival;
            messages.Expect(k4cmn::PlainMessage("Sign service unavailable."),
                            k4cmn::MessageAnswer::Ok, [&] {
                                rival.Start();
                                EXPECT_FALSE(rival.GotItWithin(std::chrono::milliseconds(100)));
                            });
            Click(dialog, button);
            ASSERT_EQ(messages.Pending(), 0U);
            EXPECT_TRUE(rival.GotItWithin(std::chrono::seconds(10)));
        }
    });
}

}  // namespace
}  // namespace k4test
