#include "apps/workbench/PreviewProcess.h"

#include <gtest/gtest.h>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/settings/IniRegistry.h"
#include "suite/settings/PreviewRequest.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/RecordingPrograms.h"
#include "tests/support/TempFolder.h"

namespace {

class PreviewApplication : public testing::Test {
 protected:
    /// The path that it is started by.
    std::string Program() {
        std::string folder;
        EXPECT_EQ(registry.GetExePath(folder), 1);
        return folder + "\\K4Prevu.exe";
    }

    k4test::TempFolder home;
    k4suite::IniRegistry registry{k4suite::DataHome(home.Path())};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> useRegistry{registry};
    k4test::RecordingPrograms programs;
    k4test::MessageQueue messages;
};

TEST_F(PreviewApplication, IsAskedAndStarted) {
    EXPECT_EQ(workbench::ShowInPreviewApplication("A:\\x.SQ4", nullptr), 1);
    EXPECT_EQ(programs.started, std::vector<std::string>{Program()});
    EXPECT_EQ(programs.showStates, std::vector<int>{k4cmn::SW_RESTORE});
    k4suite::PreviewRequest request;
    ASSERT_EQ(registry.ReadPreviewRequest(request), 1);
    EXPECT_EQ(request.sequence, "A:\\x.SQ4");
    EXPECT_TRUE(request.StartsPlaying());
}

TEST_F(PreviewApplication, ThatCantBeStartedIsToldOf) {
    programs.canStart = false;
    messages.Expect("ERROR: Could not start " + Program());
    EXPECT_EQ(workbench::ShowInPreviewApplication("A:\\x.SQ4", nullptr), 0);
}

}  // namespace
