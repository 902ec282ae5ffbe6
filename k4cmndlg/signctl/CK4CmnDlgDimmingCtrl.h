#pragma once

#include <memory>
#include <string>

#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/signctl/DimmingSettings.h"

class QPushButton;

namespace Ui {
class DimmingDialog;
}

/// The dialog "Dimming": shows and sets how one sign's brightness is governed, by hand, by a
/// photocell, by a remote photocell or by a schedule.
///
/// It reads the sign when it opens and doesn't follow later changes; OK and Apply send mode and
/// value back, changed or not. Where the sign can't be read, the client's words are shown and the
/// dialog opens with no way chosen. Where the sign can't be set, the client's words are shown; OK
/// closes the dialog all the same. Cancel sends nothing.
///
/// Use: `CK4CmnDlgDimmingCtrl("Local", "Main Board", this).DoModal()`.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgDimmingCtrl final : public CK4CmnDlgBase {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgDimmingCtrl)

 public:
    /// @param service the machine; empty or "Local" for this one. @param sign one of its signs.
    /// @param parent may be null.
    CK4CmnDlgDimmingCtrl(const std::string& service, const std::string& sign, QWidget* parent);
    ~CK4CmnDlgDimmingCtrl() override;

 protected:
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;

 private:
    void OnApply();
    void OnRadio();
    void DimmingSelect();
    void ApplySettings();
    void ShowApplyButton(bool enable);

    std::unique_ptr<Ui::DimmingDialog> m_ui;
    QPushButton* m_apply = nullptr;  // null until the dialog has its window
    std::string m_service;
    std::string m_sign;
    std::string m_shownName;
    k4cmn::DimmingSettings m_settings;
};
