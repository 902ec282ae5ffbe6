#include <iterator>
#include <random>

#include "tests/apps/k4ctl/Examples.h"
#include "tests/apps/k4ctl/store/FindRuns.h"

// Where `find` searches, what it shows, and how it ends.

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::kDay;
using k4test::kNow;
using k4test::kType;
using k4test::LibraryOn;
using k4test::Members;
using k4test::Words;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FindFiles : public k4test::FindRuns {
 protected:
    std::string Lib() const { return LibraryOn("A:"); }
};

// Places --------------------------------------------------------------------------------------

class FindAtPlaces : public FindFiles {
 protected:
    void SetUp() override {
        FindRuns::SetUp();
        for (const char* server : {"A:", "B:", "\\\\S\\T"})
            for (const char* library : {"L", "M"})
                MakeFile(LibraryOn(server, library) + "x.SQ4");
        MakeFile("A:\\8x16.Mono4.LED.Sign\\L.Lib\\x.SQ4");
        MakeFile("A:\\root.SQ4");
        MakeFile(std::string("A:\\") + kType + ".Sign\\root.SQ4");
    }
};

TEST_F(FindAtPlaces, WithoutOneAllServersAreSearched) {
    EXPECT_THAT(
        Found({}),
        testing::UnorderedElementsAre(
            LibraryOn("A:") + "x.SQ4", LibraryOn("A:", "M") + "x.SQ4", LibraryOn("B:") + "x.SQ4",
            LibraryOn("B:", "M") + "x.SQ4", LibraryOn("\\\\S\\T") + "x.SQ4",
            LibraryOn("\\\\S\\T", "M") + "x.SQ4", "A:\\8x16.Mono4.LED.Sign\\L.Lib\\x.SQ4"));
}

TEST_F(FindAtPlaces, AServerASignTypeOrALibraryIsGivenAsAPathInEitherForm) {
    EXPECT_EQ(Found({"A:"}).size(), 3u);
    EXPECT_EQ(Found({"a:/"}).size(), 3u);
    EXPECT_EQ(Found({std::string("A:\\") + kType + ".Sign\\"}).size(), 2u);
    EXPECT_EQ(Found({"A:/16X80.mono1.LED.sign"}).size(), 2u);
    EXPECT_THAT(Found({Lib()}), ElementsAre(Lib() + "x.SQ4"));
    EXPECT_THAT(Found({"//s/t/16x80.Mono1.LED.Sign/m.lib"}),
                ElementsAre(LibraryOn("\\\\S\\T", "M") + "x.SQ4"));
}

TEST_F(FindAtPlaces, OrInPieces) {
    EXPECT_EQ(Found({"--server", "A:"}).size(), 3u);
    EXPECT_EQ(Found({"--server", "\\\\S\\T"}).size(), 2u);
    EXPECT_EQ(Found({"--server", "A:\\"}).size(), 3u);
    EXPECT_EQ(Found({"--server", "A:", "--sign-type", kType}).size(), 2u);
    EXPECT_THAT(Found({"--server", "A:", "--sign-type", kType, "--library", "L"}),
                ElementsAre(Lib() + "x.SQ4"));
    EXPECT_EQ(Found({"--server", ""}).size(), 7u);
}

TEST_F(FindAtPlaces, ASignTypeOfAllServers) {
    EXPECT_EQ(Found({"--sign-type", kType}).size(), 6u);
    EXPECT_EQ(Found({"--sign-type", kType, "--library", "M"}).size(), 3u);
    EXPECT_THAT(Found({"--sign-type", "8X16.mono4.led"}),
                ElementsAre("A:\\8x16.Mono4.LED.Sign\\L.Lib\\x.SQ4"));
}

TEST_F(FindAtPlaces, TheSearchForASignTakesTheNamesAsTheServerWritesThem) {
    EXPECT_EQ(Found({"--sign-type", "16X80.MONO1.led", "--rows", "16", "--columns", "80", "--color",
                     "Mono1", "--pixel", "LED"})
                  .size(),
              6u);
}

