#pragma once

#include <memory>

#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace Ui {
class QuickMessageDialog;
}

/// The dialog "Quick Message": the shell of a message that is typed for a sign and shown once. It
/// has a text (control 1150), a font (1151), and a number of rows (1152) and columns (1153).
///
/// It is the dialog alone. Nothing is read from its controls or put into them: whoever runs it
/// derives from it, or finds the controls by GetDlgItem(), and binds them.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgQuickMsg : public CK4CmnDlgBase {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgQuickMsg)

 public:
    /// @param parent may be null.
    explicit CK4CmnDlgQuickMsg(QWidget* parent);
    ~CK4CmnDlgQuickMsg() override;

 private:
    std::unique_ptr<Ui::QuickMessageDialog> m_ui;
};
