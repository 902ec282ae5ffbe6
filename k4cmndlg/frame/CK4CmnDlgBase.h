#pragma once

#include "k4cmndlg/frame/DialogFrame.h"

/// The base of the library's own dialogs: a dialog that comes back where it was left and gives
/// context help for itself and each of its controls. Every help id that it hands to the help system
/// has 0x1000000 added to it, which keeps the library's topics apart from the application's.
class K4CMNDLG_EXPORT CK4CmnDlgBase : public k4cmn::DialogFrame {
    Q_OBJECT

 public:
    /// What every help id that goes to the help system has added to it.
    static constexpr std::uint32_t kHelpOffset = 0x1000000;

    /// Creates no window yet.
    /// @param resourceId the number of the dialog's layout, below 65536.
    /// @param parent the window that the dialog stays in front of. It may be null; otherwise it
    /// deletes the dialog with itself, if that still stands then. The dialog belongs to the caller.
    /// Threads: the user interface thread.
    CK4CmnDlgBase(std::uint32_t resourceId, QWidget* parent)
        : DialogFrame(resourceId, parent, kHelpOffset) {}

    /// Runs the dialog with the library's own texts in force, and gives the application its own
    /// back afterwards.
    int DoModal() override;
};
