#pragma once

#include <QFont>

#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/smalldlg/LogFont.h"

namespace k4cmn {

/// @name Fonts of the suite and of the toolkit. Threads: the user interface thread.
/// @{
/// The toolkit's font with a font's height, weight, face and effects. What says nothing (0, or no
/// face) is as in the application's font. Heights end at 4096 dots.
K4CMNDLG_EXPORT QFont ToQtFont(const LOGFONT& font);

/// Puts height, weight, face and effects of the toolkit's font into a font, and a width of 0. The
/// other fields stay.
/// @param dotsPerInch of the screen that the font is for, above 0.
K4CMNDLG_EXPORT void PutFont(const QFont& from, double dotsPerInch, LOGFONT& font);
/// @}

}  // namespace k4cmn
