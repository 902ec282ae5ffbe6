#pragma once

#include "k4cmndlg/frame/DialogFrame.h"

/// The base of the library's own dialogs: a dialog that comes back where it was left and gives
/// context help for itself and each of its controls. Every help id that it hands to the help system
/// has 0x1000000 added to it, which keeps the library's topics apart from the application's.
class K4CMNDLG_EXPORT CK4CmnDlgBase : public k4cmn::DialogFrame {
    Q_OBJECT

 public:
    static constexpr std::uint32_t kHelpOffset = 0x1000000;

    CK4CmnDlgBase(std::uint32_t resourceId, QWidget* parent)
        : DialogFrame(resourceId, parent, kHelpOffset) {}

    /// Runs the dialog with the library's own texts in force, and gives the application its own
    /// back afterwards.
    int DoModal() override;
};
