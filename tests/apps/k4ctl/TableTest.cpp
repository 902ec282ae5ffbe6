#include "apps/k4ctl/Table.h"

#include <gtest/gtest.h>

namespace {

using k4ctl::Table;

TEST(TableText, AlignsColumnsByTheWidestCell) {
    Table table({{"SIGN"}, {"SIZE", Table::Align::Right}, {"COLOR"}});
    table.Add({"Main", "16x96", "RGB16M"});
    table.Add({"Concourse", "7x80", "Mono1"});
    EXPECT_EQ(table.Text(),
              "SIGN        SIZE  COLOR\n"
              "Main       16x96  RGB16M\n"
              "Concourse   7x80  Mono1\n");
}

TEST(TableText, WithoutTitlesHasNoTitleLine) {
    Table table({{}, {}});
    table.Add({"State", "Stopped"});
    table.Add({"Param", "0"});
    EXPECT_EQ(table.Text(), "State  Stopped\nParam  0\n");
}

TEST(TableText, WithoutRowsIsItsTitles) {
    EXPECT_EQ(Table({{"A"}, {"B", Table::Align::Right}}).Text(), "A  B\n");
}

TEST(TableText, WithoutColumnsIsEmptyLines) {
    Table table({});
    table.Add({"dropped"});
    EXPECT_EQ(table.Text(), "\n");
}

TEST(TableText, FillsMissingCellsAndDropsFurtherOnes) {
    Table table({{"A"}, {"B"}, {"C"}});
    table.Add({"1"});
    table.Add({"1", "2", "3", "4"});
    EXPECT_EQ(table.Text(), "A  B  C\n1\n1  2  3\n");
}

TEST(TableText, EscapesCellsBeforeItMeasuresThem) {
    Table table({{"NAME"}, {"X"}});
    table.Add({"a\nb\tc", "1"});
    table.Add({"\x1b[31m", "2"});
    EXPECT_EQ(table.Text(), "NAME      X\na\\nb\\tc   1\n\\x1b[31m  2\n");
}

TEST(TableText, AlignsNamesInAnyScript) {
    Table table({{"NAME"}, {"X"}});
    table.Add({"Gr\xc3\xbcn", "1"});
    table.Add({"\xe6\xbc\xa2\xe5\xad\x97\xe6\xbc\xa2", "2"});
    EXPECT_EQ(table.Text(),
              "NAME    X\nGr\xc3\xbcn    1\n\xe6\xbc\xa2\xe5\xad\x97\xe6\xbc\xa2  2\n");
}

}  // namespace
