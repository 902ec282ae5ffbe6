#include <gmock/gmock.h>

#include "k4cmndlg/filesel/FileTree.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "tests/filesel/TreeText.h"
#include "tests/support/StoreFixture.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FileTree;
using k4cmn::FileTreeItem;
using k4test::kOtherType;
using k4test::kPaletteType;
using k4test::kThirdType;
using k4test::kType;
using k4test::TreeText;
using Names = std::vector<std::string>;

class Entries final : public k4cmn::ConnectedEntries {
 public:
    int Read(std::string& text) override {
        text = reply;
        return result;
    }
    std::string reply;
    int result = 1;
};

class TreeFilling : public k4test::StoreFixture {
 protected:
    std::string Servers() {
        std::string texts;
        for (const auto& server : tree.Root().Children())
            texts += server->Text() + "|";
        return texts;
    }
    FileTreeItem& Server(std::size_t index) { return *tree.Root().Children().at(index); }

    Entries entries;
    FileTree tree{&entries};
};

// Names ----------------------------------------------------------------------------------------

TEST_F(TreeFilling, FoldersThatBeginWithADotDontCount) {
    EXPECT_EQ(k4cmn::IsFileValid(".hidden", 1), 0);
    EXPECT_EQ(k4cmn::IsFileValid(".", 1), 0);
    EXPECT_EQ(k4cmn::IsFileValid("a.b", 1), 1);
    EXPECT_EQ(k4cmn::IsFileValid("", 1), 1);
    EXPECT_EQ(k4cmn::IsFileValid(".hidden", 0), 1);
}

TEST_F(TreeFilling, FindingNothingKeepsTheList) {
    MakeFolder("A:\\.x.Lib");
    MakeFile("A:\\f.Lib");
    Names names{"old"};
    EXPECT_EQ(k4cmn::FindNames(names, "A:\\*.Lib", 1), 0);
    EXPECT_EQ(k4cmn::FindNames(names, "Z:\\*.Lib", 0), 0);
    EXPECT_EQ(names, Names{"old"});
    EXPECT_EQ(k4cmn::FindNames(names, "A:\\*.Lib", 0), 1);
    EXPECT_EQ(names, Names{"f.Lib"});
}

TEST_F(TreeFilling, FilesMayBeginWithADot) {
    MakeFile("A:\\.SQ4");
    Names names{"old"};
    EXPECT_EQ(k4cmn::FindNames(names, "A:\\*.SQ4", 0), 1);
    EXPECT_EQ(names, Names{".SQ4"});
}

// Level 0 --------------------------------------------------------------------------------------

TEST_F(TreeFilling, ServersComeInTheirOrderEachWithAPlaceholder) {
    fs::create_directory_symlink(home.Path(), home / "drives/E");
    MakeFolder("B:\\");
    Configure({{"Local", "", {"Z:", "A:"}, {}},
               {"North", "", {"\\\\N\\S"}, {}},
               {"Far", "Entry", {"\\\\F\\S"}, {}},
               {"Local", "Entry", {"\\\\F\\L"}, {}}});
    entries.reply = "Entry\n";
    ASSERT_EQ(tree.AddAllServerItems(), 1);
    EXPECT_EQ(TreeText(tree.Root()),
              "1:E:\n 2:\n1:Z:\n 2:\n1:A:\n 2:\n1:\\\\N\\S\n 2:\n"
              "1:\\\\F\\S\n 2:\n1:\\\\F\\L\n 2:\n");
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(Server(static_cast<std::size_t>(i)).Data(), i);
}

TEST_F(TreeFilling, AServerComesOnceAndTheNumberDoesNotAdvance) {
    fs::create_directory_symlink(home.Path(), home / "drives/E");
    Configure({{"Local", "", {"e:", "\\\\H\\S"}, {}}, {"North", "", {"\\\\h\\s", "B:"}, {}}});
    ASSERT_EQ(tree.AddAllServerItems(), 1);
    EXPECT_EQ(Servers(), "E:|\\\\H\\S|B:|");
    EXPECT_EQ(Server(2).Data(), 2);
}

TEST_F(TreeFilling, RefillingBeginsAnew) {
    ConfigureLocal({"A:", "B:"});
    ASSERT_EQ(tree.AddAllServerItems(), 1);
    ASSERT_EQ(tree.AddAllServerItems(), 1);
    EXPECT_EQ(Servers(), "A:|B:|");
}

