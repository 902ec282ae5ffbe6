#include "k4cmndlg/filestore/FileLocation.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

static void PrintTo(const FileLocation& place, std::ostream* out) {
    *out << "server \"" << place.server << "\" type \"" << place.signType << "\" library \""
         << place.library << "\" file \"" << place.file << "\" extension \"" << place.fileExtension
         << "\"";
}

namespace {

using namespace k4cmn;
using Texts = std::vector<std::string>;

const Texts kBeforeOpening(kExtensionsBeforeOpening.begin(), kExtensionsBeforeOpening.end());

FileLocation TakeApart(const std::string& path) {
    return TakeApartPath(path, kBeforeOpening, K4_FILE_TYPE_ALL);
}

// Composing ------------------------------------------------------------------------------------

TEST(LocationPath, FileOfALibrary) {
    const FileLocation place{"A:", "16x80.Mono1.LED", "Default", "Hello", "SQ4"};
    EXPECT_EQ(place.Path(), "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\Hello.SQ4");
}

TEST(LocationPath, ScriptsAndDownloadListsLieAtTheServersRoot) {
    EXPECT_EQ((FileLocation{"\\\\H\\S", "T", "L", "run", "SC4"}).Path(), "\\\\H\\S\\run.SC4");
    EXPECT_EQ((FileLocation{"A:", "T", "L", "list", "DL4"}).Path(), "A:\\list.DL4");
    // The two extensions are compared in exact case.
    EXPECT_EQ((FileLocation{"A:", "T", "L", "run", "sc4"}).Path(), "A:\\T.Sign\\L.Lib\\run.sc4");
}

TEST(LocationPath, EmptyFieldsLeaveTheirPlaces) {
    EXPECT_EQ(FileLocation().Path(), "\\.Sign\\.Lib\\.");
    EXPECT_EQ((FileLocation{"A:", "", "", "", "SC4"}).Path(), "A:\\.SC4");
}

struct DisplayCase {
    const char* name;
    FileLocation place;
    const char* path;
};

class DisplayPath : public testing::TestWithParam<DisplayCase> {};

TEST_P(DisplayPath, GoesLevelByLevel) {
    EXPECT_EQ(GetParam().place.DisplayPath(), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(
    Levels, DisplayPath,
    testing::Values(
        DisplayCase{"Library", {"A:", "T.x.y", "L", "f", "SQ4"}, "A:\\T.x.y.Sign\\L.Lib\\"},
        DisplayCase{"SignType", {"A:", "T", "", "f", "SQ4"}, "A:\\T.Sign\\"},
        DisplayCase{"Server", {"A:", "", "", "", ""}, "A:\\"},
        DisplayCase{"LibraryWithoutSignType", {"A:", "", "L", "", ""}, "A:\\"},
        DisplayCase{"NoSigns", {"A:", "No", "", "", ""}, "A:\\"},
        DisplayCase{"NoIsExact", {"A:", "no", "", "", ""}, "A:\\no.Sign\\"},
        // The display path doesn't ask for the extension.
        DisplayCase{"Script", {"A:", "T", "L", "f", "SC4"}, "A:\\T.Sign\\L.Lib\\"},
        DisplayCase{"Nothing", {}, "\\"}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

TEST(LocationPatterns, AreThoseOfTheLayout) {
    EXPECT_EQ(SignTypePattern("A:"), "A:\\*.*.*.Sign");
    EXPECT_EQ(LibraryPattern("A:", "T"), "A:\\T.Sign\\*.Lib");
    EXPECT_EQ(FilePattern({"A:", "T", "L", "f", "SQ4"}), "A:\\T.Sign\\L.Lib\\*.SQ4");
    EXPECT_EQ(FilePattern({"A:", "T", "L", "f", "DL4"}), "A:\\*.DL4");
}

TEST(LocationKeys, NameEachFieldOnce) {
    FileLocation place;
    Texts keys;
    for (const FileLocationField& field : kFileLocationFields) {
        keys.emplace_back(field.key);
        place.*field.field = field.key;
    }
    EXPECT_EQ(keys, (Texts{"Server", "Sign Type", "Library", "File", "File Extension"}));
    EXPECT_EQ(place, (FileLocation{"Server", "Sign Type", "Library", "File", "File Extension"}));
    EXPECT_STREQ(kFileLocationsKey, "File Locations");
    EXPECT_STREQ(kPreviousSelectionKey, "Previous Selection");
}

// Taking apart ---------------------------------------------------------------------------------

struct ApartCase {
    const char* name;
    const char* path;
    FileLocation place;
};

class TakenApart : public testing::TestWithParam<ApartCase> {};

TEST_P(TakenApart, GivesThePlace) {
    EXPECT_EQ(TakeApart(GetParam().path), GetParam().place) << GetParam().path;
}

INSTANTIATE_TEST_SUITE_P(
    ExtensionAtTheEnd, TakenApart,
    testing::Values(
        ApartCase{"File", "A:\\T.x.y.Sign\\L.Lib\\f.SQ4", {"A:", "T.x.y", "L", "f", "SQ4"}},
        ApartCase{
            "FileOnAShare", "\\\\H\\S\\T.Sign\\L.Lib\\f.SD4", {"\\\\H\\S", "T", "L", "f", "SD4"}},
        ApartCase{"FileInANativeFolder",
                  "/srv/store\\T.Sign\\L.Lib\\f.AVI",
                  {"/srv/store", "T", "L", "f", "AVI"}},
        ApartCase{"Script", "X:\\store\\a.SC4", {"X:\\store", "", "", "a", "SC4"}},
        ApartCase{"ScriptOnADrive", "A:\\a.SC4", {"A:", "", "", "a", "SC4"}},
        ApartCase{"DownloadList", "\\\\H\\S\\a.DL4", {"\\\\H\\S", "", "", "a", "DL4"}},
        ApartCase{"ScriptInALibraryTakesTheFolderAboveAsServer",
                  "A:\\T.Sign\\L.Lib\\a.SC4",
                  // The walk goes one step, and a server keeps no extension.
                  {"A:\\T.Sign\\L", "", "", "a", "SC4"}},
        ApartCase{"Library", "A:\\s\\T.Sign\\L.Lib", {"A:\\s", "T", "L", "", ""}},
        ApartCase{"SignType", "A:\\s\\T.a.b.Sign", {"A:\\s", "T.a.b", "", "", ""}},
        ApartCase{
            "OtherExtensionSettlesNothing", "A:\\T.Sign\\L.Lib\\f.TXT", {"A:", "T", "L", "", ""}},
        ApartCase{"ExtensionsAreExact", "A:\\T.Sign\\L.Lib\\f.sq4", {"A:", "T", "L", "", ""}},
        ApartCase{"LibIsExact", "A:\\T.Sign\\L.LIB\\x.lib", {"A:", "T", "L", "", ""}},
        ApartCase{"PalettesArentAmongTheFirstExtensions",
                  "A:\\T.Sign\\L.Lib\\f.SP4",
                  {"A:", "T", "L", "", ""}},
        ApartCase{"FoldersAreTakenByPlaceNotByEnding",
                  "A:\\one\\two\\three\\f.SQ4",
                  {"A:\\one", "two", "three", "f", "SQ4"}},
        ApartCase{"TooShortForItsLevels", "A:\\f.SQ4", {"A:", "", "", "f", "SQ4"}},
        ApartCase{"FileAlone", "f.SQ4", {"", "", "", "f", "SQ4"}},
        ApartCase{"LastDotCounts", "A:\\T.Sign\\L.Lib\\a.b.SQ4", {"A:", "T", "L", "a.b", "SQ4"}},
        ApartCase{"OnlyADot", "A:\\T.Sign\\L.Lib\\a.", {"A:", "T", "L", "", ""}},
        ApartCase{"NamelessFile", "A:\\T.Sign\\L.Lib\\.SQ4", {"A:", "T", "L", "", "SQ4"}},
        ApartCase{"ServerWithADotLosesItsExtension",
                  "A:\\my.store\\T.Sign\\L.Lib\\f.SQ4",
                  {"A:\\my", "T", "L", "f", "SQ4"}},
        ApartCase{"ComposedOfEmptyFields", "\\.Sign\\.Lib\\.", {"", "", "", "", ""}}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

INSTANTIATE_TEST_SUITE_P(
    NoExtensionAtTheEnd, TakenApart,
    testing::Values(ApartCase{"Share", "\\\\H\\S", {"\\\\H\\S", "", "", "", ""}},
                    ApartCase{"FolderOfADriveKeepsTheDrive", "C:\\x", {"C:\\x", "", "", "", ""}},
                    ApartCase{"NameAlone", "x", {"x", "", "", "", ""}},
                    ApartCase{"BelowALibrary",
                              "A:\\T.Sign\\L.Lib\\f",
                              {"A:\\T.Sign\\L.Lib\\f", "", "", "", ""}}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

INSTANTIATE_TEST_SUITE_P(
    SeparatorAtTheEnd, TakenApart,
    testing::Values(ApartCase{"Library", "A:\\s\\T.Sign\\L.Lib\\", {"A:\\s", "T", "L", "", ""}},
                    ApartCase{"SignType", "A:\\s\\T.x.y.Sign\\", {"A:\\s", "T.x.y", "", "", ""}},
                    ApartCase{"ShareComesThroughWhole",
                              "\\\\host\\share\\",
                              {"\\\\host\\share", "", "", "", ""}},
                    ApartCase{"FolderOfADriveLosesTheDrive", "C:\\x\\", {"\\x", "", "", "", ""}},
                    ApartCase{"DriveAloneIsLost", "C:\\", {"", "", "", "", ""}},
                    ApartCase{"FileLosesItsExtension",
                              "C:\\T.Sign\\L.Lib\\f.SQ4\\",
                              {"\\T.Sign\\L.Lib\\f", "", "", "", ""}},
                    ApartCase{"DriveWithoutSeparator", "C:", {"", "", "", "", ""}},
                    ApartCase{"OneSeparator", "\\", {"", "", "", "", ""}},
                    ApartCase{"Nothing", "", {"", "", "", "", ""}}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

TEST(TakenApart, OnlyTypeAllSettlesTheFileExtension) {
    for (int type = 0; type <= 10; ++type) {
        const FileLocation place = TakeApartPath("A:\\T.Sign\\L.Lib\\f.SQ4", kBeforeOpening,
                                                 static_cast<tag_K4_FILE_TYPE>(type));
        EXPECT_EQ(place, (FileLocation{"A:", "T", "L", "f", type == 7 ? "SQ4" : ""})) << type;
    }
}

TEST(TakenApart, ExtensionBeforeDecidesWhereThePathSettlesNone) {
    const std::string path = "X:\\store\\a.SC4";
    EXPECT_EQ(TakeApartPath(path, Texts{"SC4"}, K4_FILE_TYPE_SCRIPT, "SC4"),
              (FileLocation{"X:\\store", "", "", "a", ""}));
    EXPECT_EQ(TakeApartPath(path, Texts{"SC4"}, K4_FILE_TYPE_SCRIPT, "SQ4"),
              (FileLocation{"X:", "", "store", "a", ""}));
    // What the path settles comes first.
    EXPECT_EQ(TakeApartPath(path, kBeforeOpening, K4_FILE_TYPE_ALL, "SQ4"),
              (FileLocation{"X:\\store", "", "", "a", "SC4"}));
    EXPECT_EQ(TakeApartPath("A:\\T.Sign\\L.Lib\\f.SQ4", kBeforeOpening, K4_FILE_TYPE_ALL, "DL4"),
              (FileLocation{"A:", "T", "L", "f", "SQ4"}));
}

TEST(TakenApart, ExtensionBeforeKeepsALibraryPathFromItsSignType) {
    EXPECT_EQ(TakeApartPath("A:\\s\\T.Sign\\L.Lib", kBeforeOpening, K4_FILE_TYPE_SCRIPT, "SC4"),
              (FileLocation{"A:\\s\\T", "", "L", "", ""}));
}

TEST(TakenApart, NoExtensionsSettleNoFile) {
    EXPECT_EQ(TakeApartPath("A:\\T.Sign\\L.Lib\\f.SQ4", {}, K4_FILE_TYPE_ALL),
              (FileLocation{"A:", "T", "L", "", ""}));
}

TEST(TakenApart, IsTheReverseOfComposing) {
    for (const std::string& server : Texts{"A:", "\\\\HOST\\SHARE", "/srv/store", "X:\\sub"}) {
        for (const std::string& extension : kBeforeOpening) {
            FileLocation place{server, "16x80.Mono1.LED.Palette", "Default", "a b.c", extension};
            if (LiesAtServerRoot(extension))
                place.signType = place.library = "";
            EXPECT_EQ(TakeApart(place.Path()), place);
        }
    }
}

TEST(TakenApart, BadInputGivesSomePlaceAndNoHarm) {
    for (const std::string& path :
         {std::string(100000, '\\'), std::string(100000, '.'), std::string(100000, 'x'),
          std::string("A:\0\\x.SQ4", 9), std::string("\xff\xfe\\\xc3.Lib"), std::string("::::"),
          std::string("\\\\\\\\"), std::string("...\\...\\..."), std::string("A:A:A:.SQ4")}) {
        for (int type = -1; type <= 10; ++type) {
            const FileLocation place =
                TakeApartPath(path, kBeforeOpening, static_cast<tag_K4_FILE_TYPE>(type), "SC4");
            EXPECT_LE(place.server.size() + place.signType.size() + place.library.size() +
                          place.file.size(),
                      path.size());
        }
    }
}

}  // namespace
