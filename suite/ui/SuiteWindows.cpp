#include "suite/ui/SuiteWindows.h"

#include "k4cmndlg/filelist/contracts/Printing.h"
#include "k4cmndlg/frame/contracts/HelpSystem.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "suite/calendar/CalendarControl.h"
#include "suite/quicktree/QuickFileTree.h"
#include "suite/ui/FileOperationDialogs.h"
#include "suite/ui/HelpViewer.h"
#include "suite/ui/MessageBoxPresenter.h"
#include "suite/ui/PrintDialogs.h"

namespace k4suite {

struct SuiteWindows::Parts {
    MessageBoxPresenter messages;
    HelpViewer help;
    PrintDialogs printing;
    FileOperationDialogs fileOperations;
    EmbeddedQuickFileTrees quickTrees;
    EmbeddedCalendars calendars;

    k4cmn::ScopedProvider<k4cmn::MessagePresenter> useMessages{messages};
    k4cmn::ScopedProvider<k4cmn::HelpSystem> useHelp{help};
    k4cmn::ScopedProvider<k4cmn::Printing> usePrinting{printing};
    k4cmn::ScopedProvider<k4cmn::QuickFileTrees> useQuickTrees{quickTrees};
    k4cmn::ScopedProvider<k4cmn::Calendars> useCalendars{calendars};
};

SuiteWindows::SuiteWindows() : m_parts(std::make_unique<Parts>()) {}

SuiteWindows::~SuiteWindows() = default;

FileOperationUi& SuiteWindows::FileOperations() {
    return m_parts->fileOperations;
}

}  // namespace k4suite
