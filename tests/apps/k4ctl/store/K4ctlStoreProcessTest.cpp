#include <fcntl.h>
#include <gmock/gmock.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <QJsonArray>
#include <algorithm>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "suite/settings/MachineSettings.h"
#include "suite/signservice/ServicesLock.h"
#include "tests/apps/k4ctl/K4ctlOnHome.h"
#include "tests/suite/printing/PdfReader.h"

// The real program on the store: in processes of its own, on a terminal, two at a time.

namespace {

namespace fs = std::filesystem;
using k4test::K4ctlRun;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kType = "64x192.RGB16M.LED.Sign";

class K4ctlStore : public k4test::K4ctlOnHome {
 protected:
    K4ctlStore() {
        program.Set(QStringLiteral("XDG_DATA_HOME"),
                    QString::fromStdString((program.Home().parent_path() / "xdg").string()));
    }
    K4ctlRun Store(const QStringList& words) const {
        return program.Run(QStringList{QStringLiteral("store")} + words);
    }
    static QString Library(const std::string& name = "Default") {
        return QString::fromStdString("A:\\" + kType + "\\" + name + ".Lib");
    }
    fs::path Native(const std::string& name = "Default") const {
        return program.Home() / "drives/A" / kType / (name + ".Lib");
    }
    /// How many of the files of a library have such a beginning.
    static std::ptrdiff_t Count(const fs::path& library, const std::string& prefix) {
        return std::count_if(fs::directory_iterator(library), {}, [&](const auto& entry) {
            return entry.path().filename().string().starts_with(prefix);
        });
    }
};

TEST_F(K4ctlStore, ListsTheSampleContentAndRunsNoServices) {
    const K4ctlRun run = Good({QStringLiteral("store"), QStringLiteral("ls"), Library()});
    EXPECT_THAT(run.out, HasSubstr("Welcome.SQ4 "));
    EXPECT_FALSE(fs::exists(program.Home() / "services.lock"));
    EXPECT_THAT(Good({QStringLiteral("store"), QStringLiteral("tree")}).out,
                HasSubstr("64x192.RGB16M.LED , (Main Board)\n"));
}

TEST_F(K4ctlStore, WorksWhileAnotherProcessHoldsTheServices) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    k4suite::ServicesLock lock(k4suite::DataHome(program.Home()), "another");
    ASSERT_TRUE(lock.TryAcquire());
    Good({QStringLiteral("store"), QStringLiteral("cp"), Library() + QStringLiteral("\\*"),
          Library(QStringLiteral("Safety").toStdString())});
    EXPECT_TRUE(fs::exists(Native("Safety") / "Welcome.SQ4"));
}

TEST_F(K4ctlStore, CarriesALibraryToAnotherServerAndBack) {
    Good({QStringLiteral("store"), QStringLiteral("mktype"), QStringLiteral("A:"),
          QStringLiteral("--rows"), QStringLiteral("24"), QStringLiteral("--columns"),
          QStringLiteral("96"), QStringLiteral("--color"), QStringLiteral("Quad16"),
          QStringLiteral("--pixel"), QStringLiteral("Incand")});
    const QString type = QStringLiteral("A:\\24x96.Quad16.Incand.Sign");
    Good({QStringLiteral("store"), QStringLiteral("mklib"), type, QStringLiteral("Home Games")});
    const fs::path made = program.Home() / "drives/A/24x96.Quad16.Incand.Sign/Home Games.Lib";
    std::ofstream(made / "a.SQ4") << "a";
    Good({QStringLiteral("store"), QStringLiteral("mv"), type, QStringLiteral("//STORE/SIGNS"),
          QStringLiteral("--yes")});
    EXPECT_FALSE(fs::exists(made));
    EXPECT_TRUE(fs::exists(program.Home() / "network/STORE/SIGNS/24x96.Quad16.Incand.Sign"));
    Good({QStringLiteral("store"), QStringLiteral("rename"),
          QStringLiteral("//STORE/SIGNS/24x96.Quad16.Incand.Sign/Home Games.Lib/a.SQ4"),
          QStringLiteral("b")});
    Good({QStringLiteral("store"), QStringLiteral("rm"),
          QStringLiteral("//STORE/SIGNS/24x96.Quad16.Incand.Sign/Home Games.Lib"),
          QStringLiteral("--yes")});
    EXPECT_TRUE(fs::exists(program.Home().parent_path() / "xdg/Trash/files/Home Games.Lib/b.SQ4"));
}

