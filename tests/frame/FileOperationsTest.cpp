#include "k4cmndlg/frame/FileOperations.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/RecordingShell.h"
#include "tests/support/ThrowingShell.h"

using k4cmn::PackPaths;
using k4cmn::ScopedProvider;
using k4cmn::Shell;
using k4test::RecordingShell;
using testing::ElementsAre;
using testing::IsEmpty;
using Paths = std::vector<std::string>;
using namespace std::string_literals;

namespace {

class FileOperations : public testing::Test {
 protected:
    RecordingShell m_shell;
    ScopedProvider<Shell> m_installed{m_shell};
};

}  // namespace

TEST(PackPaths, EachPathHasItsZeroAndTheListOneMore) {
    EXPECT_EQ(PackPaths({"/a", "/b c"}), "/a\0/b c\0\0"s);
    EXPECT_EQ(PackPaths({"/a"}), "/a\0\0"s);
    EXPECT_EQ(PackPaths({}), "\0"s);
}

TEST(PackPaths, UnpackingGivesThePathsBack) {
    const Paths paths{"\\\\Server\\Signs\\a.sq4", "/b", "c"};
    EXPECT_EQ(k4cmn::UnpackPaths(PackPaths(paths)), paths);
    EXPECT_THAT(k4cmn::UnpackPaths(PackPaths({})), IsEmpty());
    EXPECT_THAT(k4cmn::UnpackPaths(""), IsEmpty());
    EXPECT_THAT(k4cmn::UnpackPaths("no end"), ElementsAre("no end"));
}

TEST_F(FileOperations, DeleteHandsThePackedListToTheShell) {
    EXPECT_EQ(k4cmnDeleteFile(Paths{"/a", "/b"}, 0x10), 1);
    EXPECT_THAT(m_shell.calls, ElementsAre("version", "operation 3"));
    EXPECT_THAT(m_shell.operations,
                ElementsAre(RecordingShell::Operation{3, "/a\0/b\0\0"s, "", 0x50}));
}

TEST_F(FileOperations, DeleteWithFlagsZeroPassesAllowUndo) {
    EXPECT_EQ(k4cmnDeleteFile(Paths{"/a"}, 0), 1);
    EXPECT_EQ(m_shell.operations.at(0).flags, 0x40);
}

TEST_F(FileOperations, DeleteWithAllFlagsKeepsThem) {
    EXPECT_EQ(k4cmnDeleteFile(Paths{"/a"}, 0xFFFF), 1);
    EXPECT_EQ(m_shell.operations.at(0).flags, 0xFFFF);
}

TEST_F(FileOperations, DeleteOfOnePathPacksItWithTwoZeros) {
    EXPECT_EQ(k4cmnDeleteFile("/one", 0), 1);
    EXPECT_EQ(m_shell.operations.at(0).from, "/one\0\0"s);
}

TEST_F(FileOperations, ShellThatFailsFailsTheCall) {
    m_shell.operationResult = 1;
    EXPECT_EQ(k4cmnDeleteFile(Paths{"/a"}, 0), 0);
    EXPECT_EQ(k4cmnDeleteFile("/a", 0), 0);
    EXPECT_EQ(k4cmnCopyFile(Paths{"/a"}, "/to"), 0);
    EXPECT_EQ(k4cmnCopyFile("/a", "/to"), 0);
}

TEST_F(FileOperations, OldPlatformDeletesOneAtATimeAndGoesOnAfterAFailure) {
    m_shell.version = 3;
    m_shell.undeletable = {"/first"};
    EXPECT_EQ(k4cmnDeleteFile(Paths{"/first", "/second"}, 0), 0);
    EXPECT_THAT(m_shell.calls, ElementsAre("version", "delete /first", "delete /second"));
}

TEST_F(FileOperations, OldPlatformThatDeletesAllSucceeds) {
    m_shell.version = 3;
    EXPECT_EQ(k4cmnDeleteFile(Paths{"/first", "/second"}, 0), 1);
    EXPECT_EQ(k4cmnDeleteFile("/third", 0), 1);
    EXPECT_THAT(m_shell.operations, IsEmpty());
}

