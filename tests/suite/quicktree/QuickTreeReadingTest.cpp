#include <QElapsedTimer>
#include <filesystem>
#include <fstream>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filesel/FileTreeItem.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/quicktree/QuickTreeFixture.h"

namespace k4test {
namespace {

namespace fs = std::filesystem;

// What is shown -----------------------------------------------------------------------------------

TEST_F(QuickTreeWidget, ShowsServersSignTypesLibrariesAndFiles) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\news.Lib\\b.SQ4");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\news.Lib\\A.sq4");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\news.Lib\\week.SD4");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\news.Lib\\old.SEQ");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\news.Lib\\film.AVI");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\news.Lib\\colors.SP4");
    MakeFolder("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    MakeFolder("A:\\48x160.Quad16.Incand.Sign");
    ConfigureLocal({"A:", "B:"});
    EXPECT_TRUE(tree->Fill());
    EXPECT_EQ(Shown(), "A:\nB:\n");
    Open("A:");
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n 48x160.Quad16.Incand\nB:\n");
    Open("A:\\16x80.Mono1.LED.Sign");
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n  news\n 48x160.Quad16.Incand\nB:\n");
    Open("A:\\16x80.Mono1.LED.Sign\\news.Lib");
    EXPECT_EQ(Shown(),
              "A:\n 16x80.Mono1.LED\n  Default\n  news\n   A.sq4\n   b.SQ4\n   colors.SP4\n"
              "   film.AVI\n   old.SEQ\n   week.SD4\n 48x160.Quad16.Incand\nB:\n");
}

TEST_F(QuickTreeWidget, ShowsScriptsAndDownloadListsAtTheirServerAlone) {
    MakeFolder("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    MakeFile("A:\\night.SC4");
    MakeFile("A:\\All.dl4");
    MakeFile("A:\\lost.SQ4");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\lost.SC4");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\lost.SQ4");
    OpenServer();
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n All.dl4\n night.SC4\n");
    Open("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n   No Files\n All.dl4\n night.SC4\n");
    EXPECT_TRUE(tree->SelectPath("a:\\NIGHT.sc4"));
    EXPECT_EQ(Selected(), "A:\\night.SC4");
    EXPECT_TRUE(tree->IsFile(tree->SelectedItem()));
}

