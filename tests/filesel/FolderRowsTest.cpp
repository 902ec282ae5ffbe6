#include "k4cmndlg/filesel/FolderRows.h"

#include <gmock/gmock.h>

#include "k4cmndlg/filestore/contracts/FileKinds.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/StoreFixture.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FolderRows;
using testing::ElementsAre;

constexpr std::int64_t kTime = 1'785'506'709;  // 31 July 2026, 14:05 UTC

/// Knows the kinds of names that end in ".txt".
class Kinds final : public k4cmn::FileKinds {
 public:
    std::string TypeName(const std::string& path) override {
        return path.ends_with(".txt") ? "Text of " + path : std::string();
    }
};

class FolderList : public k4test::StoreFixture {
 protected:
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < rows.Count(); ++row)
            names.push_back(rows.Text(row, FolderRows::kName));
        return names;
    }

    k4test::ScopedTimeZone zone{"UTC0"};
    Kinds kinds;
    k4cmn::ScopedProvider<k4cmn::FileKinds> useKinds{kinds};
    FolderRows rows;
};

TEST_F(FolderList, ShowsNameSizeTypeAndTime) {
    MakeFile("A:\\f.Sq4", std::string(1023, 'x'), kTime);
    MakeFile("A:\\plain", std::string(1024, 'x'), 946'684'799);
    MakeFile("A:\\t.txt", "", 946'684'800);
    ASSERT_EQ(rows.Refresh("A:", "*", true), 1);
    EXPECT_THAT(Names(), ElementsAre("f.Sq4", "plain", "t.txt"));
    EXPECT_EQ(rows.Text(0, FolderRows::kSize), "    0 KB");
    EXPECT_EQ(rows.Text(1, FolderRows::kSize), "    1 KB");
    EXPECT_EQ(rows.Text(0, FolderRows::kType), "SQ4 File");
    EXPECT_EQ(rows.Text(1, FolderRows::kType), "File");
    EXPECT_EQ(rows.Text(2, FolderRows::kType), "Text of A:\\t.txt");
    EXPECT_EQ(rows.Text(0, FolderRows::kModified), "7/31/26 14:05");
    EXPECT_EQ(rows.Text(1, FolderRows::kModified), "12/31/99 23:59");
    EXPECT_EQ(rows.Text(2, FolderRows::kModified), "1/01/00 0:00");
    EXPECT_EQ(rows.Text(2, 4), "");
    EXPECT_EQ(rows.Path(1), "A:\\plain");
}

struct ExtensionCase {
    const char* list;
    std::vector<std::string> names;
};

class ExtensionList : public FolderList, public testing::WithParamInterface<ExtensionCase> {};

TEST_P(ExtensionList, AdmitsItsExtensions) {
    for (const char* name : {"a.SQ4", "b.sq4", "c.SD4", "d", "e.", "f.x.SD4", ".SQ4", "g.SQ44"})
        MakeFile(std::string("A:\\") + name);
    MakeFolder("A:\\folder.SQ4");
    EXPECT_EQ(rows.Refresh("A:", GetParam().list, true), 1);
    EXPECT_EQ(Names(), GetParam().names);
    EXPECT_EQ(rows.Extensions(), GetParam().list);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, ExtensionList,
    testing::Values(
        ExtensionCase{"*", {".SQ4", "a.SQ4", "b.sq4", "c.SD4", "d", "e.", "f.x.SD4", "g.SQ44"}},
        ExtensionCase{"SQ4;SD4", {".SQ4", "a.SQ4", "b.sq4", "c.SD4", "f.x.SD4"}},
        ExtensionCase{"sd4", {"c.SD4", "f.x.SD4"}}, ExtensionCase{"", {}}, ExtensionCase{";;", {}},
        ExtensionCase{"SC4", {}}, ExtensionCase{"x.SD4", {}}, ExtensionCase{" SQ4", {}},
        ExtensionCase{"SQ44;*;",
                      {".SQ4", "a.SQ4", "b.sq4", "c.SD4", "d", "e.", "f.x.SD4", "g.SQ44"}}));

TEST_F(FolderList, AFolderThatCantBeReadEmptiesTheList) {
    MakeFile("A:\\a.SQ4");
    ASSERT_EQ(rows.Refresh("A:", "*", true), 1);
    EXPECT_EQ(rows.Refresh("A:\\none", "SQ4", true), 0);
    EXPECT_EQ(rows.Count(), 0u);
    EXPECT_EQ(rows.Folder(), "A:\\none");
    EXPECT_EQ(rows.Extensions(), "SQ4");
    MakeFile("A:\\none\\b.SQ4");
    EXPECT_EQ(rows.RefreshAgain(true), 1);
    EXPECT_THAT(Names(), ElementsAre("b.SQ4"));
}

