#include "apps/workbench/DialogMenu.h"

#include <QWidget>

#include "apps/workbench/PreviewProcess.h"
#include "apps/workbench/SignSequences.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileSelPrev.h"
#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "k4cmndlg/signctl/CK4CmnDlgDimmingCtrl.h"
#include "k4cmndlg/signctl/CK4CmnDlgWindowControl.h"

namespace workbench {

namespace {

template <class Dialog>
int RunOnSign(const std::string& service, const std::string& sign, QWidget* parent) {
    return Dialog(service, sign, parent).DoModal();
}

/// Looks up the sequence that belongs to a sign, and tells a person where there is none.
std::string FindSequence(const std::string& service, const std::string& sign, QWidget* parent) {
    std::string path = SequenceOfSign(service, sign);
    if (path.empty())
        k4cmn::WindowPrompt(parent).Ask(
            k4cmn::PlainMessage("There is no sequence for the sign \"" + sign + "\"."));
    return path;
}

int RunProperties(const std::string& service, const std::string& sign, QWidget* parent) {
    const std::string path = FindSequence(service, sign, parent);
    CK4CmnDlgFileProp sheet("Properties", parent);
    return !path.empty() && sheet.ShowFileProperties(path) ? sheet.DoModal() : 0;
}

/// The pane stays open beside the window, which owns it.
int ShowPreviewPane(const std::string& service, const std::string& sign, QWidget* parent) {
    const std::string path = FindSequence(service, sign, parent);
    if (path.empty())
        return 0;
    auto* pane = parent->findChild<CK4CmnDlgFileSelPrev*>();
    if (!pane)
        pane = new CK4CmnDlgFileSelPrev(parent);
    pane->Create(CK4CmnDlgFileSelPrev::kTemplate, nullptr);
    pane->show();
    pane->UpdateSelection(path);
    pane->raise();
    pane->activateWindow();
    return 1;
}

int StartPreview(const std::string& service, const std::string& sign, QWidget* parent) {
    const std::string path = FindSequence(service, sign, parent);
    return path.empty() ? 0 : ShowInPreviewApplication(path, parent);
}

}  // namespace

const std::vector<DialogEntry>& Dialogs() {
    static const std::vector<DialogEntry> dialogs{
        {"&Dimming…", "CK4CmnDlgDimmingCtrl", true, RunOnSign<CK4CmnDlgDimmingCtrl>},
        {"&Window Control…", "CK4CmnDlgWindowControl", true, RunOnSign<CK4CmnDlgWindowControl>},
        {"&Properties…", "CK4CmnDlgFileProp", true, RunProperties},
        {"Pre&view…", "CK4CmnDlgFileSelPrev", true, ShowPreviewPane},
        {"Preview &Application", "K4Prevu", true, StartPreview},
    };
    return dialogs;
}

}  // namespace workbench
