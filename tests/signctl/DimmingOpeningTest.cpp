#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>

#include "tests/signctl/DimmingFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;

TEST_F(Dimming, ReadsTheSignOnOpeningByOneConnection) {
    Configure(5, 100, 0);
    RunModal(dialog, [&] {
        EXPECT_THAT(rpc.calls, ElementsAre("k4ssIsServer(North)",
                                           "k4ssConnectSignAsUser(North, null, null, null)",
                                           "k4ssGetConfig(Main)", "k4ssDisconnectSign()"));
        dialog.EndDialog(IDCANCEL);
    });
}

TEST_F(Dimming, IsTemplate176WithItsTitle) {
    EXPECT_EQ(dialog.ResourceId(), 176U);
    EXPECT_EQ(dialog.windowTitle().toStdString(), "Dimming");
}

TEST_F(Dimming, ShowsServiceAndSignInAFieldThatCanBeReadOnly) {
    Configure(5, 100, 0);
    Run([&] {
        EXPECT_EQ(TextOf(dialog, kSignName), "North\\Main");
        EXPECT_TRUE(Item<QLineEdit>(dialog, kSignName)->isReadOnly());
        Item<QLineEdit>(dialog, kSignName)->setFocus();
        QTest::keyClicks(Item<QLineEdit>(dialog, kSignName), QStringLiteral("x"));
        EXPECT_EQ(TextOf(dialog, kSignName), "North\\Main");
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, HasItsLabels) {
    const std::pair<int, const char*> labels[] = {
        {kManual, "&Manual"},
        {kPhotocell, "&Photocell"},
        {kRemotePhotocell, "&Remote Photocell"},
        {kScheduled, "&Scheduled"},
        {kManualCaption, "Manual Dimming &Level"},
        {kManualLow, "Dimmer /\nLights On\n(Night)"},
        {kManualHigh, "Brighter /\nLights Off\n(Day)"},
        {kPhotocellCaption, "Photocell &Offset"},
        {kPhotocellLow, "Sign Dimmer"},
        {kPhotocellHigh, "Sign Brighter"},
        {kOk, "OK"},
        {kApply, "&Apply"},
        {kCancel, "Cancel"},
    };
    for (const auto& [id, text] : labels)
        EXPECT_EQ(TextOf(dialog, id), text) << id;
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("signLabel"))->text().toStdString(),
              "Sign:");
}

TEST_F(Dimming, ItsLabelsDontChangeWithThePixelTechnology) {
    for (const char* pixel : {"1", "2", "3"}) {
        CK4CmnDlgDimmingCtrl other("North", "Main", nullptr);
        rpc.replies["k4ssGetConfig"].text = std::string("16\t80\t0\t") + pixel + "\t0\t5\t0\t9\t0";
        Run(other, [&] {
            EXPECT_EQ(TextOf(other, kManualLow), "Dimmer /\nLights On\n(Night)");
            EXPECT_EQ(TextOf(other, kPhotocellHigh), "Sign Brighter");
            other.EndDialog(IDCANCEL);
        });
    }
}

TEST_F(Dimming, ItsSlidersHaveTheirRangesAndTicks) {
    Configure(5, 100, 0);
    Run([&] {
        const auto* level = Item<QSlider>(dialog, kLevel);
        EXPECT_EQ(level->minimum(), 0);
        EXPECT_EQ(level->maximum(), 255);
        EXPECT_EQ(level->tickInterval(), 32);
        EXPECT_EQ(level->tickPosition(), QSlider::TicksBelow);
        const auto* offset = Item<QSlider>(dialog, kOffset);
        EXPECT_EQ(offset->minimum(), -64);
        EXPECT_EQ(offset->maximum(), 64);
        EXPECT_EQ(offset->tickInterval(), 16);
        EXPECT_EQ(offset->tickPosition(), QSlider::TicksBelow);
        Click(dialog, kCancel);
    });
}

struct Opened {
    int mode;
    int radio;
    bool manualGroup;
    bool photocellGroup;
};

class DimmingOpened : public Dimming, public testing::WithParamInterface<Opened> {};

