#include "tests/apps/k4ctl/store/StoreRuns.h"

#include "tests/support/DrivenClock.h"

// What `store ls` lists.

namespace {

using k4ctl::ExitCode;
using k4test::kOtherType;
using k4test::kPaletteType;
using k4test::kType;
using k4test::LibraryOn;
using k4test::Members;
using k4test::Words;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::int64_t kNow = 1'785'506'709;  // 31 July 2026, 14:05:09 UTC
constexpr std::int64_t kDay = 86400;

class StoreList : public k4test::StoreRuns {
 protected:
    void SetUp() override {
        StoreRuns::SetUp();
        MakeFile(LibraryOn("A:") + "beta.SQ4", std::string(3000, 'b'), kNow - kDay);
        MakeFile(LibraryOn("A:") + "Alpha.SQ4", std::string(1024, 'a'), kNow - 40 * kDay);
        MakeFile(LibraryOn("A:") + "gamma.SD4", std::string(2048, 'c'), kNow - 8 * kDay);
        MakeFile(LibraryOn("A:") + "delta.SQ4", "", kNow - 3600);
        MakeFile(LibraryOn("A:") + "notes.txt", "not of the store", kNow);
        MakeFile("A:\\Morning.SC4", "s", kNow);
        MakeFile("A:\\All.DL4", "d", kNow);
    }
    std::string Lib() const { return LibraryOn("A:"); }
    /// The names of the files that are listed.
    Words Files(Words words) {
        words.insert(words.begin(), "ls");
        words.emplace_back("--json");
        return Members(Good(words).Json(), "files", "file");
    }

