#pragma once

#include <cstddef>

#include "k4cmndlg/k4cmndlg_export.h"

class QLineEdit;
class QPlainTextEdit;

namespace k4cmn {

/// @name Keeps a field to so many characters, whatever they are made of: the toolkit's own limits
/// count some characters twice, or don't exist. Of what is put in beyond the limit, by typing or
/// pasting, the last characters are left out; in a field of one line, that can't be undone.
/// For the life of the field.
/// @{
K4CMNDLG_EXPORT void LimitCharacters(QLineEdit* edit, std::size_t most);
K4CMNDLG_EXPORT void LimitCharacters(QPlainTextEdit* edit, std::size_t most);
/// @}

}  // namespace k4cmn
