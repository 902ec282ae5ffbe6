#include "suite/ui/HelpTopics.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/support/QtMessages.h"
#include "tests/support/TempFolder.h"

using k4suite::HelpTopic;
using k4suite::HelpTopics;

namespace {

constexpr char kIndex[] = ":/k4help/index.txt";

struct IdRow {
    const char* what;
    std::uint32_t first;
    std::uint32_t last;
    const char* title;
};

class BuiltInHelp : public testing::TestWithParam<IdRow> {};

TEST_P(BuiltInHelp, HasATopicForEachId) {
    const HelpTopics topics(kIndex);
    for (std::uint32_t id = GetParam().first; id <= GetParam().last; ++id) {
        const HelpTopic* const topic = topics.Find(id);
        ASSERT_NE(topic, nullptr) << std::hex << id;
        EXPECT_EQ(topic->title, GetParam().title);
        EXPECT_GT(topic->FirstParagraph().size(), 40u);
        EXPECT_EQ(topic->FirstParagraph().find('#'), std::string::npos);
        EXPECT_EQ(topic->FirstParagraph().find("\n\n"), std::string::npos);
    }
}

constexpr std::uint32_t kDimming = 0x1000000 + (176u << 16);
constexpr std::uint32_t kWindows = 0x1000000 + (107u << 16);

INSTANTIATE_TEST_SUITE_P(
    Rows, BuiltInHelp,
    testing::Values(IdRow{"Dimming", 0x10200B0, 0x10200B0, "Dimming"},
                    IdRow{"DimmingSign", kDimming + 1118, kDimming + 1118, "Sign"},
                    IdRow{"Manual", kDimming + 1111, kDimming + 1111, "Manual"},
                    IdRow{"Photocell", kDimming + 1112, kDimming + 1112, "Photocell"},
                    IdRow{"RemotePhotocell", kDimming + 1113, kDimming + 1113, "Remote Photocell"},
                    IdRow{"Scheduled", kDimming + 1114, kDimming + 1114, "Scheduled"},
                    IdRow{"Level", kDimming + 1115, kDimming + 1115, "Manual dimming level"},
                    IdRow{"LevelLabels", kDimming + 1119, kDimming + 1121, "Manual dimming level"},
                    IdRow{"Offset", kDimming + 1116, kDimming + 1116, "Photocell offset"},
                    IdRow{"OffsetLabels", kDimming + 1122, kDimming + 1124, "Photocell offset"},
                    IdRow{"DimmingOk", kDimming + 1, kDimming + 1, "OK"},
                    IdRow{"DimmingCancel", kDimming + 2, kDimming + 2, "Cancel"},
                    IdRow{"DimmingApply", kDimming + 3, kDimming + 3, "Apply"},
                    IdRow{"WindowControl", 0x102006B, 0x102006B, "Window Control"},
                    IdRow{"Enable", kWindows + 1015, kWindows + 1022, "Enable"},
                    IdRow{"WindowSign", kWindows + 1023, kWindows + 1030, "Window sign"},
                    IdRow{"Row", kWindows + 1031, kWindows + 1038, "Row"},
                    IdRow{"Column", kWindows + 1039, kWindows + 1046, "Column"},
                    IdRow{"RowSpin", kWindows + 1047, kWindows + 1054, "Row"},
                    IdRow{"ColumnSpin", kWindows + 1055, kWindows + 1062, "Column"},
                    IdRow{"WindowOk", kWindows + 1, kWindows + 1, "OK"},
                    IdRow{"WindowCancel", kWindows + 2, kWindows + 2, "Cancel"},
                    IdRow{"WindowApply", kWindows + 3, kWindows + 3, "Apply"}),
    [](const auto& row) { return row.param.what; });

TEST(BuiltInHelpPages, IdsOfApplicationsAndUnknownOnesHaveNoTopic) {
    const HelpTopics topics(kIndex);
    for (const std::uint32_t id :
         {0u, 1u, 0x1000000u, 0x200B0u, 176u << 16 | 1111u, kDimming + 0xFFFF, kDimming + 1117,
          kWindows + 1014, kWindows + 1063, 0xFFFFFFFFu})
        EXPECT_EQ(topics.Find(id), nullptr) << std::hex << id;
}

TEST(BuiltInHelpPages, EachTopicHasAPlaceOfItsOwnAndIsInTheContents) {
    const HelpTopics topics(kIndex);
    const std::string contents = topics.PageText(HelpTopics::ContentsPage());
    std::set<std::string> links;
    for (const HelpTopic& topic : topics.All()) {
        const std::string link = HelpTopics::LinkTo(topic);
        EXPECT_TRUE(links.insert(link).second) << link;
        EXPECT_NE(contents.find("[" + topic.title + "](" + link + ")"), std::string::npos) << link;
    }
    EXPECT_EQ(links.size(), 19u);
}

TEST(HelpIndex, WhatIsWrongIsToldAndTheRestIsUsed) {
    const k4test::TempFolder folder;
    folder.Write("page.md", "# Page\n\nintro\n\n## One & two\n\nfirst\nline\n\nsecond\n");
    folder.Write("index.txt",
                 "# comment\n\n1 - page.md\n1 5-7 page.md#one-two\nrubbish\n1 8 page.md#nothing\n"
                 "1 9 gone.md\n1 4294967295 page.md\n1 9-1 page.md\n");
    const k4test::ExpectWarning rubbish(QStringLiteral("help index, not understood: rubbish"));
    const k4test::ExpectWarning section(QStringLiteral("no such section: 1 8 page.md#nothing"));
    const k4test::ExpectWarning page(QStringLiteral("no help page: 1 9 gone.md"));
    const HelpTopics topics((folder / "index.txt").string());

    ASSERT_NE(topics.Find(0x1020001), nullptr);
    EXPECT_EQ(topics.Find(0x1020001)->FirstParagraph(), "intro");
    ASSERT_NE(topics.Find(0x1010006), nullptr);
    EXPECT_EQ(topics.Find(0x1010006)->FirstParagraph(), "first\nline");
    EXPECT_EQ(topics.Find(0x1010008), nullptr);
    EXPECT_EQ(topics.Find(0x1010009), nullptr);
    EXPECT_EQ(topics.PageText("gone.md"), "");
}

TEST(HelpIndex, MissingOneLeavesNoTopics) {
    const k4test::ExpectWarning missing(QStringLiteral("no help index: /nonexistent/index.txt"));
    const HelpTopics topics("/nonexistent/index.txt");
    EXPECT_TRUE(topics.All().empty());
    EXPECT_EQ(topics.Find(0x10200B0), nullptr);
}

TEST(HelpAnchor, IsTheHeadingInLowerCaseWithDashes) {
    EXPECT_EQ(k4suite::AnchorOf("Manual dimming level"), "manual-dimming-level");
    EXPECT_EQ(k4suite::AnchorOf("  One & two!  "), "one-two");
    EXPECT_EQ(k4suite::AnchorOf(""), "");
}

}  // namespace
