#include "suite/ui/SuiteWindows.h"

#include "k4cmndlg/frame/contracts/HelpSystem.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "suite/ui/FileOperationDialogs.h"
#include "suite/ui/HelpViewer.h"
#include "suite/ui/MessageBoxPresenter.h"

namespace k4suite {

struct SuiteWindows::Parts {
    MessageBoxPresenter messages;
    HelpViewer help;
    FileOperationDialogs fileOperations;

    k4cmn::ScopedProvider<k4cmn::MessagePresenter> useMessages{messages};
    k4cmn::ScopedProvider<k4cmn::HelpSystem> useHelp{help};
};

SuiteWindows::SuiteWindows() : m_parts(std::make_unique<Parts>()) {}

SuiteWindows::~SuiteWindows() = default;

FileOperationUi& SuiteWindows::FileOperations() {
    return m_parts->fileOperations;
}

}  // namespace k4suite
