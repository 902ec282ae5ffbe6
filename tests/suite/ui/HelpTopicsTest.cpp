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
constexpr std::uint32_t kSheet = 0x1000000 + (200u << 16);
constexpr std::uint32_t kGeneral = 0x1000000 + (201u << 16);
constexpr std::uint32_t kAdvanced = 0x1000000 + (202u << 16);
constexpr std::uint32_t kThumbnail = 0x1000000 + (203u << 16);

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
                    IdRow{"Properties", 0x10200C8, 0x10200C8, "Properties"},
                    IdRow{"General", 0x10200C9, 0x10200C9, "General"},
                    IdRow{"Advanced", 0x10200CA, 0x10200CA, "Advanced"},
                    IdRow{"ThumbnailPage", 0x10200CB, 0x10200CB, "Thumbnail"},
                    IdRow{"PropertiesOk", kSheet + 1, kSheet + 1, "OK"},
                    IdRow{"PropertiesCancel", kSheet + 2, kSheet + 2, "Cancel"},
                    IdRow{"PropertiesApply", kSheet + 3, kSheet + 3, "Apply"},
                    IdRow{"FileName", kGeneral + 1201, kGeneral + 1201, "File name"},
                    IdRow{"FrameSize", kGeneral + 1202, kGeneral + 1202, "Frame size"},
                    IdRow{"PixelTech", kGeneral + 1203, kGeneral + 1203, "Pixel technology"},
                    IdRow{"ColorTech", kGeneral + 1204, kGeneral + 1204, "Color technology"},
                    IdRow{"Duration", kGeneral + 1205, kGeneral + 1205, "Duration"},
                    IdRow{"Frames", kGeneral + 1206, kGeneral + 1206, "Frames"},
                    IdRow{"PreviewOnly", kGeneral + 1207, kGeneral + 1207, "Preview only"},
                    IdRow{"FileNameLabel", kGeneral + 1211, kGeneral + 1211, "File name"},
                    IdRow{"FramesLabel", kGeneral + 1216, kGeneral + 1216, "Frames"},
                    IdRow{"Compression", kAdvanced + 1221, kAdvanced + 1221, "File compression"},
                    IdRow{"Keywords", kAdvanced + 1222, kAdvanced + 1222, "Keywords"},
                    IdRow{"Notes", kAdvanced + 1223, kAdvanced + 1223, "Notes"},
                    IdRow{"NotesLabel", kAdvanced + 1233, kAdvanced + 1233, "Notes"},
                    IdRow{"Frame", kThumbnail + 1241, kThumbnail + 1244, "Thumbnail frame"},
                    IdRow{"Picture", kThumbnail + 1245, kThumbnail + 1245, "Thumbnail picture"},
                    IdRow{"PictureLabel", kThumbnail + 1252, kThumbnail + 1252,
                          "Thumbnail picture"},
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

constexpr std::uint32_t kFileProperties = 0x1000000 + (181u << 16);

INSTANTIATE_TEST_SUITE_P(
    FileProperties, BuiltInHelp,
    testing::Values(
        IdRow{"Page", 0x10200B5, 0x10200B5, "File Properties"},
        IdRow{"FileName", kFileProperties + 1203, kFileProperties + 1204, "File name"},
        IdRow{"PreviewOnly", kFileProperties + 1205, kFileProperties + 1205,
              "Preview Only Sequence"},
        IdRow{"FrameSize", kFileProperties + 1206, kFileProperties + 1207, "Frame size"},
        IdRow{"PixelTech", kFileProperties + 1208, kFileProperties + 1209, "Pixel tech"},
        IdRow{"ColorTech", kFileProperties + 1210, kFileProperties + 1211, "Color tech"},
        IdRow{"Duration", kFileProperties + 1212, kFileProperties + 1213, "Duration"},
        IdRow{"Frames", kFileProperties + 1214, kFileProperties + 1215, "Frames"},
        IdRow{"Compression", kFileProperties + 1216, kFileProperties + 1217, "File compression"},
        IdRow{"Keywords", kFileProperties + 1218, kFileProperties + 1219, "Keywords"},
        IdRow{"Notes", kFileProperties + 1220, kFileProperties + 1221, "Notes"},
        IdRow{"Thumbnail", kFileProperties + 1222, kFileProperties + 1223, "Thumbnail"},
        IdRow{"ThumbnailFrame", kFileProperties + 1224, kFileProperties + 1226, "Thumbnail frame"},
        IdRow{"FrameCount", kFileProperties + 1227, kFileProperties + 1228, "Frame count"},
        IdRow{"Ok", kFileProperties + 1, kFileProperties + 1, "OK"}),
    [](const auto& row) { return row.param.what; });

