#pragma once

#include <memory>
#include <string>

#include "k4cmndlg/frame/DialogFrame.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace Ui {
class FindTreeDialog;
}

/// The dialog "Select Directory To Search": a tree of the removable drives and of the servers with
/// their sign types and libraries, of which one is picked. What stands below an item is read when
/// that is opened. It opens in front of its parent each time, and has the help of the library's own
/// dialogs.
///
/// Use: set the three fields to the place to begin at, run DoModal(), and read them after IDOK.
/// Ownership: the caller's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFindTree final : public k4cmn::DialogFrame {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFindTree)

 public:
    /// @param parent may be null.
    explicit CK4CmnDlgFindTree(QWidget* parent);
    ~CK4CmnDlgFindTree() override;

    std::string m_server;
    std::string m_signType;
    std::string m_library;

 protected:
    int OnInitDialog() override;
    void OnOK() override;

 private:
    std::unique_ptr<Ui::FindTreeDialog> m_ui;
};
