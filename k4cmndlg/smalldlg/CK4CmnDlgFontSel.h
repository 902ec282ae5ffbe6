#pragma once

#include <QFontDialog>
#include <cstdint>

#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/smalldlg/LogFont.h"

class QComboBox;

/// The toolkit's font dialog, with a choice of color among its effects that can be switched off.
///
/// The color is chosen in a combo box (id 1139) with a label (id 1091), the ids as everywhere in
/// the dynamic property `controlId`. It stands with strikeout and underline, and like them only
/// with the flag CF_EFFECTS; without it the effects stay what they were.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFontSel : public QFontDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFontSel)

 public:
    /// @param font the font that is chosen at first, and takes the one that is chosen in the end;
    ///        null begins with the application's. It is not owned and outlives DoModal().
    /// @param flags those of LogFont.h; by default fonts for the screen, with effects (257).
    /// @param printerDC takes no part in what is shown. @param parent may be null.
    explicit CK4CmnDlgFontSel(LOGFONT* font = nullptr,
                              std::uint32_t flags = CF_SCREENFONTS | CF_EFFECTS,
                              CDC* printerDC = nullptr, QWidget* parent = nullptr);
    ~CK4CmnDlgFontSel() override;

    /// Whether the color can be chosen (1, as without this call) or not (0). Said before the dialog
    /// opens.
    void ShowColor(int show) { m_bShowColor = show; }

    /// Runs the dialog. On OK the font that was handed over is filled; otherwise it stays.
    /// @return IDOK or IDCANCEL.
    int DoModal();

    /// The color that is chosen, 0x00BBGGRR: one of the sixteen standard ones, black at first.
    std::uint32_t GetColor() const;

 protected:
    void showEvent(QShowEvent* event) override;

 private:
    void AddColor(QWidget* effects);
    void Show(const LOGFONT& font);

    LOGFONT* m_font;
    int m_bShowColor = 1;
    QWidget* m_colorLabel = nullptr;
    QComboBox* m_color = nullptr;
};
