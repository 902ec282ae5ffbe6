#pragma once

#include "k4cmndlg/frame/DialogFrame.h"

/// The exported base for the programs that load this library: a dialog that comes back where it was
/// left and gives context help for itself and each of its controls, with help ids as they stand. No
/// dialog of the library itself derives from it; those have CK4CmnDlgBase.
///
/// Resource ids are below 256: the help ids that the controls of a higher one get from their
/// numbers reach 0x1000000, where the library's topics begin. A dialog with a higher one sets the
/// property `helpId` of its controls itself.
class K4CMNDLG_EXPORT CK4CmnDialog : public k4cmn::DialogFrame {
    Q_OBJECT

 public:
    /// Creates no window yet.
    /// @param resourceId the number of the dialog's layout, below 256.
    /// @param parent the window that the dialog stays in front of. It may be null; otherwise it
    /// deletes the dialog with itself, if that still stands then. The dialog belongs to the caller.
    /// Threads: the user interface thread.
    CK4CmnDialog(std::uint32_t resourceId, QWidget* parent) : DialogFrame(resourceId, parent, 0) {}
};