TEST_F(FindAtPlaces, ARemovableDriveIsAPlace) {
    std::filesystem::create_directory_symlink(home / "drives/B", home / "drives/E");
    EXPECT_EQ(Found({"E:"}).size(), 2u);
    EXPECT_EQ(Found({}).size(), 7u);
}

TEST_F(FindAtPlaces, PiecesDependOnOneAnotherAndExcludeThePlace) {
    Wrong({"--library", "L"}, "--library requires --sign-type");
    Wrong({"--server", "A:", "--library", "L"}, "--library requires --sign-type");
    Wrong({"A:", "--server", "B:"}, "PLACE excludes --server");
    Wrong({"A:", "--sign-type", kType}, "PLACE excludes --sign-type");
    Wrong({"A:", "B:"}, "The following argument was not expected: B:");
}

TEST_F(FindAtPlaces, OneThatIsNotThereIsAFailure) {
    for (const std::string& place :
         {std::string("A:\\1x1.a.b.Sign"), std::string("A:\\16x80.Mono1.LED.Sign\\None.Lib"),
          std::string("A:\\.."), Lib() + "..", Lib() + "none.SQ4"})
        Fails({place}, "There is no place \"" + place + "\".");
    for (const char* place : {"C:", "A", "/", "File Servers"})
        Fails({place}, std::string("There is no place \"") + place +
                           "\". k4ctl store ls lists the servers.");
    Fails({"--server", "C:"}, "There is no place \"C:\\\". k4ctl store ls lists the servers.");
    Fails({"--server", "A:", "--sign-type", "..\\B"}, "There is no place \"A:\\..\\B.Sign\\\".");
    Fails({"--sign-type", "1x1.a.b"}, "No server has the sign type \"1x1.a.b\".");
    Fails({"--sign-type", kType, "--library", "None"},
          std::string("No server has the library \"None\" in the sign type \"") + kType + "\".");
}

TEST_F(FindAtPlaces, ALibraryInAnEmptySignTypeIsNoPlace) {
    Fails({"--sign-type", "", "--library", "L"}, "The library \"L\" is in no sign type.");
    Fails({"--server", "A:", "--sign-type", "", "--library", "L"},
          "The library \"L\" is in no sign type.");
    EXPECT_EQ(Found({"--server", "A:", "--sign-type", ""}).size(), 3u);
}

TEST_F(FindAtPlaces, AFileIsNoPlace) {
    Fails({Lib() + "x.SQ4"}, "\"" + Lib() +
                                 "x.SQ4\" is a file; a search begins at a server, a sign type or a "
                                 "library.");
    MakeFile(Lib() + "y.SQ4");
    Fails({Lib() + "*"}, "\"" + Lib() + "*\" names several files.");
}

TEST_F(FindAtPlaces, AServerThatIsGoneIsAFailureWhereItIsNamed) {
    std::filesystem::remove_all(home / "drives/B");
    Fails({"B:"}, "\"B:\\\" can't be read.");
    // Among others it contributes nothing, as in the dialog.
    EXPECT_EQ(Found({}).size(), 5u);
}

TEST_F(FindAtPlaces, WithoutServersTheSearchFails) {
    ConfigureLocal({});
    Fails({}, "This system has no servers.");
    Fails({"--sign-type", kType}, "This system has no servers.");
    Configure({{"Far", "", {"A:"}, {}}});
    Fails({}, "The servers of this system can't be read.");
}

// What is shown -------------------------------------------------------------------------------

class FindShows : public FindFiles {
 protected:
    void SetUp() override {
        FindRuns::SetUp();
        MakeFile(Lib() + "beta.SQ4", std::string(3000, 'b'), kNow - kDay);
        MakeFile(Lib() + "Alpha.SQ4", std::string(1024, 'a'), kNow - 40 * kDay);
        MakeFile(LibraryOn("A:", "K") + "delta.SQ4", "", kNow - 3600);
        MakeFile(LibraryOn("A:", "K") + "gamma.SD4", std::string(2048, 'c'), kNow - 8 * kDay);
    }
};

