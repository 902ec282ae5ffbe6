#pragma once

#include <memory>
#include <string>

#include "k4cmndlg/filesel/properties/CK4CmnPSProperties.h"
#include "k4cmndlg/k4cmndlg_export.h"

/// The sheet "Properties" that opens a sequence file by its path, and writes changes back. Modeless
/// it stays open beside a list of files and follows its selection.
///
/// The file is open for reading while it is shown, and for writing while it is saved.
///
/// Saving. Apply and OK save what has changed; moving to another file does so without asking.
/// Cancel asks first. A file that can't be written, and a preview-only sequence, are shown with
/// disabled fields and never saved. Where saving fails, its words are shown and nothing is given
/// up: the sheet stays open with the file and its changes, also for OK and where it should have
/// moved to another file, and they are saved by the next Apply or OK, or dropped by Cancel.
/// Keywords and notes of a file that are too long for the record are shown as none and stay in the
/// file until others are entered.
///
/// What the parent is told. After each save the window messages WM_GET_LIST_FILE and
/// WM_SHOW_FILES_LIST are posted to it, in this order. When the sheet's window is destroyed, modal
/// or not, WM_PROPERTIES_GONE is sent to it, with the sheet's address as the first parameter: it
/// forgets the sheet, or deletes it (QObject::deleteLater). A parent that is gone is told nothing.
///
/// Use: `sheet.ShowFileProperties(path)`; for a modal one, `sheet.DoModal()` then, if that gave 1.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFileProp final : public CK4CmnPSProperties {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFileProp)

 public:
    /// See CK4CmnPSProperties.
    CK4CmnDlgFileProp(std::uint32_t captionId, QWidget* parent, int firstPage = GENERAL_PAGE,
                      DIALOG_MODE mode = MODAL);
    CK4CmnDlgFileProp(const std::string& caption, QWidget* parent, int firstPage = GENERAL_PAGE,
                      DIALOG_MODE mode = MODAL);
    ~CK4CmnDlgFileProp() override;

    /// Shows another file, after changes of the one shown so far are saved. A modal sheet shows it
    /// when it runs; a modeless one at once, making its window where there is none.
    /// @param path a composed path of the store.
    /// @return 1. 0 where the former changes can't be saved, or the path is empty: the former file
    /// stays. 0 after the message "Error opening Sequence: %s\n": the sheet is closed.
    int ShowFileProperties(const std::string& path);

    void OnOK() override;
    void OnCancel() override;
    void OnApply() override;
    /// Saves what has changed and closes; a sheet whose changes can't be saved stays open.
    void CloseProperties(int formatKeyWords) override;
    void DestroyWindow() override;

 private:
    /// Whether there are changes of a file that are to be saved.
    bool MustSave() const;
    int OpenSeq(const std::string& path, K4OpenFlags flags);
    bool Open(const std::string& path, K4OpenFlags flags);
    void CloseSeq();
    int SaveFile();
    bool WriteRecord();
    void SaveFailed();
    void TellSaved();
    bool ReadPage();

    std::unique_ptr<CK4SequenceFile> m_sequence;
    int m_fileOpen = 0;
    bool m_unsaved = false;  ///< changes couldn't be saved, and are still to be
    bool m_telling = false;  ///< the parent is being told of the window's end
};