constexpr std::uint32_t kFolders = 0x1000000 + (145u << 16);

INSTANTIATE_TEST_SUITE_P(
    CreateSignFolders, BuiltInHelp,
    testing::Values(IdRow{"Page", 0x1020091, 0x1020091, "Create New Sign Folders"},
                    IdRow{"Folder", kFolders + 1048, kFolders + 1048, "Folder"},
                    IdRow{"Palette", kFolders + 1267, kFolders + 1267, "Create Palette Folder"},
                    IdRow{"Rows", kFolders + 1015, kFolders + 1015, "Rows"},
                    IdRow{"RowSpin", kFolders + 1019, kFolders + 1019, "Rows"},
                    IdRow{"Columns", kFolders + 1017, kFolders + 1017, "Columns"},
                    IdRow{"ColumnSpin", kFolders + 1020, kFolders + 1020, "Columns"},
                    IdRow{"Color", kFolders + 1014, kFolders + 1014, "Color Technology"},
                    IdRow{"Pixel", kFolders + 1021, kFolders + 1021, "Pixel Technology"},
                    IdRow{"Servers", kFolders + 1022, kFolders + 1022, "Select Servers"},
                    IdRow{"Ok", kFolders + 1, kFolders + 1, "OK"},
                    IdRow{"Cancel", kFolders + 2, kFolders + 2, "Cancel"}),
    [](const auto& row) { return row.param.what; });

constexpr std::uint32_t kFindName = 0x1000000 + (112u << 16);
constexpr std::uint32_t kFindSign = 0x1000000 + (113u << 16);
constexpr std::uint32_t kFindSize = 0x1000000 + (114u << 16);
constexpr std::uint32_t kFindTree = 0x1000000 + (115u << 16);

INSTANTIATE_TEST_SUITE_P(
    FindPages, BuiltInHelp,
    testing::Values(
        IdRow{"Name", 0x1020070, 0x1020070, "Name"},
        IdRow{"Keywords", kFindName + 1101, kFindName + 1101, "Keywords"},
        IdRow{"Combine", kFindName + 1102, kFindName + 1103, "Combine keywords with"},
        IdRow{"FileName", kFindName + 1104, kFindName + 1104, "File name"},
        IdRow{"FileTypes", kFindName + 1105, kFindName + 1105, "File types"},
        IdRow{"LookIn", kFindName + 1106, kFindName + 1107, "Look in"},
        IdRow{"Sign", 0x1020071, 0x1020071, "Sign"},
        IdRow{"Enable", kFindSign + 1111, kFindSign + 1111, "Enable sign searching"},
        IdRow{"Rows", kFindSign + 1112, kFindSign + 1113, "Rows"},
        IdRow{"Cols", kFindSign + 1114, kFindSign + 1115, "Cols"},
        IdRow{"Color", kFindSign + 1116, kFindSign + 1116, "Color technology"},
        IdRow{"Pixel", kFindSign + 1117, kFindSign + 1117, "Pixel technology"},
        IdRow{"Size", 0x1020072, 0x1020072, "Size"},
        IdRow{"SizeIs", kFindSize + 1121, kFindSize + 1123, "Size is"},
        IdRow{"AllFiles", kFindSize + 1124, kFindSize + 1124, "All files"},
        IdRow{"Modified", kFindSize + 1125, kFindSize + 1125, "Files created or modified"},
        IdRow{"Between", kFindSize + 1126, kFindSize + 1128, "Between"},
        IdRow{"Months", kFindSize + 1129, kFindSize + 1131, "During the previous months"},
        IdRow{"Days", kFindSize + 1132, kFindSize + 1134, "During the previous days"},
        IdRow{"Tree", 0x1020073, 0x1020073, "Select Directory To Search"},
        IdRow{"Directories", kFindTree + 1140, kFindTree + 1140, "Directories"},
        IdRow{"TreeOk", kFindTree + 1, kFindTree + 1, "OK"},
        IdRow{"TreeCancel", kFindTree + 2, kFindTree + 2, "Cancel"}),
    [](const auto& row) { return row.param.what; });