TEST_F(TreeFilling, WithoutLocalServersOnlyTheDrivesAreThere) {
    fs::create_directory_symlink(home.Path(), home / "drives/E");
    Configure({{"North", "", {"B:"}, {}}});
    EXPECT_EQ(tree.AddAllServerItems(), 0);
    EXPECT_EQ(Servers(), "E:|");
    fs::remove(home / "drives/E");
    EXPECT_EQ(tree.AddAllServerItems(), 0);
    EXPECT_EQ(Servers(), "") << "not even the notice";
}

TEST_F(TreeFilling, NoServersIsANotice) {
    ConfigureLocal({});
    EXPECT_EQ(tree.AddAllServerItems(), 1);
    EXPECT_EQ(TreeText(tree.Root()), "0:No Servers\n");
}

TEST_F(TreeFilling, TheReplyIsSplitAtLineFeedsAndTabs) {
    Configure({{"Local", "", {"A:"}, {}},
               {"S1", "One", {"B:"}, {}},
               {"S2", "Two words", {"C:"}, {}},
               {"S3", "Three", {"D:"}, {}}});
    entries.reply = "\n\tThree\t\tunknown\nTwo words\n";
    ASSERT_EQ(tree.AddAllServerItems(), 1);
    EXPECT_EQ(Servers(), "A:|D:|C:|");
}

TEST_F(TreeFilling, AnUnreachableRemoteServiceIsPassedOver) {
    Configure({{"Local", "", {"A:"}, {}}, {"S1", "One", {"B:"}, {}}});
    entries.reply = "One";
    entries.result = 0;
    EXPECT_EQ(tree.AddAllServerItems(), 1);
    EXPECT_EQ(Servers(), "A:|");
    FileTree without;
    EXPECT_EQ(without.AddAllServerItems(), 1);
    EXPECT_EQ(without.Root().Children().size(), 1u);
}

TEST_F(TreeFilling, AddedServersGoToTheEndUnlessTheyAreThere) {
    EXPECT_TRUE(tree.AddServerItem(7, "A:"));
    EXPECT_EQ(Server(0).Data(), 7);
    EXPECT_FALSE(tree.AddServerItem(8, "a:"));
    EXPECT_TRUE(tree.AddServerItem(8, "B:"));
    EXPECT_EQ(TreeText(tree.Root()), "1:A:\n1:B:\n");
}

// Sign types -----------------------------------------------------------------------------------

class SignTypes : public TreeFilling {
 protected:
    void SetUp() override {
        TreeFilling::SetUp();
        for (const char* type : {kThirdType, kType, kPaletteType, kOtherType})
            MakeFolder("A:\\" + std::string(type) + ".Sign\\Default.Lib");
        MakeFolder("A:\\Other.Lib");
        MakeFolder("A:\\one.dot.Sign");
        MakeFile("A:\\a.b.c.Sign");
        ConfigureLocal({"A:"}, {Sign("Main", 16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED),
                                Sign("Side", 48, 160, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND),
                                Sign("Door", 16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED)});
        tree.AddAllServerItems();
    }
    std::string Opened() {
        tree.Expand(Server(0));
        return TreeText(Server(0));
    }
};

TEST_F(SignTypes, ShowTheLocalSignsThatHaveThem) {
    EXPECT_EQ(Opened(),
              "2:16x80.Mono1.LED , (Main) , (Door)\n 3:\n"
              "2:48x160.Quad16.Incand , (Side)\n 3:\n"
              "2:8x16.Mono4.LED\n 3:\n");
}

TEST_F(SignTypes, OfPalettesShowNoSigns) {
    tree.filter.palettes = true;
    EXPECT_EQ(Opened(), "2:16x80.Mono1.LED.Palette\n 3:\n");
}

TEST_F(SignTypes, OnlyTheCurrentOneIsKept) {
    tree.filter.onlyCurrent = true;
    tree.filter.currentSign = kType;
    EXPECT_EQ(Opened(), "2:16x80.Mono1.LED , (Main) , (Door)\n 3:\n");
    tree.filter.currentSign = "16X80.Mono1.LED";
    EXPECT_EQ(Opened(), "0:No signs\n") << "the filter looks at case";
    tree.filter.currentSign = kPaletteType;
    EXPECT_EQ(Opened(), "0:No signs\n");
}

TEST_F(SignTypes, CaseDoesNotCountBetweenFolderAndSign) {
    fs::rename(Native(std::string("A:\\") + kType + ".Sign"),
               home / "drives/A/16X80.mono1.led.SIGN");
    EXPECT_EQ(Opened().substr(0, 39), "2:16X80.mono1.led , (Main) , (Door)\n 3:");
}

TEST_F(SignTypes, OfAServerThatIsntThereAreANotice) {
    EXPECT_TRUE(tree.AddServerItem(1, "Q:"));
    EXPECT_EQ(tree.AddAllSignTypeItems(Server(1)), 1);
    EXPECT_EQ(TreeText(Server(1)), "0:No signs\n");
}

