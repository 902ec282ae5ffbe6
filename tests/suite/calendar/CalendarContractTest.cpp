#include "suite/calendar/CalendarControl.h"
#include "tests/support/CalendarContract.h"

namespace k4test {
namespace {

std::shared_ptr<k4cmn::Calendars> Make() {
    return std::make_shared<k4suite::EmbeddedCalendars>();
}

INSTANTIATE_TEST_SUITE_P(Embedded, CalendarContract, testing::Values(&Make));

}  // namespace
}  // namespace k4test
