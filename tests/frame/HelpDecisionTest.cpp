#include "k4cmndlg/frame/HelpDecision.h"

#include <gtest/gtest.h>

using k4cmn::DecideContextMenu;
using k4cmn::DecideHelpInfo;
using k4cmn::DialogHelp;
using k4cmn::HelpCommand;
using k4cmn::HelpDecision;
using k4cmn::HelpTarget;
using k4cmn::NextControl;
using Kind = HelpDecision::Kind;

namespace k4cmn {

void PrintTo(const HelpDecision& decision, std::ostream* out) {
    *out << (decision.kind == Kind::Popup    ? "popup 0x"
             : decision.kind == Kind::Dialog ? "dialog 0x"
                                             : "platform 0x")
         << std::hex << decision.contextId << std::dec << (decision.onNext ? " on next" : "");
}

}  // namespace k4cmn

namespace {

constexpr std::uint32_t kDialog = 0x200B0;
constexpr std::uint32_t kLabel = 0x00B0FFFF;
constexpr NextControl kNone{};

NextControl Next(std::uint32_t id) {
    return {true, false, id};
}

struct Row {
    const char* name;
    HelpTarget target;
    NextControl next;
    HelpDecision helpInfo;
    HelpDecision contextMenu;
};

// clang-format off: one row a line.
const Row kRows[] = {
    {"DialogItself",
     {true, kDialog, kDialog},
     Next(5),
     {Kind::Dialog, kDialog, false},
     {Kind::Dialog, kDialog, false}},
    {"DialogWithoutId", {true, 0, 0}, Next(5), {Kind::Dialog, 0, false}, {Kind::Dialog, 0, false}},
    {"ControlWithId",
     {false, 5, kDialog},
     Next(6),
     {Kind::Popup, 5, false},
     {Kind::Popup, 5, false}},
    {"ControlWithoutId",
     {false, 0, kDialog},
     Next(6),
     {Kind::Dialog, 0, false},
     {Kind::Dialog, 0, false}},
    {"ControlWithTheDialogsId",
     {false, kDialog, kDialog},
     Next(6),
     {Kind::Dialog, kDialog, false},
     {Kind::Popup, kDialog, false}},
    {"HighWordOnly",
     {false, 0x10000, kDialog},
     Next(6),
     {Kind::Popup, 0x10000, false},
     {Kind::Popup, 0x10000, false}},
    {"LabelBeforeControl",
     {false, kLabel, kDialog},
     Next(6),
     {Kind::Popup, 6, false},
     {Kind::Popup, 6, true}},
    {"LabelBeforeControlWithoutId",
     {false, kLabel, kDialog},
     Next(0),
     {Kind::Dialog, 0, false},
     {Kind::Dialog, kLabel, false}},
    {"LabelBeforeLabel",
     {false, kLabel, kDialog},
     Next(0xCFFFF),
     {Kind::Dialog, 0xCFFFF, false},
     {Kind::Dialog, kLabel, false}},
    {"LabelAlone",
     {false, kLabel, kDialog},
     {true, true, kLabel},
     {Kind::Dialog, kLabel, false},
     {Kind::Dialog, kLabel, false}},
    {"LabelWithNothingBehind",
     {false, kLabel, kDialog},
     kNone,
     {Kind::Dialog, kLabel, false},
     {Kind::Dialog, kLabel, false}},
    {"LabelBeforeControlWithTheDialogsId",
     {false, kLabel, kDialog},
     Next(kDialog),
     {Kind::Popup, kDialog, false},
     {Kind::Popup, kDialog, true}},
    {"LowWordAlone",
     {false, 0xFFFF, kDialog},
     Next(6),
     {Kind::Popup, 6, false},
     {Kind::Popup, 6, true}},
};
// clang-format on

class HelpRow : public testing::TestWithParam<Row> {};

}  // namespace

TEST_P(HelpRow, HelpInfoDecides) {
    const Row& row = GetParam();
    EXPECT_EQ(DecideHelpInfo(row.target, [&] { return row.next; }), row.helpInfo);
}

TEST_P(HelpRow, ContextMenuDecides) {
    const Row& row = GetParam();
    EXPECT_EQ(DecideContextMenu(true, row.target, [&] { return row.next; }), row.contextMenu);
}

TEST_P(HelpRow, ContextMenuThatIsOffIsThePlatforms) {
    const Row& row = GetParam();
    const auto next = [] {
        ADD_FAILURE() << "the control that follows isn't needed";
        return NextControl{};
    };
    EXPECT_EQ(DecideContextMenu(false, row.target, next).kind, Kind::Platform);
}

INSTANTIATE_TEST_SUITE_P(Rows, HelpRow, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(HelpDecision, NextControlIsLookedForBehindLabelsOnly) {
    const auto next = [] {
        ADD_FAILURE() << "the control that follows isn't needed";
        return NextControl{};
    };
    DecideHelpInfo({false, 5, kDialog}, next);
    DecideHelpInfo({true, kLabel, kLabel}, next);
    DecideHelpInfo({false, kLabel, kLabel}, next);
    DecideContextMenu(true, {false, 5, kDialog}, next);
    DecideContextMenu(true, {true, kLabel, kLabel}, next);
}

TEST(DialogHelp, ShowsTheTopicOfAnIdAndTheContentsWithoutOne) {
    EXPECT_EQ(DialogHelp(0x200B0), (HelpCommand{1, 0x200B0}));
    EXPECT_EQ(DialogHelp(0), (HelpCommand{11, 0}));
    EXPECT_EQ(DialogHelp(0x20000), (HelpCommand{11, 0}));
    EXPECT_EQ(DialogHelp(0x2FFFF), (HelpCommand{11, 0}));
    EXPECT_EQ(DialogHelp(1), (HelpCommand{1, 1}));
}
