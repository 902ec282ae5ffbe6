#include "k4cmndlg/signctl/SignFolderMaking.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "k4cmndlg/frame/LastError.h"
#include "tests/support/NoLibraryAccess.h"
#include "tests/support/ScriptedPrompt.h"
#include "tests/support/StoreFixture.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::MakeSignFolders;
using k4cmn::TickedServer;

const std::string kOrdinary = "16x80.Mono1.LED.Sign";
const std::string kTwin = "16x80.Mono1.LED.Palette.Sign";

class SignFolders : public k4test::StoreFixture {
 protected:
    void SetUp() override {
        StoreFixture::SetUp();
        MakeFolder("A:\\");
        MakeFolder("B:\\");
        form.Initialize(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 0);
    }
    /// The system's words for an error, as the message has them.
    static std::string Words(int error) {
        errno = error;
        return k4cmnGetLastErrorString();
    }

    k4cmn::SignFolderForm form;
    k4test::ScriptedPrompt prompt;
};

TEST_F(SignFolders, AreMadeWithTheirTwinAndLibrary) {
    EXPECT_TRUE(MakeSignFolders(form, {{"A:", true}, {"B:", false}}, prompt));
    EXPECT_TRUE(fs::is_directory(Native("A:\\" + kOrdinary + "\\Default.Lib")));
    EXPECT_TRUE(fs::is_directory(Native("A:\\" + kTwin + "\\Default.Lib")));
    EXPECT_TRUE(fs::is_empty(Native("B:")));
}

TEST_F(SignFolders, OfPalettesGetNoOrdinaryTwin) {
    form.TogglePalette();
    EXPECT_TRUE(MakeSignFolders(form, {{"A:", true}}, prompt));
    EXPECT_TRUE(Exists("A:\\" + kTwin + "\\Default.Lib"));
    EXPECT_FALSE(Exists("A:\\" + kOrdinary));
}

TEST_F(SignFolders, NeedATickedServer) {
    for (const std::vector<TickedServer>& servers :
         {std::vector<TickedServer>{}, {{"A:", false}}, {{"", true}}}) {
        prompt.Expect("No servers selected.");
        EXPECT_FALSE(MakeSignFolders(form, servers, prompt));
    }
    EXPECT_TRUE(fs::is_empty(Native("A:")));
}

TEST_F(SignFolders, ThatExistAreToldAndTheOthersAreMade) {
    MakeFolder("A:\\" + kOrdinary);
    prompt.Expect(" Error Creating Folder: A:\\" + kOrdinary + "\n " + Words(EEXIST));
    EXPECT_TRUE(MakeSignFolders(form, {{"A:", true}, {"B:", true}}, prompt));
    EXPECT_FALSE(Exists("A:\\" + kOrdinary + "\\Default.Lib")) << "its library isn't tried";
    EXPECT_TRUE(Exists("A:\\" + kTwin + "\\Default.Lib")) << "the twin is";
    EXPECT_TRUE(Exists("B:\\" + kOrdinary + "\\Default.Lib"));
}

TEST_F(SignFolders, WhoseTwinCantBeMadeSayNothing) {
    MakeFolder("A:\\" + kTwin);
    EXPECT_TRUE(MakeSignFolders(form, {{"A:", true}}, prompt));
    EXPECT_TRUE(Exists("A:\\" + kOrdinary + "\\Default.Lib"));
}

TEST_F(SignFolders, OnAServerThatIsntThereAreTold) {
    prompt.Expect(" Error Creating Folder: Q:\\" + kOrdinary + "\n " + Words(ENOENT));
    EXPECT_TRUE(MakeSignFolders(form, {{"Q:", true}}, prompt)) << "the dialog closes all the same";
}

TEST_F(SignFolders, WhoseLibraryCantBeMadeAreTold) {
    const k4test::NoLibraryAccess full(access);
    prompt.Expect(" Error Creating Library: A:\\" + kOrdinary + "\\Default.Lib\n " + Words(ENOSPC));
    EXPECT_TRUE(MakeSignFolders(form, {{"A:", true}}, prompt));
    EXPECT_THAT(full.marked, testing::ElementsAre("A:\\" + kOrdinary, "A:\\" + kTwin))
        << "each gets the read-only attribute";
}

TEST_F(SignFolders, AreOfferedOnEveryLocalServer) {
    ConfigureLocal({"A:", "\\\\H\\S"});
    const std::vector<TickedServer> servers = k4cmn::LocalServers();
    ASSERT_EQ(servers.size(), 2u);
    EXPECT_EQ(servers[1].server, "\\\\H\\S");
    EXPECT_FALSE(servers[1].isTicked);
}

TEST(SignFoldersWithoutASuite, SayWhyTheyCantBeMade) {
    k4test::ScriptedPrompt prompt;
    errno = ENODEV;
    prompt.Expect(" Error Creating Folder: A:\\.Sign\n " + k4cmnGetLastErrorString());
    EXPECT_TRUE(MakeSignFolders({}, {{"A:", true}}, prompt));
    EXPECT_TRUE(k4cmn::LocalServers().empty());
}

}  // namespace
