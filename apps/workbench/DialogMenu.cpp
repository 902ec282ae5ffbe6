#include "apps/workbench/DialogMenu.h"

#include <QWidget>

#include "apps/workbench/PreviewProcess.h"
#include "apps/workbench/SignSequences.h"
#include "apps/workbench/TellChoice.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileSelPrev.h"
#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/LocalTime.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "k4cmndlg/signctl/CK4CmnDlgDimmingCtrl.h"
#include "k4cmndlg/signctl/CK4CmnDlgWindowControl.h"
#include "k4cmndlg/smalldlg/CK4CmnDlgDate.h"
#include "k4cmndlg/smalldlg/CK4CmnDlgFontSel.h"
#include "k4cmndlg/smalldlg/CK4CmnDlgQuickMsg.h"

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

int RunQuickMessage(const std::string&, const std::string&, QWidget* parent) {
    return CK4CmnDlgQuickMsg(parent).DoModal();
}

int RunFont(const std::string&, const std::string&, QWidget* parent) {
    LOGFONT font;
    CK4CmnDlgFontSel dialog(&font, CF_SCREENFONTS | CF_EFFECTS, nullptr, parent);
    const int result = dialog.DoModal();
    TellChoice(parent, result == IDOK
                           ? k4cmn::Format("%s, height %d, weight %d", font.lfFaceName.c_str(),
                                           font.lfHeight, font.lfWeight)
                           : std::string());
    return result;
}

/// Begins with today, at the window's top left corner.
int RunDate(const std::string&, const std::string&, QWidget* parent) {
    const std::tm today = k4cmn::LocalTime(k4cmn::SecondsNow());
    const QPoint place = parent->mapToGlobal(QPoint());
    CK4CmnDlgDate dialog(parent);
    dialog.SetStartLocation(place.x(), place.y());
    dialog.SetStartDate(today.tm_mday, today.tm_mon + 1, today.tm_year + 1900);
    const int result = dialog.DoModal();
    if (result == -1)
        CK4CmnDlgDate::ShowFailure(parent);
    TellChoice(parent, result == IDOK ? k4cmn::Format("%04d-%02d-%02d", dialog.GetYear(),
                                                      dialog.GetMonth(), dialog.GetDay())
                                      : std::string());
    return result;
}

}  // namespace

const std::vector<DialogEntry>& Dialogs() {
    static const std::vector<DialogEntry> dialogs{
        {"&Dimming…", "CK4CmnDlgDimmingCtrl", true, RunOnSign<CK4CmnDlgDimmingCtrl>},
        {"&Window Control…", "CK4CmnDlgWindowControl", true, RunOnSign<CK4CmnDlgWindowControl>},
        {"&Properties…", "CK4CmnDlgFileProp", true, RunProperties},
        {"Pre&view…", "CK4CmnDlgFileSelPrev", true, ShowPreviewPane},
        {"Preview &Application", "K4Prevu", true, StartPreview},
        {"&Quick Message…", "CK4CmnDlgQuickMsg", true, RunQuickMessage},
        {"&Font…", "CK4CmnDlgFontSel", false, RunFont},
        {"Da&te…", "CK4CmnDlgDate", false, RunDate},
    };
    return dialogs;
}

}  // namespace workbench
