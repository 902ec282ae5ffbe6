#include <gtest/gtest.h>

#include "k4cmndlg/frame/LibraryStrings.h"
#include "tests/frame/FrameProbe.h"
#include "tests/support/ModalDriver.h"

using k4cmn::LoadString;
using k4test::FrameProbe;
using k4test::RunModal;

namespace {

constexpr k4cmn::StringRow kApplication[] = {{102, "the application's 102"}};
constexpr k4cmn::StringRow kCaller[] = {{102, "the caller's 102"}};

class LibraryResources : public testing::Test {
 protected:
    LibraryResources() { k4cmn::SetApplicationStrings(kApplication); }
    ~LibraryResources() override { k4cmn::SetApplicationStrings({}); }
};

}  // namespace

TEST_F(LibraryResources, LibraryThatIsLoadedMakesItsTextsKnown) {
    EXPECT_EQ(LoadString(103).substr(0, 4), "Name");
    EXPECT_EQ(LoadString(0xF110), "Enter an integer.");
}

TEST_F(LibraryResources, ApplicationsTextsComeFirst) {
    EXPECT_EQ(LoadString(102), "the application's 102");
}

TEST_F(LibraryResources, LibrarysDialogRunsWithItsOwnTextsAndGivesTheApplicationsBack) {
    FrameProbe<CK4CmnDlgBase> dialog;
    std::string during;
    RunModal(dialog, [&] {
        during = LoadString(102);
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(during.substr(0, 4), "Name");
    EXPECT_EQ(LoadString(102), "the application's 102");
}

TEST_F(LibraryResources, LibrarysDialogGivesBackWhatItsCallerHadInForce) {
    const k4cmn::ResourceScope caller(kCaller);
    FrameProbe<CK4CmnDlgBase> dialog;
    std::string during;
    RunModal(dialog, [&] {
        during = LoadString(102);
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(during.substr(0, 4), "Name");
    EXPECT_EQ(LoadString(102), "the caller's 102");
}

TEST_F(LibraryResources, LibrarysDialogThatCannotBeCreatedGivesTheTextsBackToo) {
    class Refusing : public FrameProbe<CK4CmnDlgBase> {
     public:
        std::string during;

     protected:
        int OnCreate() override {
            during = LoadString(102);
            return -1;
        }
    };
    Refusing dialog;
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.during.substr(0, 4), "Name");
    EXPECT_EQ(LoadString(102), "the application's 102");
}

TEST_F(LibraryResources, ApplicationsOwnDialogRunsWithTheApplicationsTexts) {
    FrameProbe<CK4CmnDialog> dialog;
    std::string during;
    RunModal(dialog, [&] {
        during = LoadString(102);
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(during, "the application's 102");
}
