#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QProcess>
#include <QTest>
#include <csignal>
#include <fstream>
#include <memory>

#include "suite/platform/SuitePrograms.h"
#include "tests/apps/preview/PreviewFixture.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr int kLongest = 60'000;  // milliseconds

/// The real program on a data home of the test's own. That it shows a file is seen from outside by
/// its holding the file open.
class PreviewProcess : public k4test::PreviewFixture {
 protected:
    void TearDown() override {
        for (const auto& process : started) {
            process->kill();
            process->waitForFinished(kLongest);
        }
    }

    QProcess* Start(const QStringList& arguments, const QString& folderToRunIn = {}) {
        started.push_back(std::make_unique<QProcess>());
        QProcess* process = started.back().get();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("K4_HOME"), QString::fromStdString(home.Path().string()));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(folderToRunIn);
        process->start(QStringLiteral(K4PREVU_PROGRAM), arguments);
        EXPECT_TRUE(process->waitForStarted(kLongest));
        return process;
    }
    /// Runs it to its end. @return its exit code, -1 for a crash.
    int RunToEnd(const QStringList& arguments) {
        QProcess* process = Start(arguments);
        const bool ended = process->waitForFinished(kLongest);
        EXPECT_TRUE(ended);
        out = process->readAllStandardOutput().toStdString();
        err = process->readAllStandardError().toStdString();
        return ended && process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1;
    }
    static bool HoldsOpen(const QProcess& process, const std::string& native) {
        return HoldsOpen(process.processId(), native);
    }
    static bool HoldsOpen(qint64 process, const std::string& native) {
        std::error_code failed;
        const fs::path open = "/proc/" + std::to_string(process) + "/fd";
        for (fs::directory_iterator at(open, failed), end; !failed && at != end;
             at.increment(failed)) {
            std::error_code ignored;
            if (fs::read_symlink(at->path(), ignored) == native)
                return true;
        }
        return false;
    }
    /// The process of the program that is this process's child; 0 without one.
    static pid_t Child() {
        for (const auto& entry : fs::directory_iterator("/proc")) {
            std::ifstream in(entry.path() / "stat");
            int process = 0;
            int parent = 0;
            std::string name;
            std::string state;
            if (in >> process >> name >> state >> parent && parent == getpid() &&
                name == "(K4Prevu)")
                return process;
        }
        return 0;
    }
    bool ComesToShow(const QProcess& process, const std::string& name) {
        return QTest::qWaitFor([&] { return HoldsOpen(process, Native(name)); }, kLongest);
    }

    std::vector<std::unique_ptr<QProcess>> started;
    std::string out;
    std::string err;
};

TEST_F(PreviewProcess, PlaysTheSequenceOfTheSettingsAndThenTheNextOne) {
    const std::uint32_t second = 1;
    MakeEqualFrames("One.SQ4", 10, 50);
    MakeEqualFrames("Two.SQ4", 10, 50);
    ASSERT_EQ(suite.Registry().SetPreviewOptions(Path("One.SQ4"), {nullptr, nullptr, &second}), 1);
    QProcess* first = Start({});
    ASSERT_TRUE(ComesToShow(*first, "One.SQ4"));
    ASSERT_EQ(suite.Registry().SetPreviewOptions(Path("Two.SQ4"), {nullptr, nullptr, &second}), 1);
    EXPECT_TRUE(ComesToShow(*first, "Two.SQ4"));
    EXPECT_FALSE(HoldsOpen(*first, Native("One.SQ4")));
    EXPECT_EQ(first->state(), QProcess::Running);
}

TEST_F(PreviewProcess, IsStartedAsAProgramOfTheSuite) {
    const std::uint32_t second = 1;
    MakeEqualFrames("One.SQ4", 10, 50);
    ASSERT_EQ(suite.Registry().SetPreviewOptions(Path("One.SQ4"), {nullptr, nullptr, &second}), 1);
    k4suite::SuitePrograms programs(
        {{"K4_HOME", home.Path().string()}, {"QT_QPA_PLATFORM", "offscreen"}});
    const std::string programFolder = fs::path(K4PREVU_PROGRAM).parent_path().string();
    const std::unique_ptr<k4cmn::RunningProgram> record =
        programs.Start(programFolder + "\\K4Prevu.exe", k4cmn::SW_RESTORE);
    ASSERT_NE(record, nullptr);
    const pid_t process = Child();
    ASSERT_NE(process, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return HoldsOpen(process, Native("One.SQ4")); }, kLongest));
    EXPECT_TRUE(record->IsRunning());
    ::kill(process, SIGTERM);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !record->IsRunning(); }, kLongest));
}

