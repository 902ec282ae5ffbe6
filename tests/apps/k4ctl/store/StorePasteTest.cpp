#include <csignal>
#include <functional>
#include <streambuf>

#include "tests/apps/k4ctl/store/StoreRuns.h"
#include "tests/suite/sequence/FullDisk.h"

// What `store cp` and `store mv` carry where, and what they ask.

namespace {

using k4ctl::ExitCode;
using k4test::kOtherType;
using k4test::kType;
using k4test::LibraryOn;
using k4test::Words;
using testing::HasSubstr;

constexpr char kNotAsked[] = " Nobody can be asked; --yes or --no answers.";
constexpr char kNoLibrary[] = "Cannot paste files -- Library not specified";
constexpr char kNoSignType[] = "Cannot paste files -- Sign Type not specified";

std::string TypeOn(const std::string& server) {
    return server + "\\" + kType + ".Sign\\";
}

class StorePaste : public k4test::StoreRuns {
 protected:
    void SetUp() override {
        StoreRuns::SetUp();
        MakeFile(LibraryOn("A:") + "one.SQ4", "1");
        MakeFile(LibraryOn("A:") + "two.SQ4", "22");
        MakeFile(LibraryOn("A:") + "plan.SD4", "333");
        MakeFolder(LibraryOn("A:", "M"));
        MakeFile("A:\\Morning.SC4", "script");
    }
    /// Runs it on a terminal. @return what was asked, with the answers' places.
    std::string Asked(const Words& words, const char* answers) {
        Call(words, answers);
        return shown.str();
    }
};

// Files ---------------------------------------------------------------------------------------

TEST_F(StorePaste, CopiesFilesToAnotherLibrary) {
    EXPECT_EQ(
        Good({"cp", LibraryOn("A:") + "one.SQ4", LibraryOn("A:") + "two.SQ4", LibraryOn("A:", "M")})
            .out,
        "");
    EXPECT_EQ(Content(LibraryOn("A:", "M") + "one.SQ4"), "1");
    EXPECT_EQ(Content(LibraryOn("A:", "M") + "two.SQ4"), "22");
    EXPECT_TRUE(Exists(LibraryOn("A:") + "one.SQ4"));
}

TEST_F(StorePaste, MovesFilesOfSeveralTypesByPattern) {
    Good({"mv", "A:/16x80.mono1.led.Sign/L.lib/*", "A:/16x80.Mono1.LED.Sign/M.Lib"});
    EXPECT_EQ(Content(LibraryOn("A:", "M") + "one.SQ4"), "1");
    EXPECT_EQ(Content(LibraryOn("A:", "M") + "plan.SD4"), "333");
    EXPECT_TRUE(std::filesystem::is_empty(Native(LibraryOn("A:"))));
}

TEST_F(StorePaste, TellsMachinesWhatWasDone) {
    const QJsonObject json =
        Good({"cp", LibraryOn("A:") + "one.SQ4", LibraryOn("A:", "M"), "--json"}).Json();
    EXPECT_EQ(json.value(QLatin1String("done")), QJsonValue(true));
    EXPECT_EQ(json.value(QLatin1String("target")).toString().toStdString(), LibraryOn("A:", "M"));
    EXPECT_EQ(json.value(QLatin1String("sources")).toArray().size(), 1);
    EXPECT_FALSE(json.contains(QLatin1String("questions")));
}

TEST_F(StorePaste, OntoItselfDoesNothing) {
    for (const char* way : {"cp", "mv"}) {
        Good({way, LibraryOn("A:") + "one.SQ4", LibraryOn("A:")});
        Good({way, LibraryOn("A:"), "A:"});
        EXPECT_EQ(Content(LibraryOn("A:") + "one.SQ4"), "1") << way;
    }
}

TEST_F(StorePaste, FilesOfAnotherSignTypeAreRefused) {
    MakeFolder(std::string("A:\\") + kOtherType + ".Sign\\L.Lib");
    const std::string target = std::string("A:\\") + kOtherType + ".Sign\\L.Lib";
    RefusedWithoutChange({"cp", LibraryOn("A:") + "one.SQ4", target},
                         "Incorrect sign type specified");
    RefusedWithoutChange({"cp", LibraryOn("A:"), target}, "Incorrect sign type specified.");
}

TEST_F(StorePaste, ScriptsGoFromServerToServer) {
    Good({"cp", "A:\\Morning.SC4", "B:"});
    EXPECT_EQ(Content("B:\\Morning.SC4"), "script");
    Good({"mv", "A:/morning.sc4", "//S/T"});
    EXPECT_FALSE(Exists("A:\\Morning.SC4"));
    EXPECT_EQ(Content("\\\\S\\T\\Morning.SC4"), "script");
    RefusedWithoutChange(
        {"cp", "B:\\Morning.SC4", LibraryOn("A:")},
        "\"B:\\Morning.SC4\" goes to a server, and \"" + LibraryOn("A:") + "\" is a library.");
}

// The question whether a file is replaced -------------------------------------------------------

class StoreReplace : public StorePaste {
 protected:
    void SetUp() override {
        StorePaste::SetUp();
        MakeFile(LibraryOn("A:", "M") + "one.SQ4", "old 1");
        MakeFile(LibraryOn("A:", "M") + "two.SQ4", "old 22");
    }
    std::string Question(const std::string& name) {
        return "The folder '" + Native(LibraryOn("A:", "M")).string() +
               "' already has a file named '" + name + "'. Replace it?";
    }
    Words Line(const char* way) const {
        return {way, LibraryOn("A:") + "one.SQ4", LibraryOn("A:") + "two.SQ4",
                LibraryOn("A:", "M")};
    }
    std::string Contents() {
        return Content(LibraryOn("A:", "M") + "one.SQ4") + "|" +
               Content(LibraryOn("A:", "M") + "two.SQ4");
    }
};

TEST_F(StoreReplace, IsAnsweredAtTheTerminal) {
    constexpr char kChoices[] = " (yes/no/all/none/cancel) [no] ";
    const struct {
        const char* typed;
        const char* contents;
        int questions;
    } rows[] = {
        {"y\nn\n", "1|old 22", 2},
        {"n\nyes\n", "old 1|22", 2},
        {"all\n", "1|22", 1},
        {"A\n", "1|22", 1},
        {"none\n", "old 1|old 22", 1},
        {"\n\n", "old 1|old 22", 2},
        {"cancel\n", "old 1|old 22", 1},
        {"y\nc\n", "1|old 22", 2},
    };
    for (const auto& row : rows) {
        MakeFile(LibraryOn("A:", "M") + "one.SQ4", "old 1");
        MakeFile(LibraryOn("A:", "M") + "two.SQ4", "old 22");
        const std::string asked = Asked(Line("cp"), row.typed);
        EXPECT_EQ(Contents(), row.contents) << row.typed;
        EXPECT_EQ(asked, Question("one.SQ4") + kChoices +
                             (row.questions > 1 ? Question("two.SQ4") + kChoices : ""))
            << row.typed;
    }
}

TEST_F(StoreReplace, CancelIsAFailureAndNoIsNone) {
    EXPECT_EQ(Call(Line("cp"), "n\nn\n").code, ExitCode::Done);
    const k4test::CommandRun run = Call(Line("cp"), "cancel\n");
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.err, "k4ctl: Paste failed\n");
}

