#include "apps/workbench/DialogMenu.h"

#include "k4cmndlg/signctl/CK4CmnDlgDimmingCtrl.h"
#include "k4cmndlg/signctl/CK4CmnDlgWindowControl.h"

namespace workbench {

namespace {

template <class Dialog>
int RunOnSign(const std::string& service, const std::string& sign, QWidget* parent) {
    return Dialog(service, sign, parent).DoModal();
}

}  // namespace

const std::vector<DialogEntry>& Dialogs() {
    static const std::vector<DialogEntry> dialogs{
        {"&Dimming…", "CK4CmnDlgDimmingCtrl", true, RunOnSign<CK4CmnDlgDimmingCtrl>},
        {"&Window Control…", "CK4CmnDlgWindowControl", true, RunOnSign<CK4CmnDlgWindowControl>},
    };
    return dialogs;
}

}  // namespace workbench