TEST_F(QuickTreeWidget, ShowsNoFilesThatArentOfTheStoreAndNoPalettes) {
    MakeFolder("A:\\16x80.Mono1.LED.Palette.Sign\\Default.Lib");
    for (const char* name : {"a.txt", "SQ4", "b.SQ4x", "c.", ".k4copy-x.SQ4", "d.SQ4.bak"})
        MakeFile(std::string("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\") + name);
    MakeFolder("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\folder.SQ4");
    OpenServer();
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n");
    Open("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n   No Files\n");
}

TEST_F(QuickTreeWidget, NamesTheLocalSignsOfASignType) {
    ConfigureLocal({"A:"}, {Sign("Main", 16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED)});
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    OpenServer();
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED , (Main)\n");
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4"));
    EXPECT_EQ(Selected(), "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
}

TEST_F(QuickTreeWidget, SaysWhereNothingIsFound) {
    MakeFolder("A:\\16x80.Mono1.LED.Sign");
    MakeFolder("A:\\48x160.Quad16.Incand.Sign\\Default.Lib");
    ConfigureLocal({"A:", "B:"});
    Show();
    tree->Fill();
    Open("B:");
    EXPECT_EQ(Shown(), "A:\nB:\n No signs\n");
    Open("A:\\16x80.Mono1.LED.Sign");
    Open("A:\\48x160.Quad16.Incand.Sign\\Default.Lib");
    EXPECT_EQ(Shown(),
              "A:\n 16x80.Mono1.LED\n  No Libraries\n 48x160.Quad16.Incand\n  Default\n"
              "   No Files\nB:\n No signs\n");
    for (const char* notice : {"No signs", "No Libraries", "No Files"}) {
        Click(notice);
        EXPECT_EQ(SelectedText(), notice);
        const K4QuickTreeItem item = tree->SelectedItem();
        EXPECT_NE(item, K4QuickTreeItem::None);
        EXPECT_FALSE(tree->IsFile(item));
        EXPECT_FALSE(tree->IsFolder(item));
        EXPECT_EQ(tree->PathOf(item), "");
        tree->Expand(item);
    }
    ConfigureLocal({});
    tree->Fill();
    EXPECT_EQ(Shown(), "No Servers\n");
    EXPECT_FALSE(tree->IsFolder(tree->RootItem()));
}

TEST_F(QuickTreeWidget, HasThePicturesOfItsItems) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\b.sd4");
    MakeFolder("A:\\16x80.Mono1.LED.Sign\\Empty.Lib");
    OpenServer();
    Open("A:\\16x80.Mono1.LED.Sign\\Empty.Lib");
    Open("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    const k4cmn::FileImages images;
    const auto expectPicture = [&](const char* text, const QIcon& icon) {
        const QSize size(16, 16);
        const auto shown = RowOf(text).data(Qt::DecorationRole).value<QIcon>();
        EXPECT_FALSE(shown.isNull()) << text;
        EXPECT_EQ(shown.pixmap(size).toImage(), icon.pixmap(size).toImage()) << text;
    };
    expectPicture("A:", images.At(k4cmn::kServerImage));
    expectPicture("16x80.Mono1.LED", images.At(k4cmn::kSignTypeImage));
    expectPicture("Default", images.At(k4cmn::kLibraryImage));
    expectPicture("a.SQ4", k4cmn::FileImages::OfExtension("SQ4"));
    expectPicture("b.sd4", k4cmn::FileImages::OfExtension("SD4"));
    expectPicture("No Files", images.At(k4cmn::kNoticeImage));
}

TEST_F(QuickTreeWidget, TellsThePathOfAnItemThatIsCut) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    OpenServer();
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4"));
    EXPECT_EQ(view->currentIndex().data(Qt::ToolTipRole).toString().toStdString(), Selected());
}

// Confined ----------------------------------------------------------------------------------------

TEST_F(QuickTreeWidget, ConfinedShowsOneSignTypeOnEveryServer) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    MakeFile("A:\\48x160.Quad16.Incand.Sign\\Default.Lib\\b.SQ4");
    MakeFolder("B:\\48x160.Quad16.Incand.Sign");
    MakeFile("A:\\night.SC4");
    ConfigureLocal({"A:", "B:"});
    tree->ConfineTo(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED);
    tree->Fill();
    Open("A:");
    Open("B:");
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\nB:\n No signs\n");
    EXPECT_FALSE(tree->SelectPath("A:\\48x160.Quad16.Incand.Sign\\Default.Lib\\b.SQ4"));
    EXPECT_FALSE(tree->SelectPath("A:\\night.SC4"));
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4"));
}

TEST_F(QuickTreeWidget, ConfinedAnewShowsTheOther) {
    MakeFolder("A:\\16x80.Mono1.LED.Sign");
    MakeFolder("A:\\48x160.Quad16.Incand.Sign");
    tree->ConfineTo(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED);
    OpenServer();
    tree->ConfineTo(48, 160, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND);
    OpenServer();
    EXPECT_EQ(Shown(), "A:\n 48x160.Quad16.Incand\n");
}

// Reading anew ------------------------------------------------------------------------------------

TEST_F(QuickTreeWidget, EachOpeningReadsTheDiskAnew) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    OpenServer();
    Open("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n   a.SQ4\n");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\b.SQ4");
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n   a.SQ4\n");
    view->collapse(RowOf("Default"));
    view->expand(RowOf("Default"));
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n   a.SQ4\n   b.SQ4\n");
    MakeFolder("A:\\16x80.Mono1.LED.Sign\\News.Lib");
    view->collapse(RowOf("A:"));
    EXPECT_EQ(Shown(), "A:\n");
    view->expand(RowOf("A:"));
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n") << "what stood open below it is closed";
    view->expand(RowOf("16x80.Mono1.LED"));
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n  News\n");
}

TEST_F(QuickTreeWidget, AFileThatCameLaterIsFoundInAnOpenLibrary) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    OpenServer();
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4"));
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\b.SQ4");
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\b.SQ4"));
    EXPECT_EQ(SelectedText(), "b.SQ4");
    MakeFile("A:\\48x160.Quad16.Incand.Sign\\Default.Lib\\c.SQ4");
    EXPECT_TRUE(tree->SelectPath("A:\\48x160.Quad16.Incand.Sign\\Default.Lib\\c.SQ4"));
    EXPECT_EQ(SelectedText(), "c.SQ4");
}

