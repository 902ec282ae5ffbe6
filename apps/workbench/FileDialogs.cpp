#include "apps/workbench/FileDialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

#include "apps/workbench/QuickTreeHost.h"
#include "apps/workbench/SignSequences.h"
#include "apps/workbench/TellChoice.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileListCtrl.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileSel.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/search/CK4CmnDlgFind.h"
#include "k4cmndlg/search/SearchPlace.h"
#include "k4cmndlg/search/SearchTypes.h"
#include "k4cmndlg/signctl/CK4CmnDlgCreateSignFolders.h"

namespace workbench {

using k4cmn::ToQt;

namespace {

template <tag_K4_FILE_MODE mode>
int RunFileSelection(const std::string&, const std::string&, QWidget* parent) {
    CK4CmnDlgFileSel dialog(mode, nullptr, parent);
    dialog.SetMode(mode);
    const std::string result = dialog.DoFileSelection();
    TellChoice(parent, result);
    return result.empty() ? IDCANCEL : IDOK;
}

/// Looks in all servers at first.
int RunFind(const std::string&, const std::string&, QWidget* parent) {
    CK4CmnDlgFind dialog("Find Files", parent);
    dialog.SetSearchPath(k4cmn::SearchPathText({k4cmn::kFileServers, {}, {}}));
    dialog.SetServer(k4cmn::kFileServers);
    dialog.SetSignType({});
    dialog.SetLibrary({});
    const int result = dialog.DoModal();
    const bool isChosen = result == IDOK && !dialog.GetFileSel().empty();
    TellChoice(parent, isChosen ? dialog.GetSearchPath() + dialog.GetFileSel() + "." +
                                      std::string(k4cmn::SearchExtension(dialog.GetFileType()))
                                : std::string());
    return result;
}

int RunSignFolders(const std::string&, const std::string&, QWidget* parent) {
    return CK4CmnDlgCreateSignFolders(parent).DoModal();
}

/// The quick tree stays open beside the window, which owns it.
int ShowQuickTree(const std::string&, const std::string&, QWidget* parent) {
    auto* host = parent->findChild<QuickTreeHost*>();
    if (!host) {
        host = new QuickTreeHost(parent);
        QObject::connect(host, &QuickTreeHost::Chosen, parent,
                         [parent](const std::string& path) { TellChoice(parent, path); });
    }
    host->Open();
    return IDOK;
}

/// The library that holds the chosen sign's sequence, in the list for applications.
int ShowFileList(const std::string& service, const std::string& sign, QWidget* parent) {
    const std::string path = SequenceOfSign(service, sign);
    const std::string folder = path.substr(0, path.find_last_of('\\'));
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("fileList"));
    dialog.setWindowTitle(ToQt("Files of " + folder));
    dialog.resize(640, 360);
    auto* list = new CK4CmnDlgFileListCtrl(0, &dialog);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    layout->activate();  // the columns take their widths from the list's
    list->InitializeListCtrl();
    list->Refresh(folder.c_str(), "*");
    return dialog.exec();
}

}  // namespace

const std::vector<DialogEntry>& FileDialogs() {
    static const std::vector<DialogEntry> dialogs{
        {"&Open File…", "OpenFile", false, RunFileSelection<K4_FILE_OPEN>},
        {"&New File…", "NewFile", false, RunFileSelection<K4_FILE_NEW>},
        {"&Save As…", "SaveAs", false, RunFileSelection<K4_FILE_SAVE_AS>},
        {"File &Manager…", "FileManager", false, RunFileSelection<K4_FILE_MANAGER>},
        {"&Pick a Folder…", "PickFolder", false, RunFileSelection<K4_FILE_PICK>},
        {"&Quick File Tree", "QuickFileTree", false, ShowQuickTree},
        {"&File List…", "FileList", true, ShowFileList},
        {"&Create Sign Folders…", "CreateSignFolders", false, RunSignFolders},
        {"Fin&d Files…", "FindFiles", false, RunFind},
    };
    return dialogs;
}

}  // namespace workbench
