#include <gtest/gtest.h>

#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/frame/LibraryStrings.h"

namespace {

using namespace k4cmn;

TEST(FileListColumns, AreThePiecesOfTheirText) {
    const ResourceScope scope(LibraryStrings());
    const std::vector<FileColumn> columns = FileColumns();
    ASSERT_EQ(columns.size(), 4u);
    EXPECT_EQ(columns[0], (FileColumn{"Name                       ", false}));
    EXPECT_EQ(columns[1], (FileColumn{"         Size", true}));
    EXPECT_EQ(columns[2], (FileColumn{"Type                ", false}));
    EXPECT_EQ(columns[3], (FileColumn{" Modified                 ", false}))
        << "a blank is added to the text";
    EXPECT_EQ(kColumnMargin, 15);
}

TEST(FileListColumns, AnApplicationsTextMayHaveAnyNumber) {
    constexpr StringRow rows[] = {{IDS_FILE_COLUMNS, "a,,b,"}};
    const ResourceScope scope(rows);
    const std::vector<FileColumn> columns = FileColumns();
    ASSERT_EQ(columns.size(), 4u);
    EXPECT_EQ(columns[1], (FileColumn{"", true}));
    EXPECT_EQ(columns[3], (FileColumn{" ", false}));
}

TEST(FileListSize, IsInWholeKilobytesRoundedDown) {
    EXPECT_EQ(SizeText(0), "    0 KB");
    EXPECT_EQ(SizeText(1023), "    0 KB");
    EXPECT_EQ(SizeText(1024), "    1 KB");
    EXPECT_EQ(SizeText(99999ull * 1024 + 1023), "99999 KB");
    EXPECT_EQ(SizeText(100000ull * 1024), "100000 KB");
    EXPECT_EQ(SizeText(~0ull), "18014398509481983 KB");
}

TEST(FileListPattern, IsOfTheLibraryOrTheServer) {
    EXPECT_EQ(ListPattern({"A:", "T", "L", "f", "SQ4"}), "A:\\T.Sign\\L.Lib\\*.SQ4");
    EXPECT_EQ(ListPattern({"A:", "", "", "f", "SQ4"}), "A:\\.Sign\\.Lib\\*.SQ4");
    for (const char* extension : {"SC4", "DL4"}) {
        EXPECT_EQ(ListPattern({"A:", "", "", "f", extension}), std::string("A:\\*.") + extension);
        EXPECT_EQ(ListPattern({"A:", "T", "", "f", extension}), "");
        EXPECT_EQ(ListPattern({"A:", "", "L", "f", extension}), "");
        EXPECT_EQ(ListPattern({"A:", "T", "L", "f", extension}), "");
    }
}

}  // namespace
