#pragma once

#include <QString>

#include "k4cmndlg/k4cmndlg_export.h"

class QLineEdit;

namespace k4cmn {

/// @name How fields look, and what they take. Threads: the user interface thread.
/// @{
/// Makes a field as wide as a text needs. The toolkit makes them all wide enough for 17 letters.
K4CMNDLG_EXPORT void FitToText(QLineEdit* edit, const QString& widest);
/// Gives a field the ground of the window, so that it doesn't look like something to type over.
K4CMNDLG_EXPORT void PutOnGround(QLineEdit* edit);
/// Lets a person put digits into a field, and nothing else.
K4CMNDLG_EXPORT void TakeDigitsAlone(QLineEdit* edit);
/// @}

}  // namespace k4cmn
