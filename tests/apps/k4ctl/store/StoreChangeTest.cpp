#include "tests/apps/k4ctl/store/StoreRuns.h"

// What `store rename`, `rm`, `mklib` and `mktype` change.

namespace {

using k4ctl::ExitCode;
using k4test::kType;
using k4test::LibraryOn;
using k4test::Words;
using testing::HasSubstr;
using testing::StartsWith;

constexpr char kNotAsked[] = " Nobody can be asked; --yes or --no answers.";

const std::string kTypeOnA = std::string("A:\\") + kType + ".Sign";

class StoreChange : public k4test::StoreRuns {
 protected:
    void SetUp() override {
        StoreRuns::SetUp();
        MakeFile(LibraryOn("A:") + "one.SQ4", "1");
        MakeFile(LibraryOn("A:") + "two.SQ4", "22");
        MakeFile("A:\\Morning.SC4", "script");
    }
    QJsonValue Done(Words words) {
        words.emplace_back("--json");
        return Call(words).Json().value(QLatin1String("done"));
    }
};

// rename --------------------------------------------------------------------------------------

TEST_F(StoreChange, RenamesAFileInItsFolder) {
    EXPECT_EQ(Good({"rename", LibraryOn("A:") + "ONE.sq4", "first"}).out, "");
    EXPECT_EQ(Content(LibraryOn("A:") + "first.SQ4"), "1");
    EXPECT_FALSE(Exists(LibraryOn("A:") + "one.SQ4"));
    Good({"rename", "A:/Morning.SC4", "Dawn.sc4"});
    EXPECT_EQ(Content("A:\\Dawn.SC4"), "script");
    EXPECT_EQ(Done({"rename", "A:/Dawn.SC4", "Noon"}), QJsonValue(true));
}

TEST_F(StoreChange, RenamingNeverReplaces) {
    RefusedWithoutChange({"rename", LibraryOn("A:") + "one.SQ4", "TWO"}, "Rename failed");
    EXPECT_EQ(Content(LibraryOn("A:") + "two.SQ4"), "22");
    EXPECT_EQ(Done({"rename", LibraryOn("A:") + "one.SQ4", "two"}), QJsonValue(false));
}

TEST_F(StoreChange, RenamingToTheSameNameDoesNothingAndToItsOtherCaseIsDone) {
    Good({"rename", LibraryOn("A:") + "one.SQ4", "one"});
    Good({"rename", LibraryOn("A:") + "one.SQ4", "One"});
    EXPECT_TRUE(std::filesystem::exists(Native(LibraryOn("A:")) / "One.SQ4"));
}

TEST_F(StoreChange, ANewNameMayHoldAnythingThatAFileSystemTakes) {
    Good({"rename", LibraryOn("A:") + "one.SQ4", "a\nb\t\"c'"});
    EXPECT_TRUE(std::filesystem::exists(Native(LibraryOn("A:")) / "a\nb\t\"c'.SQ4"));
    RefusedWithoutChange({"rename", LibraryOn("A:") + "two.SQ4", "x\xff"},
                         "\"x\\xff\" is no UTF-8 text.");
    RefusedWithoutChange({"rename", LibraryOn("A:") + "two.SQ4", std::string(300, 'x')},
                         "Rename failed");
    RefusedWithoutChange({"rename", LibraryOn("A:") + "two.SQ4", "none\\x"}, "Rename failed");
}

TEST_F(StoreChange, RenamesFilesAlone) {
    RefusedWithoutChange({"rename", LibraryOn("A:"), "x"},
                         "\"" + LibraryOn("A:") + "\" is a library, not a file.");
    RefusedWithoutChange({"rename", LibraryOn("A:") + "*.SQ4", "x"},
                         "\"" + LibraryOn("A:") + "*.SQ4\" names several files.");
    RefusedWithoutChange({"rename", LibraryOn("A:") + "none.SQ4", "x"},
                         "There is no place \"" + LibraryOn("A:") + "none.SQ4\".");
    RefusedWithoutChange({"rename", "x"},
                         "NEWNAME is required\nk4ctl: see k4ctl store rename --help",
                         ExitCode::Usage);
}

// rm ------------------------------------------------------------------------------------------

TEST_F(StoreChange, RemovesFilesToTheTrashAfterAQuestion) {
    const std::string one = "Are you sure you want to move 'one.SQ4' to the trash?";
    Call({"rm", LibraryOn("A:") + "one.SQ4"}, "n\n");
    EXPECT_EQ(shown.str(), one + " (yes/no/cancel) [no] ");
    EXPECT_TRUE(Exists(LibraryOn("A:") + "one.SQ4"));
    Good({"rm", LibraryOn("A:") + "one.SQ4"}, "yes\n");
    EXPECT_FALSE(Exists(LibraryOn("A:") + "one.SQ4"));
    EXPECT_EQ(InTrash(), 1u);
    EXPECT_EQ(home.Read("xdg/Trash/files/one.SQ4"), "1");
}

TEST_F(StoreChange, AskedOnceForAllFiles) {
    Call({"rm", LibraryOn("A:") + "*.SQ4", "A:\\Morning.SC4"}, "y\n");
    EXPECT_EQ(shown.str(),
              "Are you sure you want to move these 3 items to the trash? (yes/no/cancel) [no] ");
    EXPECT_EQ(InTrash(), 3u);
}

TEST_F(StoreChange, WhatIsNotRemovedIsSaid) {
    const std::string path = LibraryOn("A:") + "one.SQ4";
    const std::string still = "\"" + path + "\" is still there.";
    RefusedWithoutChange({"rm", path, "--no"}, still);
    RefusedWithoutChange({"rm", path}, "Are you sure you want to move 'one.SQ4' to the trash?" +
                                           std::string(kNotAsked) + "\nk4ctl: " + still);
    EXPECT_EQ(Done({"rm", path, "--no"}), QJsonValue(false));
    EXPECT_EQ(Done({"rm", path, "--yes"}), QJsonValue(true));
}

TEST_F(StoreChange, RemovesALibraryWithAllInIt) {
    Good({"rm", "A:/16x80.mono1.led.sign/l.lib", "--yes"});
    EXPECT_FALSE(Exists(LibraryOn("A:")));
    EXPECT_EQ(home.Read("xdg/Trash/files/L.Lib/one.SQ4"), "1");
    MakeFolder(LibraryOn("A:"));
    RefusedWithoutChange({"rm", LibraryOn("A:"), "--no"}, "Error removing Library");
}

TEST_F(StoreChange, RemovesNeitherServersNorSignTypes) {
    RefusedWithoutChange({"rm", "A:", kTypeOnA, "--yes"},
                         "\"A:\\\" is a server; files and libraries can be removed.\nk4ctl: \"" +
                             kTypeOnA + "\\\" is a sign type; files and libraries can be removed.");
    RefusedWithoutChange({"rm"}, "PLACE is required\nk4ctl: see k4ctl store rm --help",
                         ExitCode::Usage);
}

TEST_F(StoreChange, WhatNoTrashCanHoldIsDeletedForGoodOnlyWithForce) {
    // A file lies where the trash's folder should be.
    home.Write("xdg", "in the way");
    const std::string path = LibraryOn("A:") + "one.SQ4";
    const k4test::CommandRun refused = Call({"rm", path, "--yes"});
    EXPECT_EQ(refused.code, ExitCode::Refused);
    EXPECT_THAT(refused.err, HasSubstr("Delete it for good? --force answers yes.\nk4ctl: \"" +
                                       path + "\" is still there.\n"));
    Good({"rm", path, "--yes", "--force"});
    EXPECT_FALSE(Exists(path));
}

TEST_F(StoreChange, ALinkIsRemovedAndWhatItLeadsToStays) {
    std::filesystem::create_symlink(Native(LibraryOn("A:") + "one.SQ4"),
                                    Native(LibraryOn("A:")) / "link.SQ4");
    Good({"rm", LibraryOn("A:") + "link.SQ4", "--yes"});
    EXPECT_FALSE(std::filesystem::is_symlink(Native(LibraryOn("A:")) / "link.SQ4"));
    EXPECT_EQ(Content(LibraryOn("A:") + "one.SQ4"), "1");
}

// mklib ---------------------------------------------------------------------------------------

TEST_F(StoreChange, MakesALibrary) {
    const k4test::CommandRun run = Good({"mklib", kTypeOnA, "Winter Games", "--json"});
    EXPECT_TRUE(Exists(LibraryOn("A:", "Winter Games")));
    EXPECT_EQ(run.Json().value(QLatin1String("path")).toString().toStdString(),
              LibraryOn("A:", "Winter Games"));
    Good({"mklib", "A:/16x80.mono1.led.sign/", "Summer.lib"});
    EXPECT_TRUE(Exists(LibraryOn("A:", "Summer")));
    Good({"mklib", kTypeOnA, std::string(32, 'x')});
}

TEST_F(StoreChange, ALibraryThatIsThereIsRefused) {
    RefusedWithoutChange({"mklib", kTypeOnA, "L"}, "Error Creating: " + kTypeOnA + "\\L.Lib");
    RefusedWithoutChange({"mklib", kTypeOnA, "l"}, "Error Creating: " + kTypeOnA + "\\l.Lib");
}

TEST_F(StoreChange, NamesThatTheTreeWouldNotShowAreRefused) {
    for (const std::string name : {"", ".hidden", "a\\b", "../x", ".Lib"})
        RefusedWithoutChange({"mklib", kTypeOnA, name},
                             "\"" + name + "\" is no name for a library.");
    RefusedWithoutChange({"mklib", kTypeOnA, std::string(33, 'x')},
                         "\"" + std::string(33, 'x') +
                             "\" is too long: a library's name has 32 characters at most.");
    RefusedWithoutChange({"mklib", kTypeOnA, "\xc3"}, "\"\\xc3\" is no UTF-8 text.");
    RefusedWithoutChange({"mklib", "A:", "x"}, "\"A:\" is a server, not a sign type.");
    RefusedWithoutChange({"mklib", LibraryOn("A:"), "x"},
                         "\"" + LibraryOn("A:") + "\" is a library, not a sign type.");
    RefusedWithoutChange({"mklib", "A:\\none.Sign", "x"}, "There is no place \"A:\\none.Sign\".");
}

// mktype --------------------------------------------------------------------------------------

Words TypeWords(Words servers, const std::string& rows, const std::string& columns,
                const std::string& color, const std::string& pixel) {
    servers.insert(servers.begin(), "mktype");
    servers.insert(servers.end(),
                   {"--rows", rows, "--columns", columns, "--color", color, "--pixel", pixel});
    return servers;
}

TEST_F(StoreChange, MakesTheFolderOfASignTypeAndItsTwinOnEveryServerThatIsNamed) {
    Good(TypeWords({"A:", "//s/t/"}, "7", "80", "mono1", "reflect"));
    for (const char* server : {"A:", "\\\\S\\T"}) {
        const std::string folder = std::string(server) + "\\7x80.Mono1.Reflect";
        EXPECT_TRUE(Exists(folder + ".Sign\\Default.Lib")) << server;
        EXPECT_TRUE(Exists(folder + ".Palette.Sign\\Default.Lib")) << server;
    }
    EXPECT_FALSE(Exists("B:\\7x80.Mono1.Reflect.Sign"));
}

TEST_F(StoreChange, APaletteFolderIsMadeAlone) {
    Words words = TypeWords({"B:"}, "24", "96", "Quad16", "Incand");
    words.insert(words.end(), {"--palette", "--json"});
    EXPECT_EQ(Good(words).Json().value(QLatin1String("signType")).toString(),
              QStringLiteral("24x96.Quad16.Incand.Palette"));
    EXPECT_TRUE(Exists("B:\\24x96.Quad16.Incand.Palette.Sign\\Default.Lib"));
    EXPECT_FALSE(Exists("B:\\24x96.Quad16.Incand.Sign"));
}

TEST_F(StoreChange, ASignTypeThatIsThereIsToldAndTheOtherServersGetIt) {
    const k4test::CommandRun run = Call(TypeWords({"A:", "B:"}, "16", "80", "Mono1", "LED"));
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_THAT(run.err, StartsWith("k4ctl: Error Creating Folder: " + kTypeOnA + ": "));
    EXPECT_TRUE(Exists(std::string("B:\\") + kType + ".Sign\\Default.Lib"));
}

TEST_F(StoreChange, TheLimitsOfASignTypeAreTheDialogs) {
    const auto refused = [this](const Words& words, const std::string& problem) {
        RefusedWithoutChange(words, problem);
    };
    refused(TypeWords({"A:"}, "20", "80", "Mono1", "LED"),
            "Number of rows must be 7 or a multiple of 8.");
    refused(TypeWords({"A:"}, "16", "24", "Mono1", "LED"),
            "Number of columns must be a multiple of 16.");
    refused(TypeWords({"A:"}, "2048", "16384", "Mono1", "LED"), "Rows x Cols cannot be > 8388608");
    refused(TypeWords({"A:"}, "16", "80", "Quad16", "LED"),
            "LED pixel technology is not valid for Quad16 color technology.");
    refused(TypeWords({"C:"}, "16", "80", "Mono1", "LED"), "\"C:\" is no server of this system.");
    const std::string see = "\nk4ctl: see k4ctl store mktype --help";
    for (const char* rows : {"6", "2049", "x", "-1"})
        RefusedWithoutChange(
            TypeWords({"A:"}, rows, "80", "Mono1", "LED"),
            std::string("--rows: \"") + rows + "\" is not a whole number from 7 to 2048" + see,
            ExitCode::Usage);
    for (const char* columns : {"15", "16385"})
        RefusedWithoutChange(TypeWords({"A:"}, "16", columns, "Mono1", "LED"),
                             std::string("--columns: \"") + columns +
                                 "\" is not a whole number from 16 to 16384" + see,
                             ExitCode::Usage);
    EXPECT_EQ(Call(TypeWords({"A:"}, "16", "80", "Mono2", "LED")).code, ExitCode::Usage);
    EXPECT_EQ(Call(TypeWords({"A:"}, "16", "80", "Mono1", "OLED")).code, ExitCode::Usage);
    EXPECT_EQ(Call(TypeWords({}, "16", "80", "Mono1", "LED")).code, ExitCode::Usage);
    EXPECT_EQ(Call({"mktype", "A:"}).code, ExitCode::Usage);
}

TEST_F(StoreChange, AServerThatIsGoneIsAFailure) {
    std::filesystem::remove_all(home / "drives/B");
    const k4test::CommandRun run = Call(TypeWords({"B:"}, "16", "80", "Mono1", "LED"));
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_THAT(run.err, StartsWith("k4ctl: Error Creating Folder: B:\\16x80.Mono1.LED.Sign: "));
}

}  // namespace
