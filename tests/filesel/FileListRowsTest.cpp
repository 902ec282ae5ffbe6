#include <gmock/gmock.h>
#include <unistd.h>

#include "k4cmndlg/filesel/FileRows.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/StoreFixture.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FileRows;
using k4cmn::LastModifiedFilter;
using testing::ElementsAre;

constexpr std::int64_t kTime = 1'785'506'709;  // 31 July 2026, 14:05 UTC

class FileList : public k4test::StoreFixture {
 protected:
    void Fill(int lastModified = -1, const std::string& extension = "SQ4") {
        rows.Fill({"A:", "T.x.y", "L", "", extension}, "K4400 Seq", 4,
                  LastModifiedFilter(lastModified, kTime));
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const k4cmn::FileRow& row : rows.Rows())
            names.push_back(row.name);
        return names;
    }
    static std::string Path(const std::string& name) { return "A:\\T.x.y.Sign\\L.Lib\\" + name; }

    k4test::ScopedTimeZone zone{"UTC0"};
    FileRows rows;
};

TEST_F(FileList, ShowsNameSizeTypeAndTime) {
    MakeFile(Path("Hello.SQ4"), std::string(2500, 'x'), kTime);
    Fill();
    ASSERT_EQ(rows.Rows().size(), 1u);
    EXPECT_EQ(rows.Text(0, 0), "Hello");
    EXPECT_EQ(rows.Text(0, 1), "    2 KB");
    EXPECT_EQ(rows.Text(0, 2), "K4400 Seq");
    EXPECT_EQ(rows.Text(0, 3), "07/31/26 02:05 PM");
    EXPECT_EQ(rows.Text(0, 4), "");
    EXPECT_EQ(rows.Image(), 4);
}

TEST_F(FileList, BeginsInTheOrderOfNames) {
    for (const char* name : {"b.SQ4", "C.sq4", "a.SQ4", "D.SQ4", "e.SD4", "f"})
        MakeFile(Path(name));
    MakeFolder(Path("folder.SQ4"));
    Fill();
    EXPECT_THAT(Names(), ElementsAre("a", "b", "C", "D"));
    EXPECT_EQ(rows.Find("C"), 2u);
    EXPECT_EQ(rows.Find("c"), std::nullopt) << "in exact case";
    EXPECT_EQ(rows.Find(""), std::nullopt);
}

TEST_F(FileList, FillingAnewReplacesTheRows) {
    MakeFile(Path("a.SQ4"));
    Fill();
    Fill(-1, "SD4");
    EXPECT_THAT(Names(), ElementsAre());
    Fill();
    rows.Clear();
    EXPECT_THAT(Names(), ElementsAre());
}

TEST_F(FileList, KeepsToTheFilter) {
    MakeFile(Path("new.SQ4"), "x", kTime - 60);
    MakeFile(Path("old.SQ4"), "x", kTime - 6 * 86400);
    Fill(1);
    EXPECT_THAT(Names(), ElementsAre("new"));
    Fill(4);
    EXPECT_THAT(Names(), ElementsAre("new", "old"));
}

TEST_F(FileList, ScriptsAreListedAtTheServerAlone) {
    MakeFile("A:\\run.SC4");
    MakeFile(Path("in.SC4"));
    Fill(-1, "SC4");
    EXPECT_THAT(Names(), ElementsAre());
    rows.Fill({"A:", "", "", "", "SC4"}, "K4400 Script", 6, LastModifiedFilter(-1, kTime));
    EXPECT_THAT(Names(), ElementsAre("run"));
}

TEST_F(FileList, OddNamesAreRowsLikeOthers) {
    for (const char* name : {"a\nb.SQ4", "t\tab.SQ4", "q\"uote.SQ4", ".SQ4", "a.b.SQ4", "%d.SQ4"})
        MakeFile(Path(name));
    Fill();
    EXPECT_THAT(Names(), ElementsAre("", "%d", "a\nb", "a.b", "q\"uote", "t\tab"));
}

TEST_F(FileList, WhatCantBeReadIsLeftOut) {
    MakeFile(Path("a.SQ4"));
    fs::create_symlink("a.SQ4", Native("A:\\T.x.y.Sign\\L.Lib") / "link.SQ4");
    fs::create_symlink("nowhere", Native("A:\\T.x.y.Sign\\L.Lib") / "gone.SQ4");
    fs::create_symlink("loop.SQ4", Native("A:\\T.x.y.Sign\\L.Lib") / "loop.SQ4");
    MakeFile(Path("back\\slash.SQ4"));
    const std::string noText = (Native("A:\\T.x.y.Sign\\L.Lib") / "\xff\xfe.SQ4").string();
    const int file = open(noText.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    ASSERT_GE(file, 0);
    close(file);
    Fill();
    EXPECT_THAT(Names(), ElementsAre("a", "link"));
}

TEST_F(FileList, OfAFolderThatIsGoneIsEmpty) {
    MakeFile(Path("a.SQ4"));
    Fill();
    fs::remove_all(home / "drives/A");
    Fill();
    EXPECT_THAT(Names(), ElementsAre());
}

TEST_F(FileList, SortsByEachColumn) {
    MakeFile(Path("a.SQ4"), std::string(5000, 'x'), kTime);
    MakeFile(Path("B.SQ4"), std::string(1, 'x'), kTime - 86400);
    MakeFile(Path("c.SQ4"), std::string(3000, 'x'), kTime + 86400);
    Fill();
    rows.Sort(FileRows::kName, false);
    EXPECT_THAT(Names(), ElementsAre("c", "B", "a"));
    rows.Sort(FileRows::kSize, true);
    EXPECT_THAT(Names(), ElementsAre("B", "c", "a"));
    rows.Sort(FileRows::kType, true);
    EXPECT_THAT(Names(), ElementsAre("B", "c", "a")) << "they are all of one type";
    rows.Sort(FileRows::kModified, true);
    EXPECT_THAT(Names(), ElementsAre("B", "a", "c"));
    rows.Sort(FileRows::kName, true);
    rows.Sort(FileRows::kModified, false);
    EXPECT_THAT(Names(), ElementsAre("c", "B", "a")) << "the names' order reversed";
}

TEST_F(FileList, OfAnAbsentStoreIsEmpty) {
    MakeFile(Path("a.SQ4"));
    const auto before = k4cmn::Provided<k4cmn::StoreAccess>::Install(nullptr);
    Fill();
    EXPECT_THAT(Names(), ElementsAre());
    k4cmn::Provided<k4cmn::StoreAccess>::Install(before);
}

}  // namespace