TEST_F(PreviewProcess, ASecondStartEndsAndTheFirstRunsOn) {
    MakeEqualFrames("One.SQ4", 10, 50);
    QProcess* first = Start({QString::fromStdString(Path("One.SQ4"))});
    ASSERT_TRUE(ComesToShow(*first, "One.SQ4"));
    EXPECT_EQ(RunToEnd({}), 0);
    EXPECT_EQ(first->state(), QProcess::Running);
    EXPECT_TRUE(HoldsOpen(*first, Native("One.SQ4")));
}

TEST_F(PreviewProcess, ASecondStartHandsItsFileOver) {
    MakeEqualFrames("One.SQ4", 10, 50);
    MakeEqualFrames("Two.SQ4", 10, 50);
    MakeEqualFrames("Three.SQ4", 10, 50);
    QProcess* first = Start({QString::fromStdString(Path("One.SQ4"))});
    ASSERT_TRUE(ComesToShow(*first, "One.SQ4"));
    EXPECT_EQ(RunToEnd({QString::fromStdString(Native("Two.SQ4"))}), 0);
    EXPECT_TRUE(ComesToShow(*first, "Two.SQ4"));
    // A path from where the second one was started.
    QProcess* third = Start({QStringLiteral("./Three.SQ4")},
                            QString::fromStdString((home.Drives() / "A").string()));
    EXPECT_TRUE(third->waitForFinished(kLongest));
    EXPECT_EQ(third->exitCode(), 0);
    EXPECT_TRUE(ComesToShow(*first, "Three.SQ4"));
}

TEST_F(PreviewProcess, AfterAKillTheNextOneRuns) {
    MakeEqualFrames("One.SQ4", 10, 50);
    QProcess* first = Start({QString::fromStdString(Path("One.SQ4"))});
    ASSERT_TRUE(ComesToShow(*first, "One.SQ4"));
    first->kill();
    ASSERT_TRUE(first->waitForFinished(kLongest));
    QProcess* next = Start({QString::fromStdString(Path("One.SQ4"))});
    EXPECT_TRUE(ComesToShow(*next, "One.SQ4"));
    EXPECT_EQ(RunToEnd({}), 0);
}

TEST_F(PreviewProcess, OneThatIsStoppedHindersNobody) {
    MakeEqualFrames("One.SQ4", 10, 50);
    MakeEqualFrames("Two.SQ4", 10, 50);
    QProcess* first = Start({QString::fromStdString(Path("One.SQ4"))});
    ASSERT_TRUE(ComesToShow(*first, "One.SQ4"));
    ::kill(static_cast<pid_t>(first->processId()), SIGSTOP);
    QProcess* second = Start({QString::fromStdString(Path("Two.SQ4"))});
    EXPECT_TRUE(ComesToShow(*second, "Two.SQ4"));
    ::kill(static_cast<pid_t>(first->processId()), SIGCONT);
}

TEST_F(PreviewProcess, AnotherHomeHasItsOwn) {
    MakeEqualFrames("One.SQ4", 10, 50);
    QProcess* first = Start({QString::fromStdString(Path("One.SQ4"))});
    ASSERT_TRUE(ComesToShow(*first, "One.SQ4"));
    QProcess* other =
        Start({QStringLiteral("--home"), QString::fromStdString((folder / "other").string()),
               QString::fromStdString(Native("One.SQ4"))});
    EXPECT_TRUE(ComesToShow(*other, "One.SQ4"));
    EXPECT_TRUE(fs::exists(folder / "other/preview.lock"));
}

TEST_F(PreviewProcess, LeavesTheServicesOfTheHomeAlone) {
    MakeEqualFrames("One.SQ4", 10, 50);
    QProcess* first = Start({QString::fromStdString(Path("One.SQ4"))});
    ASSERT_TRUE(ComesToShow(*first, "One.SQ4"));
    EXPECT_FALSE(fs::exists(home.ServicesLock()));
}

TEST_F(PreviewProcess, HelpTellsHowToUseIt) {
    EXPECT_EQ(RunToEnd({QStringLiteral("--help")}), 0);
    EXPECT_THAT(out, HasSubstr("--home <DIR>"));
    EXPECT_THAT(out, HasSubstr("[FILE]"));
}

TEST_F(PreviewProcess, ArgumentsThatAreNone) {
    EXPECT_EQ(RunToEnd({QStringLiteral("--nonsense")}), 1);
    EXPECT_THAT(err, HasSubstr("nonsense"));
    EXPECT_EQ(RunToEnd({QStringLiteral("a"), QStringLiteral("b")}), 2);
}

}  // namespace
