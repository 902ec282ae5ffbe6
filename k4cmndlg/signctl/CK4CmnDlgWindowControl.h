#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/signctl/WindowPlacing.h"

class CSpinButtonCtrl;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QValidator;

namespace Ui {
class WindowControlDialog;
}

/// The dialog "Window Control": opens, closes and moves the first eight windows of a sign. A window
/// shows another sign's content at a row and a column of the sign's pixel grid; which sign it shows
/// is seen here and can't be changed.
///
/// It reads the sign when it opens and doesn't follow later changes; if the service can't be
/// reached, its client's words are shown and the dialog ends with IDCANCEL before it appears. OK
/// and Apply check all places and then write all eight windows, changed or not. Cancel sends
/// nothing.
///
/// The client's lock `CK4CmnSS::m_cs` is held while the windows are read and while they are
/// written, and while a message of these is shown.
///
/// Use: `CK4CmnDlgWindowControl("Local", "Main Board", this).DoModal()`.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgWindowControl final : public CK4CmnDlgBase {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgWindowControl)

 public:
    /// @param service the machine; empty or "Local" for this one. @param sign one of its signs.
    /// @param parent may be null.
    CK4CmnDlgWindowControl(const std::string& service, const std::string& sign, QWidget* parent);
    ~CK4CmnDlgWindowControl() override;

 protected:
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    /// The controls of one window.
    struct Line {
        QCheckBox* enable;
        QComboBox* windowSign;
        QLineEdit* row;
        CSpinButtonCtrl* rowSpin;
        QLineEdit* column;
        CSpinButtonCtrl* columnSpin;
    };

    template <class Control>
    Control* Item(int controlId) const;
    void SetUpLines();
    void SetUpField(QLineEdit* edit, CSpinButtonCtrl* spin);
    bool ReadWindows();
    void SetBounds();
    void FillWindowSigns();
    void FieldLeft(const QObject* field);
    void OnApply();
    void ApplySettings();

    std::unique_ptr<Ui::WindowControlDialog> m_ui;
    std::array<Line, k4cmn::WindowPlacing::kWindows> m_lines;
    QValidator* m_digits;
    QValidator* m_signedDigits;
    std::string m_service;
    std::string m_sign;
    std::vector<std::string> m_signs;
    k4cmn::WindowPlacing m_placing;
};