TEST_F(QuickTreeWidget, ASelectedFileThatIsGoneLeavesTheSelectionToItsFolder) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\z.SQ4");
    OpenServer();
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4"));
    const K4QuickTreeItem gone = tree->SelectedItem();
    fs::remove(Native("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4"));
    EXPECT_TRUE(tree->IsFile(gone)) << "nobody has read anew";
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\b.txt");
    EXPECT_FALSE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\b.txt"));
    EXPECT_EQ(Selected(), "A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    EXPECT_FALSE(tree->IsFile(gone));
}

TEST_F(QuickTreeWidget, FoldersThatVanishAreEmpty) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    MakeFile("A:\\48x160.Quad16.Incand.Sign\\Default.Lib\\a.SQ4");
    OpenServer();
    Open("A:\\16x80.Mono1.LED.Sign");
    fs::remove_all(Native("A:\\16x80.Mono1.LED.Sign\\Default.Lib"));
    tree->Expand(tree->SelectedItem());
    view->expand(RowOf("Default"));
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n   No Files\n 48x160.Quad16.Incand\n");
    fs::remove_all(Native("A:\\48x160.Quad16.Incand.Sign"));
    view->expand(RowOf("48x160.Quad16.Incand"));
    EXPECT_EQ(Shown(),
              "A:\n 16x80.Mono1.LED\n  Default\n   No Files\n 48x160.Quad16.Incand\n"
              "  No Libraries\n");
    fs::remove_all(Native("A:"));
    view->collapse(RowOf("A:"));
    view->expand(RowOf("A:"));
    EXPECT_EQ(Shown(), "A:\n No signs\n");
}

TEST_F(QuickTreeWidget, FilesInThePlaceOfFoldersAreNone) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    MakeFile("A:\\48x160.Quad16.Incand.Sign");
    OpenServer();
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n");
    Open("A:\\16x80.Mono1.LED.Sign");
    EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  No Libraries\n");
}

