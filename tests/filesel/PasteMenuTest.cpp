#include <gtest/gtest.h>

#include <set>

#include "k4cmndlg/filesel/FileMenu.h"

namespace {

using k4cmn::FileClipboard;
using k4cmn::FileCommand;
using k4cmn::FileMenuSituation;
using k4cmn::FileMenuState;

// The menu -------------------------------------------------------------------------------------

TEST(FileMenu, HasItsEntriesInOrder) {
    std::string texts;
    int index = 0;
    for (const k4cmn::FileMenuEntry& entry : k4cmn::kFileMenu) {
        EXPECT_EQ(static_cast<int>(entry.command), index++);
        texts += std::string(entry.text) + (entry.isGroupEnd ? "||" : "|");
    }
    EXPECT_EQ(texts,
              "Pre&view||Cu&t|&Copy|&Paste|Re&name|&Delete||Cre&ate Library...|&Remove "
              "Library|Create &Sign Folder...|Pr&int...|Print &File List||Pr&operties|");
    EXPECT_STREQ(k4cmn::kFileMenu[0].toolText, "Preview the Sequence");
    EXPECT_STREQ(k4cmn::kFileMenu[1].toolText, "Cut selected file\nCut file");
    EXPECT_STREQ(k4cmn::kFileMenu[2].toolText, "Copy selected file\nCopy file");
    EXPECT_STREQ(k4cmn::kFileMenu[3].toolText, "Paste file\nPaste file");
    EXPECT_STREQ(k4cmn::kFileMenu[4].toolText, "");
    EXPECT_EQ(k4cmn::kMenuOffset, 200);
}

// Pasting --------------------------------------------------------------------------------------

FileClipboard Files(const std::string& signType) {
    FileClipboard clipboard;
    clipboard.sourcePath = "X:\\";
    clipboard.files = {"f.SQ4"};
    clipboard.server = "X:";
    clipboard.signType = signType;
    clipboard.library = "L";
    return clipboard;
}

FileClipboard Folder(const std::string& server, const std::string& signType,
                     const std::string& library) {
    FileClipboard clipboard;
    clipboard.server = server;
    clipboard.signType = signType;
    clipboard.library = library;
    return clipboard;
}

struct PasteCase {
    const char* name;
    FileClipboard clipboard;
    const char* server;
    const char* signType;
    const char* library;
    bool isEnabled;
};

class PasteEntry : public testing::TestWithParam<PasteCase> {};

TEST_P(PasteEntry, IsEnabledByItsRules) {
    const PasteCase& row = GetParam();
    for (const char* extension : {"SQ4", "SC4"}) {
        for (const bool isRow : {false, true}) {
            FileMenuSituation situation;
            situation.place = {row.server, row.signType, row.library, "", extension};
            situation.clipboard = row.clipboard;
            situation.isRowSelected = isRow;
            EXPECT_EQ(FileMenuState(situation).IsEnabled(FileCommand::Paste), row.isEnabled);
        }
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Rules, PasteEntry,
    testing::Values(
        PasteCase{"NothingOnTheClipboard",     FileClipboard(),        "S", "T", "L", false},
        PasteCase{"NothingAtAll",              FileClipboard(),        "",  "",  "",  false},
        PasteCase{"FilesWithoutServer",        Files("T"),             "",  "",  "",  false},
        PasteCase{"FilesToAServer",            Files("T"),             "S", "",  "",  true},
        PasteCase{"FilesToTheirSignType",      Files("T"),             "S", "t", "",  true},
        PasteCase{"FilesToALibrary",           Files("T"),             "S", "T", "M", true},
        PasteCase{"FilesToAnotherSignType",    Files("T"),             "S", "U", "",  false},
        PasteCase{"ScriptsToAServer",          Files(""),              "S", "",  "",  true},
        PasteCase{"ScriptsToASignType",        Files(""),              "S", "T", "",  false},
        PasteCase{"FolderWithoutServer",       Folder("", "T", ""),    "S", "",  "",  false},
        PasteCase{"FolderWithoutSignType",     Folder("X:", "", ""),   "S", "",  "",  false},
        PasteCase{"FolderNowhere",             Folder("X:", "T", ""),  "",  "",  "",  false},
        PasteCase{"SignTypeToAServer",         Folder("X:", "T", ""),  "S", "",  "",  true},
        PasteCase{"SignTypeToItself",          Folder("X:", "T", ""),  "S", "t", "",  true},
        PasteCase{"SignTypeToAnother",         Folder("X:", "T", ""),  "S", "U", "",  false},
        PasteCase{"SignTypeToALibrary",        Folder("X:", "T", ""),  "S", "T", "L", false},
        PasteCase{"LibraryToAServer",          Folder("X:", "T", "L"), "S", "",  "",  true},
        PasteCase{"LibraryToItsSignType",      Folder("X:", "T", "L"), "S", "T", "",  true},
        PasteCase{"LibraryToItself",           Folder("X:", "T", "L"), "S", "T", "l", true},
        PasteCase{"LibraryToAnotherLibrary",   Folder("X:", "T", "L"), "S", "T", "M", false},
        PasteCase{"LibraryToAnotherSignType",  Folder("X:", "T", "L"), "S", "U", "L", false}),
    [](const auto& testCase) { return std::string(testCase.param.name); });
// clang-format on

// The other entries, over all combinations
// ---------------------------------------------------------

std::set<FileCommand> Enabled(const FileMenuSituation& situation) {
    const FileMenuState state(situation);
    std::set<FileCommand> enabled;
    for (const k4cmn::FileMenuEntry& entry : k4cmn::kFileMenu) {
        if (state.IsEnabled(entry.command))
            enabled.insert(entry.command);
    }
    return enabled;
}

struct PlaceCase {
    const char* name;
    const char* server;
    const char* signType;
    bool copyWithRow;         ///< of files in libraries
    bool copyWithoutRow;      ///< of the same
    bool rootCopyWithRow;     ///< of scripts and download lists
    bool rootCopyWithoutRow;  ///< of the same
    bool libraryEntries;
};

class MenuEntries : public testing::TestWithParam<PlaceCase> {};

TEST_P(MenuEntries, AreEnabledByTheirRules) {
    const PlaceCase& row = GetParam();
    for (const char* extension : {"SQ4", "sq4", "SD4", "SC4", "DL4", "sc4", "SP4", ""}) {
        for (const bool isRow : {false, true}) {
            for (const bool hasPreview : {false, true}) {
                FileMenuSituation situation;
                situation.place = {row.server, row.signType, "", "f", extension};
                situation.isRowSelected = isRow;
                situation.hasPreviewEntry = hasPreview;
                const std::string text = extension;
                const bool isRoot = text == "SC4" || text == "DL4";
                const bool isSequence = text == "SQ4" || text == "sq4";

                std::set<FileCommand> expected{FileCommand::CreateSignFolder};
                if (isRow)
                    expected.insert({FileCommand::Delete, FileCommand::Rename});
                if (isRow && isSequence)
                    expected.insert(FileCommand::Properties);
                if (isRow && isSequence && hasPreview)
                    expected.insert(FileCommand::Preview);
                const bool canCopy = isRoot  ? isRow ? row.rootCopyWithRow : row.rootCopyWithoutRow
                                     : isRow ? row.copyWithRow
                                             : row.copyWithoutRow;
                if (canCopy)
                    expected.insert({FileCommand::Copy, FileCommand::Cut});
                if (row.libraryEntries)
                    expected.insert({FileCommand::CreateLibrary, FileCommand::RemoveLibrary,
                                     FileCommand::Print, FileCommand::PrintFileList});
                EXPECT_EQ(Enabled(situation), expected)
                    << extension << " row " << isRow << " preview " << hasPreview;
            }
        }
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Places, MenuEntries,
    testing::Values(
        PlaceCase{"Nothing",          "",  "",   false, false, false, false, true},
        PlaceCase{"Server",           "S", "",   false, false, true,  false, true},
        PlaceCase{"SignType",         "S", "T",  true,  true,  true,  true,  true},
        PlaceCase{"NoSigns",          "S", "No", false, false, true,  false, false},
        PlaceCase{"NoInSmallLetters", "S", "no", true,  true,  true,  true,  true}),
    [](const auto& testCase) { return std::string(testCase.param.name); });
// clang-format on

}  // namespace
