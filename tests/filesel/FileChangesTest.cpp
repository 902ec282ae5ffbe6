#include "k4cmndlg/filesel/FileChanges.h"

#include <gmock/gmock.h>

#include "k4cmndlg/filesel/FileClipboard.h"
#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/filesel/LocalSigns.h"
#include "tests/support/RecordingShell.h"
#include "tests/support/ScriptedPrompt.h"
#include "tests/support/StoreFixture.h"

// What dialog and command line share of the changes of single entries.

namespace {

using k4cmn::CopiedFrom;
using k4cmn::FileClipboard;
using k4cmn::FileRows;
using k4test::kType;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kLib = std::string("A:\\") + kType + ".Sign\\L.Lib\\";

class FileChanges : public k4test::StoreFixture {
 protected:
    FileLocation Place(const std::string& extension = "SQ4") const {
        return {"A:", kType, "L", "one", extension};
    }
    k4test::ScriptedPrompt prompt;
};

TEST_F(FileChanges, ARenamedFileStaysInItsFolder) {
    MakeFile(kLib + "one.SQ4", "1");
    MakeFile("A:\\one.SC4", "s");
    EXPECT_TRUE(k4cmn::RenameFile(Place(), "two", prompt));
    EXPECT_TRUE(k4cmn::RenameFile(Place("SC4"), "two", prompt));
    EXPECT_EQ(Content(kLib + "two.SQ4"), "1");
    EXPECT_EQ(Content("A:\\two.SC4"), "s");
}

TEST_F(FileChanges, ARenamingThatFailsIsTold) {
    MakeFile(kLib + "one.SQ4");
    MakeFile(kLib + "two.SQ4");
    EXPECT_FALSE(k4cmn::RenameFile(Place(), "one", prompt));
    prompt.Expect("Rename failed");
    EXPECT_TRUE(k4cmn::RenameFile(Place(), "two", prompt));
    prompt.Expect("Rename failed");
    EXPECT_TRUE(k4cmn::RenameFile(Place(), "..\\three", prompt));
}

TEST_F(FileChanges, ALibraryIsMadeOnce) {
    MakeFolder(std::string("A:\\") + kType + ".Sign");
    const std::string folder = std::string("A:\\") + kType + ".Sign\\";
    EXPECT_TRUE(k4cmn::MakeLibrary(folder, "L", prompt));
    EXPECT_TRUE(Exists(kLib));
    prompt.Expect("Error Creating: " + folder + "L.Lib");
    EXPECT_FALSE(k4cmn::MakeLibrary(folder, "L", prompt));
    prompt.Expect("Error Creating: " + folder + "..\\M.Lib");
    EXPECT_FALSE(k4cmn::MakeLibrary(folder, "..\\M", prompt));
}

TEST_F(FileChanges, ALibraryIsRemovedThroughTheShell) {
    k4test::RecordingShell shell;
    const k4cmn::ScopedProvider<k4cmn::Shell> useShell(shell);
    EXPECT_TRUE(k4cmn::RemoveLibrary(Place(), prompt));
    for (const FileLocation& place :
         {FileLocation{"", kType, "L", "", ""}, FileLocation{"A:", "", "L", "", ""},
          FileLocation{"A:", kType, "", "", ""}}) {
        prompt.Expect("Must select server, sign type and the library to remove.");
        EXPECT_FALSE(k4cmn::RemoveLibrary(place, prompt));
    }
}

TEST(CopiedFrom, FilesHaveTheirFolder) {
    const FileLocation library{"A:", kType, "L", "x", "SQ4"};
    EXPECT_EQ(CopiedFrom(library, {"a.SQ4"}),
              (FileClipboard{kLib, {"a.SQ4"}, "A:", kType, "L", false}));
    const FileLocation server{"A:", "", "", "x", "SC4"};
    EXPECT_EQ(CopiedFrom(server, {"a.SC4", "b.SC4"}),
              (FileClipboard{"A:\\", {"a.SC4", "b.SC4"}, "", "", "", false}));
}

TEST(CopiedFrom, AFolderHasNoFilesWhateverTheType) {
    for (const char* type : {"SQ4", "SC4"}) {
        const FileLocation library{"A:", kType, "L", "x", type};
        EXPECT_EQ(CopiedFrom(library, {}), (FileClipboard{"", {}, "A:", kType, "L", false}));
    }
}

TEST(FileRowsOrder, IsByTextOrByDate) {
    const std::vector<std::string> texts{"b", "A", "c"};
    EXPECT_THAT(FileRows::Order(texts, FileRows::kName, true), ElementsAre(1, 0, 2));
    EXPECT_THAT(FileRows::Order(texts, FileRows::kType, false), ElementsAre(2, 0, 1));
    EXPECT_THAT(FileRows::Order(texts, FileRows::kModified, false), ElementsAre(2, 1, 0));
    EXPECT_THAT(
        FileRows::Order({"07/31/26 01:00 PM", "07/30/26 02:00 PM"}, FileRows::kModified, true),
        ElementsAre(1, 0));
}

class LocalSignNames : public k4test::StoreFixture {};

TEST_F(LocalSignNames, AreThoseOfTheSignTypeInTheOrderOfTheSettings) {
    ConfigureLocal({}, {Sign("Ticker", 16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED),
                        Sign("Other", 8, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED),
                        Sign("Gate", 16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED)});
    const k4cmn::LocalSigns signs;
    EXPECT_THAT(signs.NamesOf("16X80.mono1.led"), ElementsAre("Ticker", "Gate"));
    EXPECT_EQ(signs.NamesBehind(kType), " , (Ticker) , (Gate)");
    EXPECT_THAT(signs.NamesOf("none"), IsEmpty());
}

}  // namespace
