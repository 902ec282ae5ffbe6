#pragma once

#include "k4cmndlg/filelist/RowLabelSize.h"
#include "k4cmndlg/filelist/contracts/PrintSurface.h"
#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/FoundRows.h"

namespace k4cmn {

/// Prints the results of a search: a title, and below it the path of each row.
///
/// A list of more than 54 rows has a page more for each further 54 of them that have begun. But
/// those pages begin one before each of the first rows, and the lines go on downward over all of
/// them, as on one long page: what lies below the last page's end isn't to be seen. That is on
/// purpose.
///
/// @param label the size of the list's first label.
K4CMNCORE_EXPORT void PrintFoundList(const FoundRows& rows, PrintSurface& surface,
                                     RowLabelSize label);

}  // namespace k4cmn