TEST_F(FolderList, ClicksSortBothWaysInTurn) {
    MakeFile("A:\\a", std::string(9000, 'x'), kTime);
    MakeFile("A:\\B", std::string(1, 'x'), kTime + 86400);
    MakeFile("A:\\c", std::string(3000, 'x'), kTime - 86400);
    ASSERT_EQ(rows.Refresh("A:", "*", true), 1);
    EXPECT_EQ(rows.SortAscending(), 1);
    rows.ClickColumn(FolderRows::kName);
    EXPECT_THAT(Names(), ElementsAre("c", "B", "a")) << "the first click sorts descending";
    EXPECT_EQ(rows.SortAscending(), 0);
    rows.ClickColumn(FolderRows::kName);
    EXPECT_THAT(Names(), ElementsAre("a", "B", "c"));
    rows.ClickColumn(FolderRows::kSize);
    EXPECT_THAT(Names(), ElementsAre("a", "c", "B")) << "it goes on from the present direction";
    EXPECT_EQ(rows.SortColumn(), FolderRows::kSize);
    rows.ClickColumn(FolderRows::kModified);
    EXPECT_THAT(Names(), ElementsAre("c", "a", "B")) << "as text: \"7/30\", \"7/31\", \"8/01\"";
    MakeFile("A:\\D", "x", kTime - 2 * 86400);
    ASSERT_EQ(rows.RefreshAgain(true), 1);
    EXPECT_THAT(Names(), ElementsAre("D", "c", "a", "B")) << "a new filling is sorted likewise";
}

TEST_F(FolderList, DatesSortAsText) {
    MakeFile("A:\\may", "x", kTime - 80 * 86400);
    MakeFile("A:\\december", "x", kTime - 220 * 86400);
    ASSERT_EQ(rows.Refresh("A:", "*", true), 1);
    rows.SortColumnEx(FolderRows::kModified);
    EXPECT_THAT(Names(), ElementsAre("december", "may"));
    MakeFile("A:\\october", "x", kTime - 300 * 86400);
    ASSERT_EQ(rows.RefreshAgain(true), 1);
    EXPECT_THAT(Names(), ElementsAre("october", "december", "may"))
        << "by month first, whatever the year";
}

TEST_F(FolderList, WithoutDetailsOnlyNamesAreThere) {
    MakeFile("A:\\b", std::string(9000, 'x'));
    MakeFile("A:\\A", "x");
    rows.ClickColumn(FolderRows::kSize);
    ASSERT_EQ(rows.Refresh("A:", "*", false), 1);
    EXPECT_THAT(Names(), ElementsAre("A", "b"));
    EXPECT_EQ(rows.Text(0, FolderRows::kSize), "");
    EXPECT_EQ(rows.Text(0, FolderRows::kType), "");
    EXPECT_EQ(rows.Text(0, FolderRows::kModified), "");
}

TEST_F(FolderList, ItemsAreAddedAtTheEnd) {
    MakeFile("A:\\folder\\a.SQ4");
    EXPECT_EQ(rows.AddItem("A:\\folder\\a.SQ4", true), 0);
    EXPECT_EQ(rows.AddItem("A:\\folder\\none.SQ4", true), -1);
    EXPECT_EQ(rows.AddItem("A:\\folder\\A.sq4", false), 1);
    EXPECT_THAT(Names(), ElementsAre("a.SQ4", "A.sq4"));
    EXPECT_EQ(rows.Text(0, FolderRows::kType), "SQ4 File");
    EXPECT_EQ(rows.Text(1, FolderRows::kType), "");
}

TEST_F(FolderList, WhatVanishedIsLeftOut) {
    MakeFile("A:\\a\nb.SQ4");
    fs::create_symlink("nowhere", home / "drives/A/gone.SQ4");
    ASSERT_EQ(rows.Refresh("A:", "SQ4", true), 1);
    EXPECT_THAT(Names(), ElementsAre("a\nb.SQ4"));
}

struct ViewCase {
    int mode;
    k4cmn::ListView view;
    int command;
};

class ListViewMode : public testing::TestWithParam<ViewCase> {};

TEST_P(ListViewMode, HasItsViewAndItsEntry) {
    EXPECT_EQ(k4cmn::ListViewOfMode(GetParam().mode), GetParam().view);
    EXPECT_EQ(k4cmn::CheckedListViewCommand(GetParam().mode), GetParam().command);
}

INSTANTIATE_TEST_SUITE_P(Modes, ListViewMode,
                         testing::Values(ViewCase{0, k4cmn::ListView::Details, 1179},
                                         ViewCase{1, k4cmn::ListView::List, 1178},
                                         ViewCase{2, k4cmn::ListView::SmallIcons, 1177},
                                         ViewCase{3, k4cmn::ListView::LargeIcons, 1176},
                                         ViewCase{4, k4cmn::ListView::LargeIcons, 1179},
                                         ViewCase{-1, k4cmn::ListView::LargeIcons, 1179}));

TEST(ListViewMenu, HasItsEntriesInOrder) {
    std::string texts;
    for (const k4cmn::ListViewEntry& entry : k4cmn::kListViewEntries)
        texts += std::string(entry.text) + "|";
    EXPECT_EQ(texts, "Lar&ge Icon|&Small Icon|&List|&Details|");
    EXPECT_STREQ(k4cmn::kListViewMenuText, "&View");
    EXPECT_STREQ(k4cmn::kListRefreshText, "&Refresh");
    EXPECT_EQ(k4cmn::kListRefreshCommand, 1175);
    EXPECT_STREQ(FolderRows::kHeadings[0], "Name");
    EXPECT_STREQ(FolderRows::kHeadings[3], "Modified");
}

}  // namespace
