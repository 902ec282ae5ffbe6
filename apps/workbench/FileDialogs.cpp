#include "apps/workbench/FileDialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QMainWindow>
#include <QStatusBar>
#include <QVBoxLayout>

#include "apps/workbench/QuickTreeHost.h"
#include "apps/workbench/SignSequences.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileListCtrl.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileSel.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/signctl/CK4CmnDlgCreateSignFolders.h"

namespace workbench {

using k4cmn::ToQt;

namespace {

void Tell(QWidget* parent, const std::string& result) {
    if (auto* window = qobject_cast<QMainWindow*>(parent))
        window->statusBar()->showMessage(result.empty()
                                             ? QStringLiteral("Nothing was chosen")
                                             : QStringLiteral("Chosen: %1").arg(ToQt(result)));
}

template <tag_K4_FILE_MODE mode>
int RunFileSelection(const std::string&, const std::string&, QWidget* parent) {
    CK4CmnDlgFileSel dialog(mode, nullptr, parent);
    dialog.SetMode(mode);
    const std::string result = dialog.DoFileSelection();
    Tell(parent, result);
    return result.empty() ? IDCANCEL : IDOK;
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
                         [parent](const std::string& path) { Tell(parent, path); });
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
    };
    return dialogs;
}

}  // namespace workbench