TEST_F(FileOperations, PlatformThatDoesNotTellItsVersionIsAnOldOne) {
    m_shell.tellsVersion = 0;
    EXPECT_EQ(k4cmnDeleteFile("/a", 0), 1);
    EXPECT_EQ(k4cmnCopyFile("/a", "/to"), 0);
    EXPECT_THAT(m_shell.calls, ElementsAre("version", "delete /a", "version"));
}

TEST_F(FileOperations, NewerPlatformsHaveFileOperations) {
    m_shell.version = 10;
    EXPECT_EQ(k4cmnDeleteFile("/a", 0), 1);
    EXPECT_EQ(m_shell.operations.size(), 1u);
}

TEST_F(FileOperations, CopyTakesFilesOnly) {
    EXPECT_EQ(k4cmnCopyFile(Paths{"/a", "/b"}, "/to"), 1);
    EXPECT_THAT(m_shell.calls, ElementsAre("version", "operation 2"));
    EXPECT_THAT(m_shell.operations,
                ElementsAre(RecordingShell::Operation{2, "/a\0/b\0\0"s, "/to", 0x80}));
}

TEST_F(FileOperations, CopyOfOnePathPacksItWithTwoZeros) {
    EXPECT_EQ(k4cmnCopyFile("/one", "/to"), 1);
    EXPECT_EQ(m_shell.operations.at(0).from, "/one\0\0"s);
}

TEST_F(FileOperations, OldPlatformCopiesNothing) {
    m_shell.version = 3;
    EXPECT_EQ(k4cmnCopyFile(Paths{"/a", "/b"}, "/to"), 0);
    EXPECT_EQ(k4cmnCopyFile("/a", "/to"), 0);
    EXPECT_THAT(m_shell.calls, ElementsAre("version", "version"));
}

TEST_F(FileOperations, PathThatWouldBecomeAnotherInTheBlockTouchesNothing) {
    const std::string twoInOne("/a\0/b", 5);
    EXPECT_EQ(k4cmnDeleteFile(twoInOne, 0), 0);
    EXPECT_EQ(k4cmnCopyFile(Paths{"/x", twoInOne}, "/to"), 0);
    EXPECT_THAT(m_shell.operations, IsEmpty());
}

TEST_F(FileOperations, EmptyPathWouldCutTheListAndTouchesNothing) {
    EXPECT_EQ(k4cmnDeleteFile(Paths{"/a", "", "/b"}, 0), 0);
    EXPECT_EQ(k4cmnDeleteFile("", 0), 0);
    EXPECT_EQ(k4cmnCopyFile("", "/to"), 0);
    EXPECT_THAT(m_shell.operations, IsEmpty());
}

TEST_F(FileOperations, OldPlatformDeletesTheOthersOfAListWithAnUnusablePath) {
    m_shell.version = 3;
    EXPECT_EQ(k4cmnDeleteFile(Paths{"/a", "", std::string("/b\0c", 4), "/d"}, 0), 0);
    EXPECT_THAT(m_shell.calls, ElementsAre("version", "delete /a", "delete /d"));
}

TEST_F(FileOperations, ManyLongPathsFit) {
    Paths paths;
    for (int i = 0; i < 10'000; ++i)
        paths.push_back("/" + std::string(400, 'x') + std::to_string(i));
    EXPECT_EQ(k4cmnDeleteFile(paths, 0), 1);
    EXPECT_EQ(k4cmn::UnpackPaths(m_shell.operations.at(0).from), paths);
}

TEST(FileOperationsAlone, ShellThatThrowsFailsTheCall) {
    k4test::ThrowingShell shell;
    const ScopedProvider<Shell> installed{shell};
    for (const std::uint32_t version : {3u, 4u}) {
        shell.version = version;
        EXPECT_EQ(k4cmnDeleteFile("/a", 0), 0) << version;
        EXPECT_EQ(k4cmnDeleteFile(Paths{"/a", "/b"}, 0), 0) << version;
        EXPECT_EQ(k4cmnCopyFile("/a", "/to"), 0) << version;
        EXPECT_EQ(k4cmnCopyFile(Paths{"/a", "/b"}, "/to"), 0) << version;
    }
}

TEST(FileOperationsAlone, WithoutAShellNothingIsDeletedOrCopied) {
    EXPECT_EQ(k4cmnDeleteFile("/a", 0), 0);
    EXPECT_EQ(k4cmnCopyFile("/a", "/to"), 0);
}