TEST_F(K4ctlStore, SaysWhatWasNotAskedAndEndsWithItsCode) {
    const K4ctlRun run = Store({QStringLiteral("rm"), Library()});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("to the trash? Nobody can be asked; --yes or --no answers.\n"));
    EXPECT_TRUE(fs::exists(Native() / "Welcome.SQ4"));
    EXPECT_EQ(Store({QStringLiteral("ls"), QStringLiteral("Z:")}).code, 1);
    EXPECT_EQ(Store({QStringLiteral("ls"), QStringLiteral("--sort")}).code, 2);
    EXPECT_EQ(Store({}).code, 2);
}

TEST_F(K4ctlStore, FindsFilesAndEndsWithItsCode) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    k4suite::ServicesLock lock(k4suite::DataHome(program.Home()), "another");
    ASSERT_TRUE(lock.TryAcquire());
    const auto find = [this](const QStringList& words) {
        return program.Run(QStringList{QStringLiteral("find")} + words);
    };
    const K4ctlRun found = find({QStringLiteral("--name"), QStringLiteral("welc*")});
    EXPECT_EQ(found.code, 0);
    EXPECT_EQ(found.err, "");
    EXPECT_THAT(found.out, HasSubstr("\nWelcome  A:\\" + kType + "\\Default.Lib\\Welcome.SQ4 "));
    const K4ctlRun none = find({QStringLiteral("--name"), QStringLiteral("none*")});
    EXPECT_EQ(none.code, 1);
    EXPECT_EQ(none.out, "No files were found.\n");
    EXPECT_EQ(none.err, "");
    EXPECT_EQ(find({QStringLiteral("--days"), QStringLiteral("0")}).code, 2);
    EXPECT_EQ(find({QStringLiteral("Z:")}).code, 3);
    std::ofstream(Native() / "Bad.SQ4") << "nothing";
    const K4ctlRun bad = find({Library(), QStringLiteral("--keywords"), QStringLiteral("none")});
    EXPECT_EQ(bad.code, 1);
    EXPECT_EQ(bad.err, "k4ctl: Error opening Sequence: " + Library().toStdString() + "\\Bad.SQ4\n");
}

TEST_F(K4ctlStore, PrintsTheReportAsPdf) {
    const QString out =
        QString::fromStdString((program.Home().parent_path() / "report.pdf").string());
    const K4ctlRun run = Good({QStringLiteral("store"), QStringLiteral("report"), Library(),
                               QStringLiteral("--pdf"), out});
    EXPECT_EQ(run.out, out.toStdString() + ": 3 files\n");
    const k4test::PdfReader reader(out.toStdString());
    EXPECT_EQ(reader.PageCount(), 1);
    EXPECT_EQ(reader.Title(), "K4FileManager");
    const K4ctlRun again =
        Store({QStringLiteral("report"), Library(), QStringLiteral("--pdf"), out});
    EXPECT_EQ(again.code, 1);
    EXPECT_THAT(again.err, HasSubstr("is there already; --force replaces it."));
    const QJsonObject json = Store({QStringLiteral("report"), Library(), QStringLiteral("--pdf"),
                                    out, QStringLiteral("--force"), QStringLiteral("--json")})
                                 .Json();
    EXPECT_EQ(json.value(QLatin1String("done")), QJsonValue(true));
    // In the store, too; and nowhere is a failure.
    Good({QStringLiteral("store"), QStringLiteral("report"), Library(), QStringLiteral("--pdf"),
          QStringLiteral("A:\\report.pdf")});
    EXPECT_TRUE(fs::exists(program.Home() / "drives/A/report.pdf"));
    const K4ctlRun nowhere = Store({QStringLiteral("report"), Library(), QStringLiteral("--pdf"),
                                    QStringLiteral("/none/report.pdf")});
    EXPECT_EQ(nowhere.code, 1);
    EXPECT_THAT(nowhere.err, testing::StartsWith("k4ctl: Cannot write \"/none/report.pdf\": "));
}