constexpr std::uint32_t kFileSelection = 0x1000000 + (110u << 16);
constexpr std::uint32_t kCreateLibrary = 0x1000000 + (111u << 16);

INSTANTIATE_TEST_SUITE_P(
    FileSelection, BuiltInHelp,
    testing::Values(
        IdRow{"Page", 0x102006E, 0x102006E, "Select File"},
        IdRow{"Tree", kFileSelection + 1070, kFileSelection + 1070,
              "Servers, sign types and libraries"},
        IdRow{"List", kFileSelection + 1071, kFileSelection + 1071, "Files"},
        IdRow{"Path", kFileSelection + 1072, kFileSelection + 1072, "Path"},
        IdRow{"FileName", kFileSelection + 1073, kFileSelection + 1073, "File name"},
        IdRow{"FileTypes", kFileSelection + 1074, kFileSelection + 1074, "File types"},
        IdRow{"LastModified", kFileSelection + 1075, kFileSelection + 1075, "Last modified"},
        IdRow{"Up", kFileSelection + 1077, kFileSelection + 1077, "Up One Level"},
        IdRow{"ListView", kFileSelection + 1078, kFileSelection + 1078, "List"},
        IdRow{"Properties", kFileSelection + 1079, kFileSelection + 1079, "Properties"},
        IdRow{"Details", kFileSelection + 1080, kFileSelection + 1080, "Details"},
        IdRow{"Filter", kFileSelection + 1081, kFileSelection + 1081,
              "Show Only Current Sign Type"},
        IdRow{"PathLabel", kFileSelection + 1082, kFileSelection + 1082, "Path"},
        IdRow{"FileNameLabel", kFileSelection + 1083, kFileSelection + 1083, "File name"},
        IdRow{"FileTypesLabel", kFileSelection + 1084, kFileSelection + 1084, "File types"},
        IdRow{"LastModifiedLabel", kFileSelection + 1085, kFileSelection + 1085, "Last modified"},
        IdRow{"Ok", kFileSelection + 1, kFileSelection + 1, "OK"},
        IdRow{"Cancel", kFileSelection + 2, kFileSelection + 2, "Cancel"},
        IdRow{"CreateLibrary", 0x102006F, 0x102006F, "Create Library"},
        IdRow{"SignFolder", kCreateLibrary + 1086, kCreateLibrary + 1086, "Sign folder"},
        IdRow{"LibraryName", kCreateLibrary + 1087, kCreateLibrary + 1088, "Library name"},
        IdRow{"CreateLibraryOk", kCreateLibrary + 1, kCreateLibrary + 1, "OK"},
        IdRow{"CreateLibraryCancel", kCreateLibrary + 2, kCreateLibrary + 2, "Cancel"}),
    [](const auto& row) { return row.param.what; });