TEST_F(FindShows, ATableAsTheResultsOfTheDialog) {
    const CommandRun run = Find({});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out,
              "NAME   IN FOLDER                                    SIZE  TYPE       MODIFIED\n"
              "Alpha  A:\\16x80.Mono1.LED.Sign\\L.Lib\\Alpha.SQ4      1 KB  K4400 Seq  06/21/26 "
              "02:05 PM\n"
              "beta   A:\\16x80.Mono1.LED.Sign\\L.Lib\\beta.SQ4       2 KB  K4400 Seq  07/30/26 "
              "02:05 PM\n"
              "delta  A:\\16x80.Mono1.LED.Sign\\K.Lib\\delta.SQ4      0 KB  K4400 Seq  07/31/26 "
              "01:05 PM\n");
}

TEST_F(FindShows, ObjectsForMachines) {
    const QJsonObject json = Find({"A:", "--name", "*a.S?4", "--json"}).Json();
    EXPECT_EQ(json.value(QLatin1String("place")), QJsonValue(QStringLiteral("A:")));
    EXPECT_THAT(Members(json, "files", "name"), ElementsAre("Alpha", "beta", "delta", "gamma"));
    const QJsonObject file = json.value(QLatin1String("files")).toArray().at(1).toObject();
    EXPECT_EQ(file.value(QLatin1String("path")).toString().toStdString(), Lib() + "beta.SQ4");
    EXPECT_EQ(file.value(QLatin1String("size")).toInt(), 3000);
    EXPECT_EQ(file.value(QLatin1String("type")), QJsonValue(QStringLiteral("K4400 Seq")));
    EXPECT_EQ(file.value(QLatin1String("modified")),
              QJsonValue(QStringLiteral("2026-07-30T14:05:09Z")));
    EXPECT_EQ(file.size(), 5);
    EXPECT_THAT(Members(json, "files", "type"), testing::Contains("K4400 Sched"));
    EXPECT_EQ(json.value(QLatin1String("problems")), QJsonValue(QJsonArray()));
    EXPECT_FALSE(json.contains(QLatin1String("error")));
    EXPECT_FALSE(Find({"--json"}).Json().contains(QLatin1String("place")));
}

TEST_F(FindShows, NothingWhereNothingIsFound) {
    const CommandRun run = Find({"--name", "none*"});
    EXPECT_EQ(run.code, ExitCode::NotFound);
    EXPECT_EQ(static_cast<int>(run.code), 1);
    EXPECT_EQ(run.out, "No files were found.\n");
    EXPECT_EQ(run.err, "");
    const CommandRun json = Find({"--name", "none*", "--json"});
    EXPECT_EQ(json.code, ExitCode::NotFound);
    EXPECT_EQ(json.Json().value(QLatin1String("files")), QJsonValue(QJsonArray()));
    EXPECT_FALSE(json.Json().contains(QLatin1String("error")));
}

TEST_F(FindShows, TheOrderThatIsAskedFor) {
    const auto by = [this](const char* column, bool isDescending = false) {
        Words words = {"--name", "*", "--sort", column};
        if (isDescending)
            words.emplace_back("--descending");
        return Names(words);
    };
    const auto usual = ElementsAre("Alpha.SQ4", "beta.SQ4", "delta.SQ4", "gamma.SD4");
    const auto turned = ElementsAre("gamma.SD4", "delta.SQ4", "beta.SQ4", "Alpha.SQ4");
    EXPECT_THAT(Names({"--name", "*"}), usual);
    EXPECT_THAT(Names({"--name", "*", "--descending"}), turned);
    EXPECT_THAT(by("name"), usual);
    EXPECT_THAT(by("NAME", true), turned);
    EXPECT_THAT(by("folder"), ElementsAre("delta.SQ4", "gamma.SD4", "Alpha.SQ4", "beta.SQ4"));
    EXPECT_THAT(by("folder", true), ElementsAre("beta.SQ4", "Alpha.SQ4", "gamma.SD4", "delta.SQ4"));
    EXPECT_THAT(by("size"), ElementsAre("delta.SQ4", "Alpha.SQ4", "gamma.SD4", "beta.SQ4"));
    EXPECT_THAT(by("size", true), ElementsAre("beta.SQ4", "gamma.SD4", "Alpha.SQ4", "delta.SQ4"));
    EXPECT_THAT(by("type"), ElementsAre("gamma.SD4", "Alpha.SQ4", "beta.SQ4", "delta.SQ4"));
    // Equal rows keep their order.
    EXPECT_THAT(by("type", true), ElementsAre("Alpha.SQ4", "beta.SQ4", "delta.SQ4", "gamma.SD4"));
    EXPECT_THAT(by("modified"), ElementsAre("Alpha.SQ4", "gamma.SD4", "beta.SQ4", "delta.SQ4"));
    EXPECT_THAT(by("modified", true),
                ElementsAre("delta.SQ4", "beta.SQ4", "gamma.SD4", "Alpha.SQ4"));
    Wrong({"--sort", "color"},
          "--sort: \"color\" is no column; they are name, folder, size, type and modified");
}