TEST_F(K4ctlStore, APdfOfALibraryWithAFileThatIsNoSequenceIsNotMade) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    std::ofstream(Native() / "Z.SQ4") << "nothing";
    const fs::path out = program.Home().parent_path() / "report.pdf";
    const K4ctlRun run = Store({QStringLiteral("report"), Library(), QStringLiteral("--pdf"),
                                QString::fromStdString(out.string())});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, HasSubstr("k4ctl: Error opening Sequence: "));
    EXPECT_FALSE(fs::exists(out));
}

// Rights --------------------------------------------------------------------------------------

/// The rights of a user whom permissions stop, for a process that is about to start.
void BecomeOrdinary() {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0))
        _exit(99);
}

class K4ctlStoreRights : public K4ctlStore {
 protected:
    void SetUp() override {
        Good({QStringLiteral("store"), QStringLiteral("ls")});
        if (geteuid() != 0)
            return;
        for (const auto& entry : fs::recursive_directory_iterator(program.Home().parent_path()))
            ASSERT_EQ(lchown(entry.path().c_str(), 65534, 65534), 0);
        ASSERT_EQ(lchown(program.Home().parent_path().c_str(), 65534, 65534), 0);
    }
    K4ctlRun Ordinary(const QStringList& words) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("K4_HOME"),
                           QString::fromStdString(program.Home().string()));
        environment.insert(QStringLiteral("XDG_DATA_HOME"),
                           QString::fromStdString((program.Home().parent_path() / "xdg").string()));
        process.setProcessEnvironment(environment);
        process.setChildProcessModifier(BecomeOrdinary);
        process.start(QStringLiteral(K4CTL_PROGRAM), QStringList{QStringLiteral("store")} + words);
        EXPECT_TRUE(process.waitForFinished(60'000));
        return {process.exitCode(), 0, process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }
};

TEST_F(K4ctlStoreRights, AFolderThatMayNotBeReadIsAFailure) {
    fs::permissions(Native(), fs::perms::none);
    const K4ctlRun run = Ordinary({QStringLiteral("ls"), Library()});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "k4ctl: \"" + Library().toStdString() + "\\\" can't be read.\n");
    fs::permissions(Native(), fs::perms::all);
}

TEST_F(K4ctlStoreRights, AFolderThatMayNotBeWrittenKeepsWhatItHas) {
    fs::permissions(Native(), fs::perms::owner_read | fs::perms::owner_exec);
    const QString file = Library() + QStringLiteral("\\Welcome.SQ4");
    const K4ctlRun moved =
        Ordinary({QStringLiteral("mv"), file, Library("Safety"), QStringLiteral("--yes")});
    EXPECT_EQ(moved.code, 1);
    EXPECT_EQ(moved.err, "k4ctl: Paste failed\n");
    EXPECT_TRUE(fs::exists(Native() / "Welcome.SQ4"));
    EXPECT_EQ(Ordinary({QStringLiteral("rename"), file, QStringLiteral("x")}).err,
              "k4ctl: Rename failed\n");
    const K4ctlRun removed = Ordinary({QStringLiteral("rm"), file, QStringLiteral("--yes")});
    EXPECT_EQ(removed.code, 1);
    EXPECT_THAT(removed.err, HasSubstr("is still there.\n"));
    const K4ctlRun copied =
        Ordinary({QStringLiteral("cp"), Library("Events") + QStringLiteral("\\*"), Library()});
    EXPECT_EQ(copied.code, 1);
    EXPECT_EQ(copied.err, "k4ctl: Paste failed\n");
    fs::permissions(Native(), fs::perms::all);
}

// A terminal ----------------------------------------------------------------------------------