TEST_F(StoreReplace, AnUnknownWordIsAskedAgainAndTheEndOfInputIsNo) {
    const std::string asked =
        Asked({"cp", LibraryOn("A:") + "one.SQ4", LibraryOn("A:", "M")}, "perhaps\nyess\n");
    const std::string line = Question("one.SQ4") + " (yes/no/cancel) [no] ";
    EXPECT_EQ(asked, line + line + line + "\n");
    EXPECT_EQ(Contents(), "old 1|old 22");
}

TEST_F(StoreReplace, YesAndNoAnswerAll) {
    EXPECT_EQ(Good([this] {
                  Words words = Line("cp");
                  words.emplace_back("--no");
                  return words;
              }())
                  .out,
              "");
    EXPECT_EQ(Contents(), "old 1|old 22");
    Words words = Line("cp");
    words.insert(words.end(), {"--yes", "--json"});
    const QJsonObject json = Good(words).Json();
    EXPECT_EQ(Contents(), "1|22");
    const QJsonObject question = json.value(QLatin1String("questions")).toArray().at(0).toObject();
    EXPECT_EQ(question.value(QLatin1String("answer")).toString(), QStringLiteral("all"));
    EXPECT_THAT(question.value(QLatin1String("text")).toString().toStdString(),
                HasSubstr("'one.SQ4'.\nReplace it?"));
    words.emplace_back("--no");
    EXPECT_EQ(Call(words).code, ExitCode::Usage);
}