TEST_F(QuickTreeWidget, FoldersThatMayntBeReadAreEmpty) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Open.Lib\\a.SQ4");
    const fs::path closed = Native("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    fs::permissions(closed, fs::perms::none);
    {
        const OrdinaryUser user(home.Path());
        OpenServer();
        Open("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
        Open("A:\\16x80.Mono1.LED.Sign\\Open.Lib");
        EXPECT_EQ(Shown(), "A:\n 16x80.Mono1.LED\n  Default\n   No Files\n  Open\n   a.SQ4\n");
    }
    fs::permissions(closed, fs::perms::owner_all);
}

// Names and numbers -------------------------------------------------------------------------------

TEST_F(QuickTreeWidget, NamesMayBeOfAnyScript) {
    const std::string library =
        "A:\\16x80.Mono1.LED.Sign\\\xE3\x83\x8B\xE3\x83\xA5\xE3\x83\xBC.Lib";
    for (const char* name : {"Gr\xC3\xBC\xC3\x9F"
                             "e.SQ4",
                             "\xD0\x9F\xD1\x80\xD0\xB8.SQ4", "\xF0\x9F\x9A\xA6.SQ4",
                             "with blank , (x).SQ4", "a&b.SQ4", "<b>bold.SQ4", "two\nlines.SQ4"})
        MakeFile(library + "\\" + name);
    OpenServer();
    Open(library);
    EXPECT_EQ(tree->PathOf(tree->SelectedItem()), library);
    EXPECT_EQ(view->model()->rowCount(view->currentIndex()), 7) << Shown();
    EXPECT_TRUE(tree->SelectPath(library + "\\\xF0\x9F\x9A\xA6.SQ4"));
    EXPECT_EQ(Selected(), library + "\\\xF0\x9F\x9A\xA6.SQ4");
    EXPECT_TRUE(tree->SelectPath(library + "\\two\nlines.SQ4"));
}

TEST_F(QuickTreeWidget, APathMayHaveLettersWhoseOtherCaseIsLonger) {
    const std::string sharpS = "\xC3\x9F";
    const std::string capitalSharpS = "\xE1\xBA\x9E";
    const std::string file = "A:\\16x80.Mono1.LED.Sign\\Stra" + sharpS + "e.Lib\\a.SQ4";
    MakeFile(file);
    EXPECT_TRUE(tree->Fill());
    EXPECT_TRUE(
        tree->SelectPath("A:\\16x80.MONO1.LED.SIGN\\STRA" + capitalSharpS + "E.LIB\\A.sq4"));
    EXPECT_EQ(Selected(), file);
}

TEST_F(QuickTreeWidget, OnlyAWholeServerTextStandsForAServer) {
    ConfigureLocal({"A:", "\\\\HOST\\SHARE"});
    EXPECT_TRUE(tree->Fill());
    EXPECT_FALSE(tree->SelectPath("\\\\HOST"));
    EXPECT_FALSE(tree->SelectPath("\\\\HOST\\SHARES"));
    EXPECT_FALSE(tree->SelectPath("\\\\"));
    EXPECT_FALSE(tree->SelectPath("A"));
    EXPECT_FALSE(tree->SelectPath("A:B"));
    EXPECT_TRUE(tree->SelectPath("\\\\host\\Share\\"));
    EXPECT_EQ(Selected(), "\\\\HOST\\SHARE");
    EXPECT_TRUE(tree->SelectPath("a:"));
    EXPECT_EQ(Selected(), "A:");
}

TEST_F(QuickTreeWidget, OfNamesThatDifferInCaseThePathsOwnIsSelected) {
    const std::string library = "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\";
    MakeFolder(library);
    for (const char* name : {"a.SQ4", "A.SQ4", "a.sq4"})
        std::ofstream(Native(library) / name);
    OpenServer();
    for (const char* name : {"a.SQ4", "A.SQ4", "a.sq4"}) {
        EXPECT_TRUE(tree->SelectPath(library + name));
        EXPECT_EQ(Selected(), library + name);
    }
    EXPECT_TRUE(tree->SelectPath(library + "A.sq4"));
}

TEST_F(QuickTreeWidget, APathMayBeWrittenInMoreThanOneWay) {
    MakeFile("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    MakeFile("\\\\HOST\\SHARE\\16x80.Mono1.LED.Sign\\Default.Lib\\b.SQ4");
    const std::string native = (home / "here").string();
    MakeFile(native + "\\16x80.Mono1.LED.Sign\\Default.Lib\\c.SQ4");
    MakeFile(native + "\\deeper\\16x80.Mono1.LED.Sign\\Default.Lib\\d.SQ4");
    ConfigureLocal({"A:", "\\\\HOST\\SHARE", native, native + "\\deeper"});
    tree->Fill();
    for (const char* path : {"a:\\16X80.mono1.led.sign\\default.LIB\\A.sq4",
                             "A:/16x80.Mono1.LED.Sign/Default.Lib/a.SQ4"}) {
        EXPECT_TRUE(tree->SelectPath(path)) << path;
        EXPECT_EQ(Selected(), "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4");
    }
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\"));
    EXPECT_EQ(Selected(), "A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    for (const std::string& path :
         {std::string("\\\\HOST\\SHARE\\16x80.Mono1.LED.Sign\\Default.Lib\\b.SQ4"),
          native + "\\16x80.Mono1.LED.Sign\\Default.Lib\\c.SQ4",
          native + "\\deeper\\16x80.Mono1.LED.Sign\\Default.Lib\\d.SQ4"}) {
        EXPECT_TRUE(tree->SelectPath(path)) << path;
        EXPECT_EQ(Selected(), path);
    }
}

TEST_F(QuickTreeWidget, AHundredThousandFilesAreNoTrouble) {
    const fs::path library = Native("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    fs::create_directories(library);
    // Links are made in a fraction of the time of files, but of one file only so many.
    const auto name = [&](int number) { return library / ("f" + std::to_string(number) + ".SQ4"); };
    constexpr int kLinks = 20'000;
    for (int number = 0; number < 100'000; ++number) {
        if (number % kLinks == 0)
            std::ofstream(name(number)).put('x');
        else
            fs::create_hard_link(name(number - number % kLinks), name(number));
    }
    Show();
    OpenServer();
    QElapsedTimer time;
    time.start();
    Open("A:\\16x80.Mono1.LED.Sign\\Default.Lib");
    EXPECT_TRUE(tree->SelectPath("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\f99999.SQ4"));
    QCoreApplication::processEvents();
    Press(Qt::Key_Home);
    Press(Qt::Key_End);
    EXPECT_EQ(SelectedText(), "f99999.SQ4");
    EXPECT_EQ(view->model()->rowCount(view->currentIndex().parent()), 100'000);
    EXPECT_LT(time.elapsed(), 20'000) << "milliseconds";
}

}  // namespace
}  // namespace k4test
