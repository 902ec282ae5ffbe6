#pragma once

#include <QPointer>
#include <cstdint>
#include <string>

#include "k4cmndlg/filesel/properties/CK4CmnPPAdvanced.h"
#include "k4cmndlg/filesel/properties/CK4CmnPPFileInfo.h"
#include "k4cmndlg/filesel/properties/CK4CmnPPThumbnail.h"
#include "k4cmndlg/filesel/properties/CK4CmnSeqFileProperties.h"
#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "k4cmndlg/frame/CPropertySheet.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QPushButton;

/// The sheet "Properties" of a sequence file, in three pages: what a person can only read
/// ("General"), the frame that stands for the sequence ("Thumbnail"), and keywords, notes and
/// compression ("Advanced"). It works on a record and an open file that the caller gives it, and
/// writes nothing: the caller reads the record when the sheet has ended. CK4CmnDlgFileProp is the
/// sheet that opens and saves files by itself.
///
/// The pages change the current record. The page in front is read when it is left and, before
/// anything is decided by what has changed, by OnOK, OnCancel and OnApply; other callers of
/// CloseProperties() and GetModifiedFlag() call ReadActivePage() first. What counts as a change is
/// each page's own rule. Letters that only change their case don't, and the page "Thumbnail" clears
/// the whole sheet's mark when its frame is the one that it began with.
///
/// Escape and the window's close button are Cancel, which asks whether changes are kept. No puts
/// the record back as it was when it was shown.
///
/// Places of the sheet's own buttons, in pixels: their right edges lie 7 ("Apply"), 74 ("Cancel")
/// and 141 ("OK") from the right edge of the client area, their top edges 23 above its lower edge;
/// each is 60 wide and 20 high. A modeless sheet has 27 more in height for them, a modal one the
/// row of the standard buttons. Where the font needs larger buttons they are larger by that, and
/// the gaps stay.
///
/// Use: `sheet.ShowFileProperties(&file, &record); sheet.DoModal();` or, modeless, the first of
/// these, which shows the window.
/// Ownership: the caller's. File and parent are not owned; the file stays open while it is shown.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnPSProperties : public CPropertySheet {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnPSProperties)

 public:
    enum DIALOG_MODE : int { MODAL = 0, MODELESS = 1 };

    /// Indices of the pages.
    enum : int { GENERAL_PAGE = 0, THUMBNAIL_PAGE = 1, ADVANCED_PAGE = 2 };

    /// @param captionId resource number of the title until a file is shown.
    /// @param parent the window that is told of changes; it may be null, and may go before.
    /// @param firstPage index of the page that is in front at first.
    CK4CmnPSProperties(std::uint32_t captionId, QWidget* parent, int firstPage = GENERAL_PAGE,
                       DIALOG_MODE mode = MODAL);
    /// @param caption the title until a file is shown.
    CK4CmnPSProperties(const std::string& caption, QWidget* parent, int firstPage = GENERAL_PAGE,
                       DIALOG_MODE mode = MODAL);
    ~CK4CmnPSProperties() override;

    /// Shows a record of an open file; the path comes from the record. A modal sheet shows it when
    /// it runs; a modeless one at once, making its window where there is none. Changes of the
    /// record shown before that weren't fetched are dropped.
    /// @param file must stay open while it is shown. @param record copied.
    /// @return 1; 0 with nothing changed if one of them is null, or if there is no window to be
    /// had.
    int ShowFileProperties(CK4SequenceFile* file, CK4CmnSeqFileProperties* record);

    /// Sets the title: "Properties for %s", with name and extension of a path. An empty path leaves
    /// it as it is.
    void SetTitle(const std::string& path);

    /// The current record, which the pages change: the sheet's own.
    CK4CmnSeqFileProperties* GetFileProperties() { return &m_current; }
    /// The file that is shown; null if there is none.
    CK4SequenceFile* GetFilePtr() const { return m_file; }
    const std::string& GetCurFilePath() const { return m_path; }
    /// How long the file plays, with what it includes, in milliseconds; 0 without a file.
    std::uint64_t GetDuration() const;

    /// Wishes the fields disabled (1), or only where the file asks for it (0). The pages follow
    /// when they are filled next.
    void SetReadOnly(int readOnly);
    /// 1 if the fields are disabled: by SetReadOnly(), for a file that can't be written, or for a
    /// preview-only sequence.
    int IsReadOnly() const { return m_readOnly; }
    /// Whether the record differs from the file, as far as the pages have been read.
    void SetModifiedFlag(int modified) { m_modified = modified; }
    int GetModifiedFlag() const { return m_modified; }

    /// Does nothing; it stays for the applications that call it.
    void FormatKeyWords(const std::string& from, std::string* to);

    /// Fills a record from the file that is shown.
    /// @param path goes into the record.
    /// @return 1, or 0 with nothing changed if there is no file, or none open.
    int GetSeqFileInfo(CK4CmnSeqFileProperties* record, const std::string& path) const;

    /// Closes the sheet and, with an argument that isn't 0, then normalises the record's keywords.
    /// A modal one ends with IDOK for that, and with IDCANCEL for 0 or where changes were dropped.
    virtual void CloseProperties(int formatKeyWords);
    /// Reads the page in front and closes by CloseProperties(1).
    void OnOK() override;
    /// Asks about changes; closes by CloseProperties(1) in any case.
    void OnCancel() override;
    /// Reads the page in front, normalises the record's keywords and shows them.
    void OnApply() override;

 protected:
    int OnInitDialog() override;
    void resizeEvent(QResizeEvent* event) override;

    /// The window that is told of changes; null if there is none any more.
    QWidget* GetParentWindow() const { return m_parent; }
    /// @param byPath the file was opened by its path, and not given by a caller.
    void SetFile(CK4SequenceFile* file, bool byPath);
    void SetCurFilePath(const std::string& path) { m_path = path; }
    /// @param writable 0 if the file can't be opened for writing.
    void SetWritable(int writable) { m_writable = writable; }
    /// Has a modeless sheet show the current record, making its window where there is none.
    /// @return 1, or 0 if there is no window to be had.
    int ShowModeless();
    /// Normalises the record's keywords, and shows them if their page is in front.
    void NormaliseKeyWords();
    /// Whether there are changes that may be saved.
    bool HasChanges() const { return m_modified != 0 && m_readOnly == 0; }
    /// Asks whether changes are kept.
    bool AskToKeepChanges();

 private:
    void CreateUserButtons();
    void PlaceUserButtons();
    void UpdateAllPages();
    void TakeReadOnly();

    CK4CmnPPFileInfo m_fileInfo;
    CK4CmnPPAdvanced m_advanced;
    CK4CmnPPThumbnail m_thumbnail;
    CK4SequenceFile* m_file = nullptr;
    std::string m_path;
    CK4CmnSeqFileProperties m_current;
    CK4CmnSeqFileProperties m_saved;  ///< the record as it was when it was shown
    int m_writable = 1;
    QPointer<QWidget> m_parent;
    int m_modified = 0;
    DIALOG_MODE m_mode;
    int m_readOnly = 0;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_apply = nullptr;
    int m_readOnlyWish = 0;  ///< of SetReadOnly
    bool m_byPath = false;   ///< see SetFile
    bool m_dropped = false;  ///< Cancel is closing the sheet
};