TEST_F(StoreReplace, WhereNobodySitsTheFilesStayAndThatIsSaid) {
    RefusedWithoutChange(Line("cp"), Question("one.SQ4") + kNotAsked);
    EXPECT_EQ(Contents(), "old 1|old 22");
}

TEST_F(StoreReplace, AMovedFileThatWasNotToReplaceStays) {
    Words words = Line("mv");
    words.emplace_back("-n");
    Good(words);
    EXPECT_EQ(Content(LibraryOn("A:") + "one.SQ4"), "1");
    EXPECT_EQ(Contents(), "old 1|old 22");
    words.back() = "-y";
    Good(words);
    EXPECT_FALSE(Exists(LibraryOn("A:") + "one.SQ4"));
    EXPECT_EQ(Contents(), "1|22");
}

// Folders -------------------------------------------------------------------------------------

TEST_F(StorePaste, ALibraryGoesToAServerThatHasNoneOfItAfterTwoQuestions) {
    const std::string type = "Create Sign Type: " + TypeOn("B:") + "? (yes/no) [no] ";
    const std::string library = "Create Library: " + LibraryOn("B:") + "? (yes/no) [no] ";
    EXPECT_EQ(Asked({"cp", LibraryOn("A:"), "B:"}, "no\n"), type);
    EXPECT_FALSE(Exists(TypeOn("B:")));
    EXPECT_EQ(Asked({"cp", LibraryOn("A:"), "B:"}, "y\nn\n"), type + library);
    EXPECT_TRUE(Exists(TypeOn("B:")));
    EXPECT_FALSE(Exists(LibraryOn("B:")));
    EXPECT_EQ(Asked({"cp", LibraryOn("A:"), "B:"}, "y\n"), library);
    EXPECT_EQ(Content(LibraryOn("B:") + "plan.SD4"), "333");
}

TEST_F(StorePaste, WithoutAnAnswerNothingIsMade) {
    RefusedWithoutChange({"cp", LibraryOn("A:"), "B:"}, "Create Sign Type: " + TypeOn("B:") + "?" +
                                                            kNotAsked + "\nk4ctl: " + kNoSignType);
    RefusedWithoutChange({"cp", LibraryOn("A:"), "B:", "--no"}, kNoSignType);
    MakeFolder(TypeOn("B:"));
    RefusedWithoutChange({"cp", LibraryOn("A:") + "one.SQ4", "B:", "--no"}, kNoLibrary);
}

TEST_F(StorePaste, AWholeSignTypeGoesWithAllItsLibraries) {
    MakeFile(LibraryOn("A:", "M") + "more.SQ4", "m");
    Good({"cp", TypeOn("A:"), "B:", "--yes"});
    EXPECT_EQ(Content(LibraryOn("B:") + "one.SQ4"), "1");
    EXPECT_EQ(Content(LibraryOn("B:", "M") + "more.SQ4"), "m");
    EXPECT_TRUE(Exists(LibraryOn("A:") + "one.SQ4"));
    Good({"mv", TypeOn("A:"), "\\\\S\\T", "--yes"});
    EXPECT_FALSE(Exists(TypeOn("A:")));
    EXPECT_EQ(Content(LibraryOn("\\\\S\\T", "M") + "more.SQ4"), "m");
}

