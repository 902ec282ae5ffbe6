#pragma once

#include "k4cmndlg/frame/DialogFrame.h"

/// The exported base for the programs that load this library: a dialog that comes back where it was
/// left and gives context help for itself and each of its controls, with help ids as they stand. No
/// dialog of the library itself derives from it; those have CK4CmnDlgBase.
class K4CMNDLG_EXPORT CK4CmnDialog : public k4cmn::DialogFrame {
    Q_OBJECT

 public:
    CK4CmnDialog(std::uint32_t resourceId, QWidget* parent) : DialogFrame(resourceId, parent, 0) {}
};