TEST_F(FindShows, AfternoonsBehindMornings) {
    const std::string lib = LibraryOn("B:");
    MakeFile(lib + "c.SQ4", "", kNow);              // 02:05 PM
    MakeFile(lib + "a.SQ4", "", kNow - 4 * 3600);   // 10:05 AM
    MakeFile(lib + "b.SQ4", "", kNow - 12 * 3600);  // 02:05 AM
    EXPECT_THAT(Names({"B:", "--sort", "modified"}), ElementsAre("b.SQ4", "a.SQ4", "c.SQ4"));
}

TEST_F(FindFiles, NamesThatATerminalWouldActUponAreWrittenOut) {
    MakeFile(Lib() + "a\nb\t\"c\x1b[2J.SQ4");
    const CommandRun run = Find({});
    EXPECT_THAT(run.out, HasSubstr("\na\\nb\\t\"c\\x1b[2J  "));
    EXPECT_EQ(Find({"--json"}).Json().value(QLatin1String("files")).toArray().size(), 1);
}

// Messages of the search ----------------------------------------------------------------------

TEST_F(FindFiles, ASequenceThatCantBeOpenedIsToldAndTheOthersAreFound) {
    MakeSequence(Lib() + "good.SQ4", -1, "goal");
    MakeFile(Lib() + "bad.SQ4", "no sequence");
    const CommandRun run = Find({"--keywords", "goal"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_THAT(run.out, HasSubstr("\ngood  "));
    EXPECT_EQ(run.err, "k4ctl: Error opening Sequence: " + Lib() + "bad.SQ4\n");
    const CommandRun json = Find({"--keywords", "goal", "--json"});
    EXPECT_EQ(json.code, ExitCode::Done);
    EXPECT_EQ(json.Json().value(QLatin1String("problems")).toArray(),
              (QJsonArray{QString::fromStdString("Error opening Sequence: " + Lib() + "bad.SQ4")}));
}

TEST_F(FindFiles, NothingFoundButBadSequencesIsNothingFound) {
    MakeFile(Lib() + "bad1.SQ4", "no sequence");
    MakeFile(Lib() + "bad2.SQ4", "");
    const CommandRun run = Find({"--keywords", "goal"});
    EXPECT_EQ(run.code, ExitCode::NotFound);
    EXPECT_THAT(run.err, HasSubstr("bad1.SQ4\n"));
    EXPECT_THAT(run.err, HasSubstr("bad2.SQ4\n"));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 2);
}

TEST_F(FindFiles, AMessageIsSaidOnce) {
    ConfigureLocal({"A:", "A:"});
    MakeFile(Lib() + "bad.SQ4", "no sequence");
    EXPECT_EQ(Find({"--keywords", "goal"}).err,
              "k4ctl: Error opening Sequence: " + Lib() + "bad.SQ4\n");
}

TEST_F(FindFiles, SequencesAreOpenedForTheirKeywordsAlone) {
    MakeFile(Lib() + "bad.SQ4", "no sequence");
    EXPECT_THAT(Names({}), ElementsAre("bad.SQ4"));
}

// Homes, help and any line --------------------------------------------------------------------

TEST_F(FindFiles, ANewHomeIsFilledWithSampleDataAndRunsNoServices) {
    const k4test::TempFolder empty;
    std::istringstream in;
    const CommandRun run({"find", "A:"}, k4ctl::StoreCommands(k4suite::DataHome(empty / "new"),
                                                              {in, shown, false, false}));
    EXPECT_TRUE(run.code == ExitCode::Done || run.code == ExitCode::NotFound);
    EXPECT_TRUE(std::filesystem::exists(empty / "new/drives/A"));
    EXPECT_FALSE(std::filesystem::exists(empty / "new/services.lock"));
}

TEST_F(FindFiles, AHomeThatCannotBeIsAFailure) {
    std::istringstream in;
    const CommandRun run(
        {"find"}, k4ctl::StoreCommands(k4suite::DataHome("/proc/none"), {in, shown, false, false}));
    EXPECT_EQ(run.code, ExitCode::Unavailable);
    EXPECT_THAT(run.err, testing::StartsWith("k4ctl: "));
    EXPECT_EQ(run.out, "");
}

TEST_F(FindFiles, HelpHasExamplesThatAreUnderstoodAndItsOwnExitCodes) {
    const CommandRun run = Find({"--help"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, HasSubstr("Exit codes:\n  0  files were found\n  1  none were found"));
    for (const char* option :
         {"--server",   "--sign-type", "--library",  "--name",       "--type",
          "--keywords", "--any",       "--all",      "--rows",       "--columns",
          "--color",    "--pixel",     "--at-least", "--at-most",    "--between",
          "--months",   "--days",      "--sort",     "--descending", "--json"})
        EXPECT_THAT(run.out, HasSubstr(std::string("  ") + option)) << option;
    const auto examples = k4test::Examples(run.out.substr(run.out.find("Examples:\n")), "  ");
    EXPECT_FALSE(examples.empty());
    std::istringstream in;
    k4test::ExpectUnderstood(examples, [&] {
        return k4ctl::StoreCommands(k4suite::DataHome(home.Path()), {in, shown, false, false});
    });
    EXPECT_THAT(Line({"--help"}).out, HasSubstr("\n  find "));
}

TEST_F(FindFiles, AnyLineEndsWithAKnownCodeAndWordsFitForATerminal) {
    MakeSequence(Lib() + "one.SQ4", -1, "goal");
    MakeFile(Lib() + "bad\x1b.SQ4", "x");
    const Words pieces = {
        "",           "-",        "--",     "--json",      "--type",  "SQ4",          "--sort",
        "size",       "--any",    "--all",  "--name",      "*",       "--keywords",   "goal",
        "A:",         "B:/",      Lib(),    "\xff",        "\x1b[2J", "a\nb\tc",      "--between",
        "2026-01-01", "--days",   "2",      "--months",    "--rows",  "16",           "--columns",
        "80",         "--color",  "Mono1",  "--pixel",     "LED",     "--descending", "--at-least",
        "--at-most",  "--server", "A:\\..", "--sign-type", kType,     "--library",    "L"};
    std::mt19937 random(21);  // the same lines in every run
    for (int line = 0; line < 600; ++line) {
        Words words;
        for (std::size_t count = random() % 8; count > 0; --count)
            words.push_back(pieces[random() % pieces.size()]);
        const CommandRun run = Find(words);
        ASSERT_TRUE(run.code == ExitCode::Done || run.code == ExitCode::NotFound ||
                    run.code == ExitCode::Usage || run.code == ExitCode::Unavailable)
            << testing::PrintToString(words);
        ASSERT_TRUE(run.code < ExitCode::Usage || !run.err.empty())
            << testing::PrintToString(words);
        ASSERT_EQ((run.out + run.err).find_first_of("\x1b\t\xff"), std::string::npos)
            << testing::PrintToString(words);
    }
}

}  // namespace
