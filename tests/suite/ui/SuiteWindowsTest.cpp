#include "suite/ui/SuiteWindows.h"

#include <gtest/gtest.h>

#include "k4cmndlg/frame/contracts/HelpSystem.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "suite/platform/FileOperationUi.h"

namespace {

TEST(SuiteWindows, StandBehindTheContractsWhileTheyLive) {
    const k4cmn::HelpSystem* const before = &k4cmn::Provided<k4cmn::HelpSystem>::Current();
    {
        k4suite::SuiteWindows windows;
        EXPECT_EQ(k4cmn::Provided<k4cmn::HelpSystem>::Current().HelpFilePath(),
                  ":/k4help/index.txt");
        windows.FileOperations().End();
        k4cmn::MessagePresenter* const presenter =
            k4cmn::Provided<k4cmn::MessagePresenter>::Install(nullptr);
        EXPECT_NE(presenter, nullptr);
        k4cmn::Provided<k4cmn::MessagePresenter>::Install(presenter);
    }
    EXPECT_EQ(&k4cmn::Provided<k4cmn::HelpSystem>::Current(), before);
}

}  // namespace