TEST_P(DimmingOpened, ShowsTheSign) {
    Configure(GetParam().mode, 200, -33);
    Run([&] {
        EXPECT_EQ(RadioOn(), GetParam().radio);
        EXPECT_EQ(Position(kLevel), 200);
        EXPECT_EQ(Position(kOffset), -33);
        for (const int id : {kManualCaption, kLevel, kManualLow, kManualHigh})
            EXPECT_EQ(Enabled(id), GetParam().manualGroup) << id;
        for (const int id : {kPhotocellCaption, kOffset, kPhotocellLow, kPhotocellHigh})
            EXPECT_EQ(Enabled(id), GetParam().photocellGroup) << id;
        EXPECT_FALSE(Enabled(kApply));
        EXPECT_TRUE(Enabled(kOk));
        Click(dialog, kCancel);
    });
}

INSTANTIATE_TEST_SUITE_P(Modes, DimmingOpened,
                         testing::Values(Opened{0, 0, true, false}, Opened{1, 0, true, false},
                                         Opened{2, 1, false, true}, Opened{3, 2, false, false},
                                         Opened{4, 3, false, false}, Opened{5, 0, true, false}),
                         [](const auto& row) { return "Mode" + std::to_string(row.param.mode); });

struct Failure {
    const char* what;
    const char* stub;
    const char* words;
};

class DimmingNotRead : public Dimming, public testing::WithParamInterface<Failure> {};

TEST_P(DimmingNotRead, OpensWithNothingOnAfterTheClientsWords) {
    Configure(5, 200, -33);
    rpc.results[GetParam().stub] = 1;
    messages.Expect(GetParam().words);
    Run([&] {
        EXPECT_EQ(messages.Pending(), 0U);
        EXPECT_EQ(RadioOn(), -1);
        EXPECT_EQ(Position(kLevel), 0);
        EXPECT_EQ(Position(kOffset), 0);
        for (const int id : {kManualCaption, kLevel, kManualLow, kManualHigh, kPhotocellCaption,
                             kOffset, kPhotocellLow, kPhotocellHigh, kApply})
            EXPECT_FALSE(Enabled(id)) << id;
        EXPECT_EQ(TextOf(dialog, kSignName), "North\\Main");
        Click(dialog, kCancel);
    });
}

INSTANTIATE_TEST_SUITE_P(Failures, DimmingNotRead,
                         testing::Values(Failure{"NoConfiguration", "k4ssGetConfig",
                                                 "Could not get sign configuration from service"},
                                         Failure{"NoConnection", "k4ssConnectSignAsUser",
                                                 "Sign service unavailable."}),
                         [](const auto& row) { return row.param.what; });

TEST_F(Dimming, AReplyWithoutFieldsOpensAsModeZero) {
    rpc.replies["k4ssGetConfig"].text = "";
    Run([&] {
        EXPECT_EQ(RadioOn(), 0);
        EXPECT_EQ(Position(kLevel), 0);
        EXPECT_EQ(Position(kOffset), 0);
        Click(dialog, kCancel);
    });
}

TEST_F(Dimming, BadRepliesOpenWithinTheRanges) {
    const std::string replies[] = {
        "\t\t\t\t\t\t\t\t\t\t\t\t",       "a\tb\tc\td\te\tf\tg\th\ti",
        "1\t1\t1\t1\t1\t9\t1\t999\t-999", "1\t1\t1\t1\t1\t-7\t1\t-99999999999999\t99999999999999",
        std::string(1024, '9'),           std::string(1024, '\t'),
        std::string("\0\0\0", 3),         "\xFF\xFE\t\x80",
    };
    for (const std::string& reply : replies) {
        CK4CmnDlgDimmingCtrl other("North", "Main", nullptr);
        rpc.replies["k4ssGetConfig"] = {reply, {}, {}, 0, false};
        Run(other, [&] {
            const int level = Item<QSlider>(other, kLevel)->value();
            const int offset = Item<QSlider>(other, kOffset)->value();
            EXPECT_TRUE(level >= 0 && level <= 255) << level;
            EXPECT_TRUE(offset >= -64 && offset <= 64) << offset;
            EXPECT_TRUE(Item<QRadioButton>(other, kManual)->isChecked());
            other.EndDialog(IDCANCEL);
        });
    }
}

TEST_F(Dimming, AnyNameIsShownAsItIs) {
    for (const std::string& name :
         {std::string("R&D <b>board</b>"), std::string("\xE5\x8C\x97\xE9\x97\xA8"),
          std::string(5000, 'n'), std::string(), std::string("a\\b%s%n")}) {
        Configure(5, 1, 1);
        CK4CmnDlgDimmingCtrl other(name, name, nullptr);
        Run(other, [&] {
            EXPECT_EQ(TextOf(other, kSignName), name + "\\" + name);
            other.EndDialog(IDCANCEL);
        });
    }
}

}  // namespace
}  // namespace k4test
