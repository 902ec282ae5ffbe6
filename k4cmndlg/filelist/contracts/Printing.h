#pragma once

#include <memory>

#include "k4cmndlg/filelist/contracts/PrintSurface.h"
#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QWidget;

namespace k4cmn {

/// The platform's printing, from the window's side.
/// Threads: the user interface thread. Choose() returns when the person has chosen.
class K4CMNDLG_EXPORT Printing {
 public:
    virtual ~Printing();

    /// Runs the platform's print dialog, with the choice of a selection turned off.
    /// @param parent may be null.
    /// @return the chosen printer, ready for one document; null where the person cancelled, or
    /// there
    ///         is no device. With nothing installed always null.
    virtual std::unique_ptr<PrintSurface> Choose(QWidget* parent) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNDLG_EXPORT, Printing)
