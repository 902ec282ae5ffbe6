#include "k4cmndlg/search/SizePageControls.h"

namespace k4cmn {

SizePageControls UsableControls(int sizeRelation, int dateFilter, int dateMode) {
    SizePageControls usable;
    usable.size = sizeRelation != SIZE_ANY;
    usable.dateModes = dateFilter == DATE_MODIFIED;
    usable.dates = usable.dateModes && dateMode == DATE_BETWEEN;
    usable.months = usable.dateModes && dateMode == DATE_MONTHS;
    usable.days = usable.dateModes && dateMode == DATE_DAYS;
    return usable;
}

}  // namespace k4cmn
