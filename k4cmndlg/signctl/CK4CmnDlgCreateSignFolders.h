#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/signctl/SignFolderForm.h"
#include "k4cmndlg/signctl/SignFolderMaking.h"

class CSpinButtonCtrl;
class QLineEdit;

namespace Ui {
class CreateSignFoldersDialog;
}

/// The dialog "Create New Sign Folders": takes a size and two technologies, and makes the folder of
/// that sign type, with its library "Default.Lib", on every server that is ticked. An ordinary
/// folder gets its palette twin beside it; a palette folder gets no ordinary one.
///
/// OK checks the size, makes the folders, tells what couldn't be made, and closes the dialog all
/// the same; it stays open only where the size isn't right or no server is ticked. Nothing can be
/// read from the dialog but how it ended.
///
/// Use: `CK4CmnDlgCreateSignFolders(this).DoModal()`.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgCreateSignFolders final : public CK4CmnDlgBase {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgCreateSignFolders)

 public:
    /// @param parent may be null.
    explicit CK4CmnDlgCreateSignFolders(QWidget* parent);
    ~CK4CmnDlgCreateSignFolders() override;

    /// Sets what the dialog opens with; called before DoModal(), if at all. Without it the dialog
    /// opens with 8 rows, 16 columns, Monochrome and Incandescent.
    /// @param rows, columns shown as they are; they are checked when OK is pressed.
    /// @param fixed not 0: the operator mustn't change the sign type, and can only make it a
    ///        palette folder. It counts only where color (0 to 15) and pixel (1 to 3) are in range.
    /// @return 1.
    int Initialize(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                   tag_K4_PIXEL_TECH pixel, int fixed);

 protected:
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void SetUpSpin(CSpinButtonCtrl* spin, QLineEdit* field);
    void FillServers();
    void EnableControls();
    void ReadControls();
    void ShowCurrentFolder();
    void CheckSize(CDataExchange* pDX);
    std::vector<k4cmn::TickedServer> Servers() const;
    void OnKillfocusRows();
    void OnKillfocusColumns();
    void OnSelchangeFolderColorTech();
    void OnSelchangeFolderPixelTech();
    void OnPalette();

    std::unique_ptr<Ui::CreateSignFoldersDialog> m_ui;
    k4cmn::SignFolderForm m_form;
    std::vector<k4cmn::TickedServer> m_servers;  ///< as they are listed; the list holds the ticks
    bool m_isReady = false;                      ///< the controls show the form
};
