#include "suite/ui/SuiteWindows.h"

#include <gtest/gtest.h>

#include <QTreeView>

#include "k4cmndlg/filelist/contracts/Printing.h"
#include "k4cmndlg/filesel/contracts/K4QuickFileTreeCtrl.h"
#include "k4cmndlg/frame/contracts/HelpSystem.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "k4cmndlg/smalldlg/contracts/K4CalendarCtrl.h"
#include "suite/platform/FileOperationUi.h"

namespace {

TEST(SuiteWindows, StandBehindTheContractsWhileTheyLive) {
    const k4cmn::HelpSystem* const before = &k4cmn::Provided<k4cmn::HelpSystem>::Current();
    {
        k4suite::SuiteWindows windows;
        EXPECT_EQ(k4cmn::Provided<k4cmn::HelpSystem>::Current().HelpFilePath(),
                  ":/k4help/index.txt");
        windows.FileOperations().End();
        QWidget window;
        const auto* tree = k4cmn::Provided<k4cmn::QuickFileTrees>::Current().Create(&window);
        EXPECT_NE(tree->findChild<QTreeView*>(), nullptr) << "one that shows something";
        EXPECT_NE(k4cmn::Provided<k4cmn::Calendars>::Current().Create(&window), nullptr);
        k4cmn::MessagePresenter* const presenter =
            k4cmn::Provided<k4cmn::MessagePresenter>::Install(nullptr);
        EXPECT_NE(presenter, nullptr);
        k4cmn::Printing* const printing = k4cmn::Provided<k4cmn::Printing>::Install(nullptr);
        EXPECT_NE(printing, nullptr);
        k4cmn::Provided<k4cmn::Printing>::Install(printing);
        k4cmn::Provided<k4cmn::MessagePresenter>::Install(presenter);
    }
    EXPECT_EQ(&k4cmn::Provided<k4cmn::HelpSystem>::Current(), before);
    EXPECT_EQ(k4cmn::Provided<k4cmn::Printing>::Install(nullptr), nullptr);
    EXPECT_EQ(k4cmn::Provided<k4cmn::Calendars>::Install(nullptr), nullptr);
}

}  // namespace