/// The program on a terminal of its own, where a person types.
class OnTerminal {
 public:
    OnTerminal(const fs::path& home, const std::vector<std::string>& words) {
        const std::string xdg = (home.parent_path() / "xdg").string();
        m_process = forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_process == 0) {
            setenv("K4_HOME", home.c_str(), 1);
            setenv("XDG_DATA_HOME", xdg.c_str(), 1);
            std::vector<char*> arguments;
            std::string program = K4CTL_PROGRAM;
            arguments.push_back(program.data());
            for (const std::string& word : words)
                arguments.push_back(const_cast<char*>(word.c_str()));
            arguments.push_back(nullptr);
            execv(program.c_str(), arguments.data());
            _exit(99);
        }
        // Ctrl+C isn't to throw away what the program writes just then.
        termios modes{};
        EXPECT_EQ(tcgetattr(m_terminal, &modes), 0);
        modes.c_lflag |= NOFLSH;
        EXPECT_EQ(tcsetattr(m_terminal, TCSANOW, &modes), 0);
    }
    ~OnTerminal() {
        if (m_process > 0)
            kill(m_process, SIGKILL);
        close(m_terminal);
    }
    OnTerminal(const OnTerminal&) = delete;
    OnTerminal& operator=(const OnTerminal&) = delete;

    /// Reads until a text has come. @return whether it came.
    bool WaitFor(const std::string& text) {
        while (m_seen.find(text) == std::string::npos) {
            char piece[4096];
            const ssize_t got = read(m_terminal, piece, sizeof piece);
            if (got <= 0)
                return false;
            m_seen.append(piece, static_cast<std::size_t>(got));
        }
        return true;
    }
    void Type(const std::string& text) {
        EXPECT_EQ(write(m_terminal, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    /// Reads to the end. @return the exit code.
    int End() {
        WaitFor(std::string(1, '\0') + "never");
        int status = 0;
        waitpid(m_process, &status, 0);
        m_process = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    const std::string& Seen() const { return m_seen; }

 private:
    int m_terminal = -1;
    pid_t m_process = -1;
    std::string m_seen;
};

TEST_F(K4ctlStore, AsksOnATerminal) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    OnTerminal terminal(program.Home(), {"store", "rm", Library().toStdString() + "\\Welcome.SQ4"});
    ASSERT_TRUE(terminal.WaitFor("to the trash? (yes/no/cancel) [no] "));
    terminal.Type("yes\n");
    EXPECT_EQ(terminal.End(), 0) << terminal.Seen();
    EXPECT_FALSE(fs::exists(Native() / "Welcome.SQ4"));
}

TEST_F(K4ctlStore, ControlCAtAQuestionChangesNothing) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    OnTerminal terminal(program.Home(), {"store", "rm", Library().toStdString() + "\\Welcome.SQ4"});
    ASSERT_TRUE(terminal.WaitFor("[no] "));
    terminal.Type("\x03");
    EXPECT_EQ(terminal.End(), 1) << terminal.Seen();
    EXPECT_THAT(terminal.Seen(), HasSubstr("Stopped."));
    EXPECT_TRUE(fs::exists(Native() / "Welcome.SQ4"));
}

TEST_F(K4ctlStore, ControlCAmongFilesLeavesThemWholeAndWhereTheyWere) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    for (const char* name : {"x1.SQ4", "x2.SQ4", "x3.SQ4"})
        std::ofstream(Native() / name) << "new " << name;
    std::ofstream(Native("Safety") / "x2.SQ4") << "old";
    OnTerminal terminal(program.Home(), {"store", "mv", Library().toStdString() + "\\x*",
                                         Library("Safety").toStdString()});
    ASSERT_TRUE(terminal.WaitFor("(yes/no/all/none/cancel) [no] ")) << terminal.Seen();
    terminal.Type("\x03");
    EXPECT_EQ(terminal.End(), 1);
    EXPECT_THAT(terminal.Seen(), HasSubstr("k4ctl: Paste failed\r\nk4ctl: Stopped.\r\n"));
    EXPECT_EQ(Count(Native(), "x"), 3);
    EXPECT_EQ(fs::file_size(Native("Safety") / "x1.SQ4"), 10u);
    EXPECT_EQ(fs::file_size(Native("Safety") / "x2.SQ4"), 3u);
    EXPECT_FALSE(fs::exists(Native("Safety") / "x3.SQ4"));
    EXPECT_EQ(Count(Native("Safety"), ".k4copy-"), 0);
}

// Two at a time -------------------------------------------------------------------------------

