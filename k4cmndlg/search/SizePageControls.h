#pragma once

#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchCriteria.h"

namespace k4cmn {

/// Which controls of the page "Size" can be used.
struct SizePageControls {
    bool size = false;       ///< the size and its spin
    bool dateModes = false;  ///< the three ways to compare a file's time
    bool dates = false;      ///< the two dates
    bool months = false;
    bool days = false;

    bool operator==(const SizePageControls&) const = default;
};

/// The controls that can be used where the page stands so.
/// @param sizeRelation a SizeRelation; of another number, -1 for none too, the size can be used.
/// @param dateFilter a DateFilter. @param dateMode a DateMode; -1 for none.
K4CMNCORE_EXPORT SizePageControls UsableControls(int sizeRelation, int dateFilter, int dateMode);

}  // namespace k4cmn
