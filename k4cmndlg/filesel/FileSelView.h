#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/FileSelectorView.h"
#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/WaitCursor.h"

class CDataExchange;

namespace Ui {
class FileSelectionDialog;
}

namespace k4cmn {

/// The controls of the file selection dialog as its logic sees them. It may outlive the window,
/// which a message may end: from WindowGone() on it shows nothing and reads nothing.
///
/// Two things come a moment later than they are asked for, from the event loop, since what asks for
/// them may be the middle of a click: the words about a field that fails its check, once however
/// often it was read; and fileTaken().
/// Threads: the user interface thread.
class FileSelView final : public FileSelectorView {
 public:
    /// Neither is owned. The controls stand already.
    FileSelView(CDialog& dialog, Ui::FileSelectionDialog& ui);
    ~FileSelView() override;

    std::function<void()> fileTaken;  ///< the file of the selected row is another one

    void WindowGone() { m_ui = nullptr; }
    /// Moves the fields; for the dialog's DoDataExchange().
    void Exchange(CDataExchange* pDX);
    /// Puts the controls in the state of the layout.
    void ShowTemplate();
    /// Whether a row's label is being edited.
    bool IsEditing() const;

    bool ReadControls(FileSelectorFields& fields) override;
    std::string FileNameText() override;
    std::string FileTypesText() override;
    std::vector<std::size_t> SelectedRows() override;
    void RowsChanged(bool withColumns) override;
    void SelectRow(std::size_t row) override;
    void EditRow(std::size_t row) override;
    void ShowFields(const FileSelectorFields& fields) override;
    void ShowFileName(const std::string& name) override;
    void ShowFileTypes(const std::vector<std::string>& names) override;
    void ShowPath(const std::string& path) override;
    void ShowTitle(const std::string& title) override;
    void ShowFilter(bool isOn) override;
    void FileTaken() override;
    void Wait(bool wait) override;
    bool AskLibraryName(const std::string& signFolder, std::string& name) override;

    void AboutToChange(const FileTreeItem& parent) override;
    void Changed(const FileTreeItem& parent) override;
    void SelectionChanged() override;
    void MarkChanged() override;
    const FileTreeItem* FirstVisible() const override;

 private:
    bool IsFileNameTooLong() const;
    void PostRefusal();
    void LimitFileName();

    QPointer<CDialog> m_dialog;
    Ui::FileSelectionDialog* m_ui;
    FileSelectorFields m_fields;
    std::vector<std::unique_ptr<WaitCursor>> m_waits;
    bool m_isRefusalPosted = false;
    bool m_isTakenPosted = false;
};

}  // namespace k4cmn
