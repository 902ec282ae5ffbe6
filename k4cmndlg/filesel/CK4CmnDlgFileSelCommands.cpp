#include <QPointer>
#include <array>
#include <memory>

#include "k4cmndlg/filelist/contracts/Printing.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileSel.h"
#include "k4cmndlg/filesel/FileListReport.h"
#include "k4cmndlg/filesel/FileSelParts.h"
#include "k4cmndlg/frame/LocalTime.h"
#include "k4cmndlg/frame/WaitCursor.h"
#include "k4cmndlg/signctl/CK4CmnDlgCreateSignFolders.h"
#include "ui_FileSelection.h"

using k4cmn::FileCommand;
using k4cmn::FileSelParts;

// What the entries of the context menu do. A message may end or delete the dialog: so each keeps
// its parts for as long as it works on them.

void CK4CmnDlgFileSel::Run(FileCommand command) {
    using Dialog = CK4CmnDlgFileSel;
    // In the order of the menu.
    static constexpr std::array<void (Dialog::*)(), k4cmn::kFileMenu.size()> kHandlers{
        &Dialog::OnFileselSeqPreview,
        &Dialog::OnPopupCut,
        &Dialog::OnPopupCopy,
        &Dialog::OnPopupPaste,
        &Dialog::OnPopupRename,
        &Dialog::OnPopupDelete,
        &Dialog::OnPopupCreateLibrary,
        &Dialog::OnPopupRemoveLibrary,
        &Dialog::OnPopupCreateSignFolder,
        &Dialog::OnPopupPrint,
        &Dialog::OnPopupPrintFileList,
        &Dialog::OnFileselRadioPreview,
    };
    (this->*kHandlers.at(static_cast<std::size_t>(command)))();
}

void CK4CmnDlgFileSel::OnFileselSeqPreview() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.Preview(parts->prompt);
}

void CK4CmnDlgFileSel::OnPopupCut() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.Cut();
}

void CK4CmnDlgFileSel::OnPopupCopy() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.Copy();
}

void CK4CmnDlgFileSel::OnPopupPaste() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.Paste(parts->prompt);
}

void CK4CmnDlgFileSel::OnPopupRename() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.StartRename();
}

void CK4CmnDlgFileSel::OnPopupDelete() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.Delete();
}

void CK4CmnDlgFileSel::OnPopupCreateLibrary() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.CreateLibrary(parts->prompt);
}

void CK4CmnDlgFileSel::OnPopupRemoveLibrary() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.RemoveLibrary(parts->prompt);
}

void CK4CmnDlgFileSel::OnPopupPrint() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    parts->selector.Print(parts->prompt);
}

void CK4CmnDlgFileSel::OnPopupCreateSignFolder() {
    // Not on the stack: a window that goes takes its dialogs along.
    const QPointer<CK4CmnDlgCreateSignFolders> dialog = new CK4CmnDlgCreateSignFolders(this);
    dialog->DoModal();
    delete dialog.data();
}

void CK4CmnDlgFileSel::OnPopupPrintFileList() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    const QPointer<CK4CmnDlgFileSel> self(this);
    const std::unique_ptr<k4cmn::PrintSurface> surface =
        k4cmn::Provided<k4cmn::Printing>::Current().Choose(this);
    if (!surface || !self)
        return;
    // A copy: a message lets other messages through, which may fill the list anew.
    const k4cmn::FileRows rows = parts->selector.Rows();
    k4cmn::FileListReport report(rows, parts->selector.Place(), parts->view.FileTypesText());
    const k4cmn::WaitCursor wait;
    report.Print(*surface, parts->ui->list->FirstLabelSize(), k4cmn::SecondsNow(), parts->prompt);
}