/// Runs lines at the same time. @return their runs, in order.
std::vector<K4ctlRun> AtOnce(const fs::path& home, const std::vector<QStringList>& lines) {
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const QStringList& line : lines) {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("K4_HOME"), QString::fromStdString(home.string()));
        process->setProcessEnvironment(environment);
        process->start(QStringLiteral(K4CTL_PROGRAM), line);
        processes.push_back(std::move(process));
    }
    std::vector<K4ctlRun> runs;
    for (const auto& process : processes) {
        EXPECT_TRUE(process->waitForFinished(60'000));
        runs.push_back({process->exitCode(), 0, process->readAllStandardOutput().toStdString(),
                        process->readAllStandardError().toStdString()});
    }
    return runs;
}

TEST_F(K4ctlStore, TwoProcessesThatMoveTheSameFilesApartLoseNone) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    for (int file = 0; file < 200; ++file)
        std::ofstream(Native() / ("f" + std::to_string(file) + ".SQ4")) << "content " << file;
    AtOnce(program.Home(), {{QStringLiteral("store"), QStringLiteral("mv"),
                             Library() + QStringLiteral("\\f*.SQ4"), Library("Events")},
                            {QStringLiteral("store"), QStringLiteral("mv"),
                             Library() + QStringLiteral("\\f*.SQ4"), Library("Safety")}});
    for (int file = 0; file < 200; ++file) {
        const std::string name = "f" + std::to_string(file) + ".SQ4";
        std::string found;
        for (const char* library : {"Default", "Events", "Safety"}) {
            std::ifstream in(Native(library) / name);
            std::string content;
            if (std::getline(in, content))
                found = content;
        }
        EXPECT_EQ(found, "content " + std::to_string(file));
    }
}

TEST_F(K4ctlStore, TwoProcessesThatMoveIntoOneLibraryLoseNone) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    for (int file = 0; file < 100; ++file) {
        const std::string name = "f" + std::to_string(file) + ".SQ4";
        std::ofstream(Native() / name) << "from Default";
        std::ofstream(Native("Events") / name) << "from  Events";
    }
    AtOnce(program.Home(),
           {{QStringLiteral("store"), QStringLiteral("mv"), Library() + QStringLiteral("\\f*.SQ4"),
             Library("Safety"), QStringLiteral("--no")},
            {QStringLiteral("store"), QStringLiteral("mv"),
             Library("Events") + QStringLiteral("\\f*.SQ4"), Library("Safety"),
             QStringLiteral("--no")}});
    for (int file = 0; file < 100; ++file) {
        const std::string name = "f" + std::to_string(file) + ".SQ4";
        std::vector<std::string> contents;
        for (const char* library : {"Default", "Events", "Safety"}) {
            std::ifstream in(Native(library) / name);
            std::string content;
            if (std::getline(in, content))
                contents.push_back(content);
        }
        std::sort(contents.begin(), contents.end());
        contents.erase(std::unique(contents.begin(), contents.end()), contents.end());
        EXPECT_THAT(contents, ElementsAre("from  Events", "from Default")) << name;
    }
}

TEST_F(K4ctlStore, AmongProcessesThatMakeOrRenameToOneNameOneIsDone) {
    Good({QStringLiteral("store"), QStringLiteral("ls")});
    const QString type = QString::fromStdString("A:\\" + kType);
    const QStringList make{QStringLiteral("store"), QStringLiteral("mklib"), type,
                           QStringLiteral("New")};
    int done = 0;
    for (const K4ctlRun& run : AtOnce(program.Home(), {make, make, make}))
        done += run.code == 0 ? 1 : 0;
    EXPECT_EQ(done, 1);
    std::vector<QStringList> renames;
    for (const char* name : {"a", "b", "c"}) {
        std::ofstream(Native("New") / (std::string(name) + ".SQ4")) << name;
        renames.push_back(
            {QStringLiteral("store"), QStringLiteral("rename"),
             Library("New") + QLatin1Char('\\') + QLatin1String(name) + QStringLiteral(".SQ4"),
             QStringLiteral("one")});
    }
    done = 0;
    for (const K4ctlRun& run : AtOnce(program.Home(), renames))
        done += run.code == 0 ? 1 : 0;
    EXPECT_EQ(done, 1);
    EXPECT_EQ(Count(Native("New"), ""), 3);
}

}  // namespace
