#pragma once

#include <cstdint>

#include "k4cmndlg/k4cmndlg_export.h"

class CDataExchange;
class CSpinButtonCtrl;
class QLineEdit;

namespace k4cmn {

/// Makes a field one for the rows or columns of a sign: it takes digits, is as wide as a number of
/// 32 bits needs, and is joined to a spin that goes from one multiple of its step to the next.
/// Range and speeds are the spin's. Threads: the user interface thread.
/// @param next NextMultipleWord() or NextMultiplePinned() (SizeRules.h).
K4CMNDLG_EXPORT void SetUpSizeField(QLineEdit* field, CSpinButtonCtrl* spin,
                                    int (*next)(int position, int step));

/// Moves the rows and then the columns of a sign between two fields and two numbers, and checks
/// that each is in its range as soon as it is read.
/// @return false if one was refused. The window, and the numbers with it, may have gone with the
/// message. Threads: the user interface thread.
K4CMNDLG_EXPORT bool ExchangeSignSize(CDataExchange* pDX, QLineEdit* rowField, std::uint32_t& rows,
                                      QLineEdit* columnField, std::uint32_t& columns);

}  // namespace k4cmn