TEST_F(StorePaste, ALibraryGoesOnlyToItsName) {
    MakeFolder(LibraryOn("B:", "M"));
    RefusedWithoutChange({"cp", LibraryOn("A:"), LibraryOn("B:", "M")},
                         "Incorrect Library Specified");
    RefusedWithoutChange({"cp", TypeOn("A:"), LibraryOn("B:", "M")}, "Invalid library");
    MakeFolder(LibraryOn("B:"));
    Good({"cp", LibraryOn("A:"), LibraryOn("B:")});
    EXPECT_TRUE(Exists(LibraryOn("B:") + "one.SQ4"));
}

TEST_F(StorePaste, FilesGoToTheLibraryOfTheirNameWhereOnlyAServerIsNamed) {
    Good({"cp", LibraryOn("A:") + "one.SQ4", "B:", "--yes"});
    EXPECT_EQ(Content(LibraryOn("B:") + "one.SQ4"), "1");
}

TEST_F(StorePaste, SeveralSourcesGoEachItsWayAndOneThatIsNotThereKeepsNoOther) {
    Refused({"cp", LibraryOn("A:") + "none.SQ4", LibraryOn("A:") + "one.SQ4", "C:\\x",
             "A:", LibraryOn("A:", "M")},
            "There is no place \"" + LibraryOn("A:") +
                "none.SQ4\".\nk4ctl: There is no place \"C:\\x\". k4ctl store ls lists the "
                "servers.\nk4ctl: \"A:\\\" is a server, which stays.");
    EXPECT_TRUE(Exists(LibraryOn("A:", "M") + "one.SQ4"));
}

TEST_F(StorePaste, BadTargetsAreRefused) {
    RefusedWithoutChange(
        {"cp", LibraryOn("A:") + "one.SQ4", LibraryOn("A:") + "two.SQ4"},
        "\"" + LibraryOn("A:") +
            "two.SQ4\" is a file; files go to a server, a sign type or a library.");
    RefusedWithoutChange({"mv", LibraryOn("A:") + "one.SQ4", LibraryOn("A:", "None")},
                         "There is no place \"" + LibraryOn("A:", "None") + "\".");
    RefusedWithoutChange({"mv", LibraryOn("A:") + "one.SQ4", "A:\\\n\x1b"},
                         "There is no place \"A:\\\\n\\x1b\".");
    RefusedWithoutChange({"cp", "x"},
                         "SOURCE: At least 2 required but received 1\nk4ctl: see k4ctl store cp "
                         "--help",
                         ExitCode::Usage);
    RefusedWithoutChange({"mv"}, "SOURCE is required\nk4ctl: see k4ctl store mv --help",
                         ExitCode::Usage);
}

// Failures ------------------------------------------------------------------------------------

