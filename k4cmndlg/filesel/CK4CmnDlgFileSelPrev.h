#pragma once

#include <QImage>
#include <QList>
#include <QPointer>
#include <QRgb>
#include <cstdint>
#include <memory>
#include <string>

#include "k4cmndlg/filesel/PreviewEdits.h"
#include "k4cmndlg/filesel/PreviewFacts.h"
#include "k4cmndlg/filesel/properties/FramePicture.h"
#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {
class FileListOwner;
}

namespace Ui {
class FilePropertiesDialog;
}

/// The window "File Properties", the preview pane: one sequence file's facts, its keywords and
/// notes, its compression level, and a thumbnail of one frame, with the choice of which frame
/// serves as the file's thumbnail.
///
/// It shows either a file that it opens by its path (own file), or a sequence that the caller has
/// attached. There is no Cancel: what was changed is saved when another sequence is shown, with OK,
/// and when the window is closed. Where that fails the words are shown, and the window goes on all
/// the same: after closing, what was typed is still in the fields, and saving it is tried once more
/// when the window shows another sequence.
/// Of a file that can't be written the fields are read-only; one that can't be opened is told of
/// with a message and leaves them empty. Without a file nothing can be changed.
///
/// Use:
///
///     CK4CmnDlgFileSelPrev pane(mainWindow);
///     pane.Create(CK4CmnDlgFileSelPrev::kTemplate, nullptr);    // or a window to stand in
///     pane.show();
///     pane.UpdateSelection("A:\\7x16.Mono1.LED.Sign\\Default.Lib\\Welcome.SQ4");
///
/// Ownership: the caller's; a window that it stands in, or in front of, deletes it with itself, if
/// it still stands then. The attached sequence and the dialog with the list are not owned.
/// The window goes, or is ended, before the sequence library does. Destroying the object loses what
/// isn't saved yet; UpdateSelection("") saves it.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFileSelPrev : public CK4CmnDlgBase {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFileSelPrev)

 public:
    /// The number of the window's layout.
    static constexpr std::uint32_t kTemplate = 181;

    /// The ids of the controls, beside IDOK. A caption has the id before that of what it names.
    enum Control : int {
        kFileNameCaption = 1203,
        kFileName = 1204,
        kPreviewOnly = 1205,  ///< "Preview Only Sequence"
        kFrameSizeCaption = 1206,
        kFrameSize = 1207,
        kPixelTechCaption = 1208,
        kPixelTech = 1209,
        kColorTechCaption = 1210,
        kColorTech = 1211,
        kDurationCaption = 1212,
        kDuration = 1213,
        kFramesCaption = 1214,
        kFrames = 1215,
        kCompressionCaption = 1216,
        kCompression = 1217,
        kKeywordsCaption = 1218,
        kKeywords = 1219,
        kNotesCaption = 1220,
        kNotes = 1221,
        kThumbnailCaption = 1222,
        kThumbnail = 1223,
        kThumbnailFrameCaption = 1224,
        kThumbnailFrame = 1225,
        kThumbnailFrameSpin = 1226,
        kFrameCountCaption = 1227,  ///< "of"
        kFrameCount = 1228,
    };

    /// Makes the object without its window; no file is open.
    /// @param parent the window that a modeless one stays in front of; may be null.
    explicit CK4CmnDlgFileSelPrev(QWidget* parent = nullptr);
    ~CK4CmnDlgFileSelPrev() override;

    /// Creates the window, not shown yet.
    /// @param templateId kTemplate. @param parent the window that it stands in, as a child; null
    /// makes it a modeless window.
    /// @return 1, or 0 if it stands already, or there is no such layout.
    int Create(std::uint32_t templateId, QWidget* parent);

    /// Names the dialog with the list of files that the window belongs to; null: none. It must
    /// outlive its being named.
    void SetFileListOwner(k4cmn::FileListOwner* owner) { m_owner = owner; }

    /// Attaches a sequence, which the next UpdateSelection() shows. What was changed of the one
    /// that was attached, and shown, is saved first.
    /// @param file open; stays the caller's, and must outlive its being attached. Null detaches.
    /// @param path its path, for its name, and to find what it includes; may be empty.
    void AttachSequence(CK4SequenceFile* file, const std::string& path = {});

    /// Shows a file. What was changed of the one that was shown is saved first.
    /// @param path a composed path of the store; an empty one clears the window.
    void UpdateSelection(const std::string& path);
    /// Shows the sequence that is attached; what was changed is saved first. It isn't tried whether
    /// it can be written, and where the thumbnail can't be chosen, since a preview-only sequence
    /// was shown before, that stays so.
    void UpdateSelection();

 protected:
    /// Fills the texts of the facts from the sequence that is shown.
    void LoadSequenceInfo();
    /// The duration of a sequence with those that it includes, in milliseconds; see
    /// SequenceDuration.
    std::uint64_t CalcDuration(const std::string& path, int depth);
    /// Makes a frame of the sequence, from 1, the image that is drawn. Without such a frame the
    /// image stays.
    void Frame2DIB(int frame);
    /// Makes the palette of an image of 8 bits a pixel or fewer, once for each sequence.
    void BuildColorTable();
    /// Opens a file for reading; with an empty path, takes the sequence that is attached.
    /// @return 1, or 0 after a message.
    int OpenFile(const std::string& path);
    /// Saves keywords, notes, thumbnail frame and compression level; see PreviewEdits::SaveTo().
    /// @param final not 0 if the window is closing: the list then keeps its selection.
    /// @return 1, or 0 after a message; the changes then still count as such.
    int SaveKeyWords(int final);
    /// Draws the picture box anew.
    void UpdateThumbPicture();
    /// The window is being closed: saves, tells the dialog with the list, and ends the window.
    void OnClose();

    int OnCreate() override;
    int OnInitDialog() override;
    void OnDestroy() override;
    void OnOK() override;
    void OnCancel() override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void SetUpControls();
    void AlignTexts();
    void BeginSelection(const std::string& path);
    void TakeSequence();
    void EndSelection();
    void SavePending();
    int Open(const std::string& path, K4OpenFlags flags);
    bool CanWrite() const;
    void SetWritable(bool writable);
    void ShowPreviewOnly(bool previewOnly);
    void ShowFacts();
    void ShowEdits();
    k4cmn::PreviewEdits ReadEdits() const;
    void OnChanged();
    void OnThumbnailFrame();
    void OnCompression();
    void TakeThumbnailSize();
    void Leave(int result);
    CK4SequenceFile* Sequence() const { return m_ownFile ? m_sequence.get() : m_attached; }

    std::unique_ptr<Ui::FilePropertiesDialog> m_ui;
    QString m_title;  ///< of the window without a file
    QPointer<QWidget> m_parentWindow;
    std::string m_path;
    std::unique_ptr<CK4SequenceFile> m_sequence;  ///< the own file
    CK4SequenceFile* m_attached = nullptr;
    std::string m_attachedPath;
    k4cmn::PreviewFacts m_facts;
    k4cmn::PreviewEdits m_edits;
    int m_rows = 0;
    int m_columns = 0;
    int m_frameCount = 0;
    k4cmn::FramePicture m_picture;  ///< its head and words; the pixels are in the image
    QList<QRgb> m_palette;
    QImage m_image;
    k4cmn::FileListOwner* m_owner = nullptr;
    int m_compressionChanged = 0;
    int m_changed = 0;   ///< keywords, notes or thumbnail
    int m_ready = 0;     ///< the controls are filled: a change is a person's
    int m_fileOpen = 0;  ///< a sequence is shown
    int m_ownFile = 0;   ///< 1: opened by its path; 0: the attached one
    int m_stands = 0;    ///< there is a window
    int m_leaving = 0;   ///< the window is being closed
};