    k4test::DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> useClock{clock};
};

TEST_F(StoreList, WithoutAPlaceListsTheServersInTheTreesOrder) {
    EXPECT_EQ(Good({"ls"}).out, "A:\nB:\n\\\\S\\T\n");
    EXPECT_THAT(Members(Good({"ls", "--json"}).Json(), "servers", "server"),
                ElementsAre("A:", "B:", "\\\\S\\T"));
}

TEST_F(StoreList, ARemovableDriveComesFirstAndOnce) {
    std::filesystem::create_directory_symlink(home / "drives/B", home / "drives/E");
    EXPECT_EQ(Good({"ls"}).out, "E:\nA:\nB:\n\\\\S\\T\n");
    MakeFolder(std::string("E:\\") + kOtherType + ".Sign");
    EXPECT_THAT(Good({"ls", "E:"}).out, HasSubstr(kOtherType));
}

TEST_F(StoreList, WithoutServersSaysSo) {
    ConfigureLocal({});
    EXPECT_EQ(Good({"ls"}).out, "No Servers\n");
    EXPECT_TRUE(Members(Good({"ls", "--json"}).Json(), "servers", "server").empty());
}

TEST_F(StoreList, OfAServerHasItsSignTypesWithTheNamesOfLocalSigns) {
    MakeFolder(std::string("A:\\") + kOtherType + ".Sign");
    MakeFolder(std::string("A:\\") + kPaletteType + ".Sign");
    for (const char* place : {"A:", "A:\\", "A:/", "a:"})
        EXPECT_EQ(Good({"ls", place}).out,
                  "SIGN TYPE             SIGNS\n"
                  "16x80.Mono1.LED       Ticker, Gate\n"
                  "48x160.Quad16.Incand\n")
            << place;
    const QJsonObject json = Good({"ls", "A:", "--json"}).Json();
    EXPECT_THAT(Members(json, "signTypes", "signType"), ElementsAre(kType, kOtherType));
    EXPECT_THAT(Members(json, "signTypes", "path"),
                ElementsAre("A:\\16x80.Mono1.LED.Sign\\", "A:\\48x160.Quad16.Incand.Sign\\"));
    const QJsonArray signs = json.value(QLatin1String("signTypes"))
                                 .toArray()
                                 .at(0)
                                 .toObject()
                                 .value(QLatin1String("signs"))
                                 .toArray();
    EXPECT_EQ(signs, (QJsonArray{QStringLiteral("Ticker"), QStringLiteral("Gate")}));
    EXPECT_FALSE(json.contains(QLatin1String("files")));
}

TEST_F(StoreList, PalettesAreListedInsteadOfTheOthersAndWithoutSigns) {
    MakeFolder(std::string("A:\\") + kPaletteType + ".Sign");
    const std::string expected =
        std::string("SIGN TYPE                SIGNS\n") + kPaletteType + "\n";
    EXPECT_EQ(Good({"ls", "A:", "--palettes"}).out, expected);
    EXPECT_EQ(Good({"ls", "A:", "--type", "sp4"}).out, expected);
    EXPECT_EQ(Good({"ls", "B:", "--palettes"}).out, "No signs\n");
}

TEST_F(StoreList, FilesAtTheRootComeWhereTheirTypeIsAskedFor) {
    const std::string both = Good({"ls", "A:", "--type", "SC4,DL4"}).out;
    EXPECT_THAT(both, HasSubstr("16x80.Mono1.LED  Ticker, Gate\n\nFILE "));
    EXPECT_THAT(both, HasSubstr("\nAll.DL4          0 KB  K4400 DownLoad  07/31/26 02:05 PM\n"));
    EXPECT_THAT(Files({"A:", "--type", "SC4"}), ElementsAre("Morning.SC4"));
    EXPECT_THAT(Files({"A:", "--type", "dl4"}), ElementsAre("All.DL4"));
    EXPECT_TRUE(Files({"A:", "--type", "SQ4"}).empty());
    EXPECT_TRUE(Files({Lib(), "--type", "SC4"}).empty());
}

TEST_F(StoreList, OfASignTypeHasItsLibraries) {
    MakeFolder(LibraryOn("A:", "b"));
    MakeFolder(LibraryOn("A:", "Z"));
    MakeFolder(LibraryOn("A:", ""));  // hidden from the tree
    EXPECT_EQ(Good({"ls", "a:/16X80.mono1.LED.sign"}).out, "b\nL\nZ\n");
    const QJsonObject json = Good({"ls", "A:\\16x80.Mono1.LED.Sign\\", "--json"}).Json();
    EXPECT_THAT(Members(json, "libraries", "library"), ElementsAre("b", "L", "Z"));
    EXPECT_THAT(Members(json, "libraries", "path"),
                ElementsAre(LibraryOn("A:", "b"), LibraryOn("A:"), LibraryOn("A:", "Z")));
    MakeFolder(std::string("B:\\") + kType + ".Sign");
    EXPECT_EQ(Good({"ls", std::string("B:\\") + kType + ".Sign"}).out, "No Libraries\n");
}

TEST_F(StoreList, OfALibraryHasTheFilesOfAllTypesByName) {
    EXPECT_EQ(Good({"ls", Lib()}).out,
              "FILE           SIZE  TYPE         MODIFIED\n"
              "Alpha.SQ4      1 KB  K4400 Seq    06/21/26 02:05 PM\n"
              "beta.SQ4       2 KB  K4400 Seq    07/30/26 02:05 PM\n"
              "delta.SQ4      0 KB  K4400 Seq    07/31/26 01:05 PM\n"
              "gamma.SD4      2 KB  K4400 Sched  07/23/26 02:05 PM\n");
    MakeFolder(LibraryOn("A:", "Empty"));
    EXPECT_EQ(Good({"ls", LibraryOn("A:", "Empty")}).out, "There are no files.\n");
}

TEST_F(StoreList, TellsMachinesWhatIsBehindTheTexts) {
    const QJsonObject json = Good({"ls", "A:/16x80.Mono1.LED.Sign/L.Lib", "--json"}).Json();
    EXPECT_EQ(json.value(QLatin1String("place")).toString(),
              QStringLiteral("A:/16x80.Mono1.LED.Sign/L.Lib"));
    const QJsonObject file = json.value(QLatin1String("files")).toArray().at(1).toObject();
    EXPECT_EQ(file.value(QLatin1String("file")).toString(), QStringLiteral("beta.SQ4"));
    EXPECT_EQ(file.value(QLatin1String("path")).toString().toStdString(), Lib() + "beta.SQ4");
    EXPECT_EQ(file.value(QLatin1String("size")).toInt(), 3000);
    EXPECT_EQ(file.value(QLatin1String("type")).toString(), QStringLiteral("K4400 Seq"));
    EXPECT_EQ(file.value(QLatin1String("modified")).toString(),
              QStringLiteral("2026-07-30T14:05:09Z"));
}

TEST_F(StoreList, EachTypeHasItsName) {
    const std::string lib = LibraryOn("A:", "T");
    for (const char* name : {"x.SQ4", "x.SD4", "x.SEQ", "x.SP4", "x.AVI", "x.sc4"})
        MakeFile(lib + name);
    EXPECT_THAT(Members(Good({"ls", lib, "--json"}).Json(), "files", "type"),
                ElementsAre("K4400 Seq", "K4400 Sched", "K3300 Seq", "K4400 Palette", "Unknown"));
}

TEST_F(StoreList, TypesNarrowTheList) {
    EXPECT_THAT(Files({Lib(), "--type", "SD4"}), ElementsAre("gamma.SD4"));
    EXPECT_THAT(Files({Lib(), "--type", "sd4,SQ4"}),
                ElementsAre("Alpha.SQ4", "beta.SQ4", "delta.SQ4", "gamma.SD4"));
}

TEST_F(StoreList, TheTimeOfTheLastChangeNarrowsTheList) {
    clock.Set(k4cmn::Clock::TimePoint(std::chrono::seconds(kNow)));
    EXPECT_THAT(Files({Lib(), "--modified", "today"}), ElementsAre("delta.SQ4"));
    EXPECT_THAT(Files({Lib(), "--modified", "7DAYS"}), ElementsAre("beta.SQ4", "delta.SQ4"));
    EXPECT_THAT(Files({Lib(), "--modified", "last-month"}), ElementsAre("Alpha.SQ4"));
    EXPECT_THAT(Files({Lib(), "--modified", "this-month"}),
                ElementsAre("beta.SQ4", "delta.SQ4", "gamma.SD4"));
    EXPECT_EQ(Files({Lib(), "--modified", "any"}).size(), 4u);
}

TEST_F(StoreList, SortsAsClicksOnTheHeadingsDo) {
    EXPECT_THAT(Files({Lib(), "--reverse"}),
                ElementsAre("gamma.SD4", "delta.SQ4", "beta.SQ4", "Alpha.SQ4"));
    EXPECT_THAT(Files({Lib(), "--sort", "size"}),
                ElementsAre("delta.SQ4", "Alpha.SQ4", "beta.SQ4", "gamma.SD4"));
    // Equal rows keep their order in both directions.
    EXPECT_THAT(Files({Lib(), "--sort", "size", "-r"}),
                ElementsAre("beta.SQ4", "gamma.SD4", "Alpha.SQ4", "delta.SQ4"));
    EXPECT_THAT(Files({Lib(), "--sort", "type"}),
                ElementsAre("gamma.SD4", "Alpha.SQ4", "beta.SQ4", "delta.SQ4"));
    EXPECT_THAT(Files({Lib(), "--sort", "modified"}),
                ElementsAre("Alpha.SQ4", "gamma.SD4", "beta.SQ4", "delta.SQ4"));
    EXPECT_THAT(Files({Lib(), "--sort", "modified", "--reverse"}),
                ElementsAre("delta.SQ4", "beta.SQ4", "gamma.SD4", "Alpha.SQ4"));
}

TEST_F(StoreList, TheHalvesOfADayCountAsOneWhereDatesAreSorted) {
    const std::string lib = LibraryOn("A:", "T");
    MakeFile(lib + "a.SQ4", "", kNow - 4 * 3600);   // 10:05 AM
    MakeFile(lib + "b.SQ4", "", kNow - 12 * 3600);  // 02:05 AM
    MakeFile(lib + "c.SQ4", "", kNow);              // 02:05 PM
    EXPECT_THAT(Files({lib, "--sort", "modified"}), ElementsAre("b.SQ4", "c.SQ4", "a.SQ4"));
}

TEST_F(StoreList, TakesFilesAndPatternsOfFiles) {
    EXPECT_THAT(Files({Lib() + "BETA.sq4"}), ElementsAre("beta.SQ4"));
    EXPECT_THAT(Files({Lib() + "*a.SQ4", "--sort", "size"}),
                ElementsAre("delta.SQ4", "Alpha.SQ4", "beta.SQ4"));
    EXPECT_THAT(Files({Lib() + "*"}),
                ElementsAre("Alpha.SQ4", "beta.SQ4", "delta.SQ4", "gamma.SD4"));
    EXPECT_THAT(Files({"A:/*.*"}), ElementsAre("All.DL4", "Morning.SC4"));
    EXPECT_THAT(Files({Lib() + "?eta.SQ4", "--modified", "any", "--type", "SD4"}), ElementsAre());
    MakeFile(Lib() + "b*a.SQ4");
    EXPECT_THAT(Files({Lib() + "b*a.SQ4"}), ElementsAre("b*a.SQ4"));
}

TEST_F(StoreList, AHostIsAServerWithEitherSeparator) {
    MakeFile(LibraryOn("\\\\S\\T") + "far.SQ4");
    EXPECT_THAT(Files({LibraryOn("\\\\S\\T")}), ElementsAre("far.SQ4"));
    EXPECT_THAT(Files({"//s/t/16x80.Mono1.LED.Sign/L.Lib"}), ElementsAre("far.SQ4"));
}

// Bad places ----------------------------------------------------------------------------------

TEST_F(StoreList, APlaceThatIsNotThereIsRefused) {
    for (const std::string& place :
         {std::string("A:\\none"), std::string("A:\\none.SC4"), std::string("A:\\1x1.a.b.Sign"),
          std::string("A:\\16x80.Mono1.LED.Sign\\None.Lib"),
          std::string("A:\\16x80.Mono1.LED.Sign\\x.SQ4"), Lib() + "none.SQ4", Lib() + "notes.txt",
          Lib() + "x.Lib\\y.SQ4", Lib() + "..", std::string("A:\\.."), std::string("A:\\."),
          std::string("A:\\Morning.SQ4"), std::string("A:\\16x80.Mono1.LED.Sign\\.Lib"),
          std::string("A:\\.Sign"), std::string("B:\\No"), std::string("B:\\No.Sign"),
          std::string("A:\\Morning.SC4\\x"), Lib() + "*.none", Lib() + std::string(300, 'x')})
        Refused({"ls", place}, "There is no place \"" + place + "\".");
    for (const char* place : {"C:", "AA:", "A", "A:x", "\\\\S", "/", "\\", "No Servers"})
        Refused({"ls", place}, std::string("There is no place \"") + place +
                                   "\". k4ctl store ls lists the servers.");
}

TEST_F(StoreList, NamesThatATerminalWouldActUponAreWrittenOut) {
    MakeFile(Lib() + "a\nb\t\"c\x1b[2J.SQ4");
    MakeFile(Lib() + "no text\xff.SQ4");  // which the store doesn't list
    const k4test::CommandRun run = Good({"ls", Lib()});
    EXPECT_THAT(run.out, HasSubstr("\na\\nb\\t\"c\\x1b[2J.SQ4  "));
    EXPECT_EQ(run.out.find("no text"), std::string::npos);
    EXPECT_FALSE(Good({"ls", Lib(), "--json"}).Json().isEmpty());
    EXPECT_EQ(Call({"ls", "A:\\\x1b[2J\n"}).err, "k4ctl: There is no place \"A:\\\\x1b[2J\\n\".\n");
}

TEST_F(StoreList, AServerThatIsGoneIsAFailure) {
    std::filesystem::remove_all(home / "drives/B");
    Refused({"ls", "B:"}, "\"B:\\\" can't be read.");
    std::filesystem::create_directory_symlink(home / "nowhere", home / "drives/B");
    Refused({"ls", "B:"}, "\"B:\\\" can't be read.");
}

TEST_F(StoreList, AFileWhereALibraryShouldBeIsNone) {
    MakeFile(std::string("A:\\") + kType + ".Sign\\File.Lib");
    Refused({"ls", std::string("A:\\") + kType + ".Sign\\File.Lib"},
            std::string("There is no place \"A:\\") + kType + ".Sign\\File.Lib\".");
}

TEST_F(StoreList, LinksCountAsWhatTheyLeadTo) {
    std::filesystem::create_symlink(Native(Lib() + "beta.SQ4"), Native(Lib()) / "link.SQ4");
    std::filesystem::create_symlink(home / "nowhere", Native(Lib()) / "broken.SQ4");
    std::filesystem::create_directory_symlink(Native(Lib()), Native("B:") / "16x80.Mono1.LED.Sign");
    EXPECT_THAT(Files({Lib() + "l*.SQ4"}), ElementsAre("link.SQ4"));
    EXPECT_THAT(Files({Lib() + "b*.SQ4"}), ElementsAre("beta.SQ4"));
    EXPECT_EQ(Good({"ls", "B:\\16x80.Mono1.LED.Sign"}).out, "No Libraries\n");
}

TEST_F(StoreList, OptionsThatCantBeReadAreUsageErrors) {
    const auto wrong = [this](const Words& words, const std::string& problem) {
        Refused(words, problem + "\nk4ctl: see k4ctl store ls --help", ExitCode::Usage);
    };
    wrong({"ls", "--type", "SQ5"},
          "--type: \"SQ5\" is no type of files; they are SQ4, SD4, SC4, SEQ, DL4, SP4 and AVI");
    wrong({"ls", "--type", "SQ4,"},
          "--type: \"\" is no type of files; they are SQ4, SD4, SC4, SEQ, DL4, SP4 and AVI");
    wrong({"ls", "--modified", "yesterday"},
          "--modified: \"yesterday\" is no time of a last change; they are today, 7days, "
          "last-month, this-month and any");
    wrong({"ls", "--sort", "color"},
          "--sort: \"color\" is no column; they are name, size, type and modified");
    wrong({"ls", "A:", "B:"}, "The following argument was not expected: B:");
}

TEST_F(StoreList, ANewHomeIsFilledWithSampleData) {
    const k4test::TempFolder empty;
    std::istringstream in;
    const k4test::CommandRun run(
        {"store", "ls", "A:"},
        k4ctl::StoreCommands(k4suite::DataHome(empty / "new"), {in, shown, false, false}));
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_THAT(run.out, HasSubstr("Main Board"));
    EXPECT_FALSE(std::filesystem::exists(empty / "new/services.lock"));
}

TEST_F(StoreList, AHomeThatCannotBeIsAFailure) {
    std::istringstream in;
    const k4test::CommandRun run(
        {"store", "ls"},
        k4ctl::StoreCommands(k4suite::DataHome("/proc/none"), {in, shown, false, false}));
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_THAT(run.err, testing::StartsWith("k4ctl: "));
    EXPECT_EQ(run.out, "");
}

}  // namespace