TEST_F(StorePaste, AFullDiskLosesNothing) {
    MakeFile(LibraryOn("A:") + "big.SQ4", std::string(200'000, 'x'));
    const Words before = Entries();
    for (const char* way : {"cp", "mv"}) {
        const k4test::FullDisk disk(100'000);
        const k4test::CommandRun run =
            Call({way, LibraryOn("A:") + "big.SQ4", LibraryOn("A:", "M")});
        EXPECT_EQ(run.code, ExitCode::Refused);
        EXPECT_EQ(run.err, "k4ctl: Paste failed\n");
    }
    EXPECT_EQ(Entries(), before);
    EXPECT_EQ(Content(LibraryOn("A:") + "big.SQ4").size(), 200'000u);
}

TEST_F(StorePaste, AFileOntoALinkToItselfIsNoCopyAndNoLoss) {
    std::filesystem::create_directory_symlink(Native(LibraryOn("A:")),
                                              Native(TypeOn("A:")) / "Alias.Lib");
    const k4test::CommandRun run =
        Call({"mv", LibraryOn("A:") + "one.SQ4", LibraryOn("A:", "Alias"), "--yes"});
    EXPECT_EQ(Content(LibraryOn("A:") + "one.SQ4"), "1");
    EXPECT_EQ(run.code, ExitCode::Refused);
}

/// A person who does something else before each answer.
class ActingPerson final : public std::streambuf {
 public:
    /// @param act gives the answer; an empty one is the end of input.
    explicit ActingPerson(std::function<std::string()> act) : m_act(std::move(act)) {}

 private:
    int_type underflow() override {
        m_line = m_act();
        setg(m_line.data(), m_line.data(), m_line.data() + m_line.size());
        return m_line.empty() ? traits_type::eof() : traits_type::to_int_type(m_line[0]);
    }

    const std::function<std::string()> m_act;
    std::string m_line;
};

class StoreActing : public StorePaste {
 protected:
    k4test::CommandRun With(Words words, std::function<std::string()> act) {
        ActingPerson person(std::move(act));
        std::istream answers(&person);
        words.insert(words.begin(), "store");
        return k4test::CommandRun(words, k4ctl::StoreCommands(k4suite::DataHome(home.Path()),
                                                              {answers, shown, true, false}));
    }
};

TEST_F(StoreActing, TheRequestToStopLeavesWholeFiles) {
    MakeFile(LibraryOn("A:", "M") + "one.SQ4", "old");
    const k4test::CommandRun run =
        With({"mv", LibraryOn("A:") + "*.SQ4", LibraryOn("A:", "M"), "--json"}, [] {
            std::raise(SIGINT);
            return std::string();
        });
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_THAT(run.err, HasSubstr("k4ctl: Stopped.\n"));
    EXPECT_EQ(run.Json().value(QLatin1String("done")), QJsonValue(false));
    EXPECT_EQ(Content(LibraryOn("A:", "M") + "one.SQ4"), "old");
    EXPECT_EQ(Content(LibraryOn("A:") + "one.SQ4"), "1");
    EXPECT_EQ(Content(LibraryOn("A:") + "two.SQ4"), "22");
    EXPECT_FALSE(Exists(LibraryOn("A:", "M") + "two.SQ4"));
    // It counts for that command alone.
    Good({"mv", LibraryOn("A:") + "two.SQ4", LibraryOn("A:", "M")});
}

TEST_F(StoreActing, AServerThatGoesWhileItIsAskedAboutIsAFailure) {
    const k4test::CommandRun run = With({"mv", LibraryOn("A:"), "B:"}, [this] {
        std::filesystem::remove_all(home / "drives/B");
        return std::string("yes\n");
    });
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_THAT(run.err, HasSubstr("k4ctl: Error Creating: " + TypeOn("B:") + "\n"));
    EXPECT_THAT(run.err, HasSubstr("k4ctl: Paste failed\n"));
    EXPECT_EQ(Content(LibraryOn("A:") + "one.SQ4"), "1");
    EXPECT_EQ(Content(LibraryOn("A:") + "plan.SD4"), "333");
}

TEST_F(StoreActing, AFileThatGoesWhileAnotherOneIsAskedAboutKeepsNoneFromGoing) {
    MakeFile(LibraryOn("A:", "M") + "one.SQ4", "old");
    const k4test::CommandRun run =
        With({"mv", LibraryOn("A:") + "*.SQ4", LibraryOn("A:", "M")}, [this] {
            std::filesystem::remove(Native(LibraryOn("A:") + "two.SQ4"));
            return std::string("yes\n");
        });
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.err, "k4ctl: Paste failed\n");
    EXPECT_EQ(Content(LibraryOn("A:", "M") + "one.SQ4"), "1");
    EXPECT_EQ(Content(LibraryOn("A:") + "one.SQ4"), "1");
}

}  // namespace