TEST_F(SignTypes, WithOddNamesAreTakenAsTheyAre) {
    MakeFolder("A:\\a\nb.\"c\".\td.Sign");
    EXPECT_THAT(Opened(), testing::HasSubstr("2:a\nb.\"c\".\td\n 3:\n"));
}

TEST_F(SignTypes, OfAnUnreadableServerAreANotice) {
    fs::create_directory_symlink(home / "nowhere", home / "drives/N");
    fs::create_symlink("L", home / "drives/L");
    for (const char* server : {"N:", "L:", "", "x\ny"}) {
        FileTree other;
        FileTreeItem* item = other.AddServerItem(0, server);
        EXPECT_EQ(other.AddAllSignTypeItems(*item), 1);
        EXPECT_EQ(TreeText(*item), "0:No signs\n") << server;
    }
}

TEST_F(SignTypes, AreReadAnewAtEachOpening) {
    Opened();
    tree.Collapse(Server(0));
    EXPECT_FALSE(Server(0).IsExpanded());
    fs::remove_all(home / "drives/A");
    EXPECT_EQ(Opened(), "0:No signs\n");
    EXPECT_TRUE(Server(0).IsExpanded());
}

TEST_F(SignTypes, TwoThousandAreFilledAndSorted) {
    for (int i = 0; i < 2000; ++i)
        fs::create_directories(home / ("drives/B/" + std::to_string(i) + "x80.Mono1.LED.Sign"));
    FileTreeItem* server = tree.AddServerItem(1, "B:");
    tree.Expand(*server);
    EXPECT_EQ(TreeText(*server), "") << "it has no placeholder";
    tree.AddAllSignTypeItems(*server);
    tree.Expand(*server);
    ASSERT_EQ(server->Children().size(), 2000u);
    EXPECT_EQ(server->Children()[1]->Text(), "1000x80.Mono1.LED");
}

// Libraries ------------------------------------------------------------------------------------

TEST_F(SignTypes, HaveTheirLibrariesSorted) {
    for (const char* library : {"beta", "Alpha", "Gamma.x", ".hidden"})
        MakeFolder("A:\\" + std::string(kType) + ".Sign\\" + library + ".Lib");
    MakeFolder("A:\\" + std::string(kType) + ".Sign\\plain");
    MakeFile("A:\\" + std::string(kType) + ".Sign\\file.Lib");
    Opened();
    FileTreeItem& type = *Server(0).Children()[0];
    tree.Expand(type);
    EXPECT_EQ(TreeText(type), "3:Alpha\n3:beta\n3:Default\n3:Gamma.x\n");
    tree.Expand(*type.Children()[0]);
    EXPECT_FALSE(type.Children()[0]->IsExpanded()) << "nothing lies below a library";
}

TEST_F(SignTypes, WithoutLibrariesShowANotice) {
    Opened();
    FileTreeItem& type = *Server(0).Children()[0];
    fs::remove_all(home / "drives/A");
    EXPECT_EQ(tree.DeleteAllChildItems(type), 1);
    EXPECT_EQ(TreeText(type), "");
    EXPECT_EQ(tree.AddAllLibraryItems(type), 1);
    EXPECT_EQ(TreeText(type), "0:No Libraries\n");
}

TEST_F(SignTypes, LibrariesNeedAnItemWithAParent) {
    const std::string before = TreeText(Server(0));
    EXPECT_EQ(tree.AddAllLibraryItems(Server(0)), 0);
    EXPECT_EQ(TreeText(Server(0)), before);
}

TEST_F(SignTypes, ItemsCanBeAddedByHandAndSortedByClosing) {
    FileTreeItem* server = tree.AddServerItem(1, "B:");
    FileTreeItem* two = tree.AddSignTypeItem(*server, "two");
    tree.AddSignTypeItem(*server, "One");
    tree.AddLibraryItem(*two, "b");
    tree.AddLibraryItem(*two, "A");
    EXPECT_EQ(TreeText(*server), "2:two\n 3:b\n 3:A\n2:One\n");
    tree.Collapse(*two);
    EXPECT_EQ(TreeText(*server), "2:One\n2:two\n 3:A\n 3:b\n") << "its siblings are sorted too";
    EXPECT_EQ(Servers(), "A:|B:|");
}

TEST(TreeWithoutASuite, HasNothing) {
    FileTree tree;
    EXPECT_EQ(tree.AddAllServerItems(), 0);
    EXPECT_EQ(TreeText(tree.Root()), "");
}

}  // namespace
