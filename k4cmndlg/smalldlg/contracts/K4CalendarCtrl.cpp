#include "k4cmndlg/smalldlg/contracts/K4CalendarCtrl.h"

K4CalendarCtrl::~K4CalendarCtrl() = default;

namespace k4cmn {

Calendars::~Calendars() = default;

namespace {

class AbsentCalendars final : public Calendars {
 public:
    K4CalendarCtrl* Create(QWidget*) override { return nullptr; }
};

}  // namespace

}  // namespace k4cmn

K4_DEFINE_PROVIDED(Calendars, AbsentCalendars)
