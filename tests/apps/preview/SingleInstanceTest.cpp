#include "apps/preview/SingleInstance.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/TempFolder.h"

namespace {

using k4suite::DataHome;
using preview::SingleInstance;

class SingleInstanceTest : public testing::Test {
 protected:
    /// Starts one that goes on, and notes what later ones bring.
    std::unique_ptr<SingleInstance> First(const DataHome& where) {
        auto instance = std::make_unique<SingleInstance>(where);
        EXPECT_TRUE(instance->Start({}));
        QObject::connect(instance.get(), &SingleInstance::StartedAgain, instance.get(),
                         [this](const std::string& file) { files.push_back(file); });
        return instance;
    }
    /// Starts another one in a process of its own, while this one serves the first.
    bool LaterGoesOn(const DataHome& where, const std::string& file) {
        const pid_t child = fork();
        if (child == 0)
            _exit(SingleInstance(where).Start(file) ? 1 : 0);
        int status = -1;
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return waitpid(child, &status, WNOHANG) == child; }, 20'000));
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status) == 1;
    }
    /// Sends bytes to the first one. @return its answer.
    QByteArray Send(const QByteArray& bytes) {
        QLocalSocket socket;
        socket.connectToServer(QString::fromStdString((folder / "home/preview.socket").string()));
        EXPECT_TRUE(socket.waitForConnected());
        socket.write(bytes);
        QByteArray answer;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            answer += socket.readAll();
            return answer.endsWith('\0') || socket.state() != QLocalSocket::ConnectedState;
        }));
        return answer;
    }

    const k4test::TempFolder folder;
    const DataHome home{folder / "home"};
    std::vector<std::string> files;
};

using Files = std::vector<std::string>;

TEST_F(SingleInstanceTest, TheFirstOneGoesOnAndMakesTheHome) {
    const auto first = First(home);
    EXPECT_TRUE(std::filesystem::exists(folder / "home/preview.lock"));
    EXPECT_TRUE(std::filesystem::exists(folder / "home/preview.socket"));
}

TEST_F(SingleInstanceTest, ALaterOneEndsAndIsTold) {
    const auto first = First(home);
    EXPECT_FALSE(LaterGoesOn(home, {}));
    EXPECT_FALSE(LaterGoesOn(home, "A:\\Größe \"2\"\n.SQ4"));
    EXPECT_EQ(files, (Files{"", "A:\\Größe \"2\"\n.SQ4"}));
}

TEST_F(SingleInstanceTest, EachHomeHasItsOwn) {
    const auto first = First(home);
    const auto other = First(DataHome(folder / "other"));
    EXPECT_TRUE(files.empty());
}

TEST_F(SingleInstanceTest, TheNextOneFollowsWhenTheFirstIsGone) {
    First(home).reset();
    EXPECT_FALSE(std::filesystem::exists(folder / "home/preview.socket"));
    const auto next = First(home);
    EXPECT_FALSE(LaterGoesOn(home, "x"));
    EXPECT_EQ(files, Files{"x"});
}

TEST_F(SingleInstanceTest, WhatACrashLeftBehindIsNoHindrance) {
    folder.Write("home/preview.lock", "anything");
    folder.Write("home/preview.socket", "no socket");
    const auto first = First(home);
    EXPECT_FALSE(LaterGoesOn(home, "x"));
    EXPECT_EQ(files, Files{"x"});
}

TEST_F(SingleInstanceTest, AHomeWithALongPathHasASocketToo) {
    const DataHome deep{folder / (std::string(100, 'a') + "/" + std::string(100, 'b'))};
    const auto first = First(deep);
    EXPECT_FALSE(LaterGoesOn(deep, "x"));
    EXPECT_EQ(files, Files{"x"});
}

TEST_F(SingleInstanceTest, OneHomeUnderTwoNamesIsOneHome) {
    const auto first = First(home);
    std::filesystem::create_directory_symlink(folder / "home", folder / "link");
    EXPECT_FALSE(LaterGoesOn(DataHome(folder / "link"), "x"));
    EXPECT_EQ(files, Files{"x"});
}

TEST_F(SingleInstanceTest, AHomeThatCannotBeMadeHindersNobody) {
    folder.Write("file");
    SingleInstance instance(DataHome(folder / "file/home"));
    EXPECT_TRUE(instance.Start({}));
}

TEST_F(SingleInstanceTest, WhereTheFirstOneDoesNotAnswerTheLaterOneGoesOn) {
    const auto first = First(home);
    QElapsedTimer waiting;
    waiting.start();
    EXPECT_TRUE(SingleInstance(home).Start("x"));  // this thread serves nobody meanwhile
    EXPECT_LT(waiting.elapsed(), 10'000);
}

// Bad input --------------------------------------------------------------------------------------

TEST_F(SingleInstanceTest, ALongMessageIsCutOff) {
    const auto first = First(home);
    EXPECT_EQ(Send(QByteArray(200'000, 'x')), QByteArray());
    EXPECT_TRUE(files.empty());
    EXPECT_EQ(Send(QByteArray("x\0", 2)), QByteArray("ok\0", 3));
    EXPECT_EQ(files, Files{"x"});
}

TEST_F(SingleInstanceTest, AMessageMayComeInPieces) {
    const auto first = First(home);
    QLocalSocket socket;
    socket.connectToServer(QString::fromStdString((folder / "home/preview.socket").string()));
    ASSERT_TRUE(socket.waitForConnected());
    for (const char* piece : {"A:", "\\x"}) {
        socket.write(piece);
        ASSERT_TRUE(socket.waitForBytesWritten());
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(files.empty());
    socket.write("", 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !files.empty(); }));
    EXPECT_EQ(files, Files{"A:\\x"});
}

TEST_F(SingleInstanceTest, OneThatLeavesInTheMiddleAsksForNothing) {
    const auto first = First(home);
    {
        QLocalSocket socket;
        socket.connectToServer(QString::fromStdString((folder / "home/preview.socket").string()));
        ASSERT_TRUE(socket.waitForConnected());
        socket.write("half");
        ASSERT_TRUE(socket.waitForBytesWritten());
    }
    EXPECT_EQ(Send(QByteArray("x\0", 2)), QByteArray("ok\0", 3));
    EXPECT_EQ(files, Files{"x"});
}

}  // namespace