constexpr std::uint32_t kSelectDate = 116u << 16;
constexpr std::uint32_t kQuickMessage = 0x1000000 + (117u << 16);

INSTANTIATE_TEST_SUITE_P(
    SmallDialogs, BuiltInHelp,
    testing::Values(IdRow{"Calendar", kSelectDate + 1145, kSelectDate + 1145, "Calendar"},
                    IdRow{"DateOk", kSelectDate + 1, kSelectDate + 1, "OK"},
                    IdRow{"DateCancel", kSelectDate + 2, kSelectDate + 2, "Cancel"},
                    IdRow{"QuickMessage", 0x1020075, 0x1020075, "Quick Message"},
                    IdRow{"Text", kQuickMessage + 1150, kQuickMessage + 1150, "Text"},
                    IdRow{"Font", kQuickMessage + 1151, kQuickMessage + 1151, "Font"},
                    IdRow{"Rows", kQuickMessage + 1152, kQuickMessage + 1152, "Rows"},
                    IdRow{"Cols", kQuickMessage + 1153, kQuickMessage + 1153, "Cols"},
                    IdRow{"FontLabel", kQuickMessage + 1154, kQuickMessage + 1154, "Font"},
                    IdRow{"RowsLabel", kQuickMessage + 1155, kQuickMessage + 1155, "Rows"},
                    IdRow{"ColsLabel", kQuickMessage + 1156, kQuickMessage + 1156, "Cols"},
                    IdRow{"MessageOk", kQuickMessage + 1, kQuickMessage + 1, "OK"},
                    IdRow{"MessageCancel", kQuickMessage + 2, kQuickMessage + 2, "Cancel"}),
    [](const auto& row) { return row.param.what; });

TEST(BuiltInHelpPages, IdsOfApplicationsAndUnknownOnesHaveNoTopic) {
    const HelpTopics topics(kIndex);
    for (const std::uint32_t id :
         {0u, 1u, 0x1000000u, 0x200B0u, 176u << 16 | 1111u, kDimming + 0xFFFF, kDimming + 1117,
          kWindows + 1014, kWindows + 1063, kFileProperties + 1202, kFileProperties + 1229,
          kSheet + 4, kGeneral + 1200, kThumbnail + 1246, 0x1000000u + kSelectDate + 1145,
          kQuickMessage - 0x1000000u + 1150, 0xFFFFFFFFu})
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
    EXPECT_EQ(links.size(), 123u);
}

TEST(HelpIndex, WhatIsWrongIsToldAndTheRestIsUsed) {
    const k4test::TempFolder folder;
    folder.Write("page.md", "# Page\n\nintro\n\n## One & two\n\nfirst\nline\n\nsecond\n");
    folder.Write("index.txt",
                 "# comment\n\n1 - page.md\n1 5-7 page.md#one-two\n2* - page.md\n2* 3 "
                 "page.md\nrubbish\n1 8 page.md#nothing\n"
                 "1 9 gone.md\n1 4294967295 page.md\n1 9-1 page.md\n");
    const k4test::ExpectWarning rubbish(QStringLiteral("help index, not understood: rubbish"));
    const k4test::ExpectWarning section(QStringLiteral("no such section: 1 8 page.md#nothing"));
    const k4test::ExpectWarning page(QStringLiteral("no help page: 1 9 gone.md"));
    const HelpTopics topics((folder / "index.txt").string());

    ASSERT_NE(topics.Find(0x1020001), nullptr);
    EXPECT_EQ(topics.Find(0x1020001)->FirstParagraph(), "intro");
    ASSERT_NE(topics.Find(0x1010006), nullptr);
    EXPECT_EQ(topics.Find(0x1010006)->FirstParagraph(), "first\nline");
    EXPECT_NE(topics.Find(0x20002), nullptr);
    EXPECT_NE(topics.Find(0x20003), nullptr);
    EXPECT_EQ(topics.Find(0x1020002), nullptr);
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
