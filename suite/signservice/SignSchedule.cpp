#include <algorithm>
#include <set>
#include <utility>

#include "suite/signservice/ScheduleParser.h"
#include "suite/signservice/Sign.h"

namespace k4suite {

namespace {

/// How far back entries are looked at: each is due once a week, and clocks change by hours.
constexpr std::chrono::days kLookedBack{8};
/// A clock that is set back by more was wrong before.
constexpr std::chrono::hours kMostSetBack{3};

template <class Action>
bool Is(const DueEntry& due) {
    return std::holds_alternative<Action>(due.entry->action);
}

}  // namespace

bool Sign::TakeSchedule(RunningSchedule schedule) {
    ParsedSchedule parsed = ParseSchedule(
        {reinterpret_cast<const char*>(schedule.bytes.data()), schedule.bytes.size()});
    if (!parsed.problems.empty())
        return false;
    m_times = ScheduleTimes(std::move(parsed.entries));
    m_latestSeen = schedule.done;
    m_nextDue = m_times.NextAfter(schedule.done);
    m_schedule = std::move(schedule);
    return true;
}

bool Sign::RunSchedule(const std::string& file, TimePoint now) {
    std::optional<std::vector<std::uint8_t>> bytes = m_store.ReadSchedule(file);
    if (!bytes || !TakeSchedule({file, std::move(*bytes), now}))
        return false;
    TakeUpSchedule(now);
    ++m_scheduleChanges;
    Changed();
    return true;
}

void Sign::EndSchedule() {
    if (!m_schedule)
        return;
    m_schedule.reset();
    ++m_scheduleChanges;
    Changed();
}

void Sign::FollowSchedule(TimePoint now) {
    if (!m_schedule)
        return;
    const bool wasWrong = now < m_latestSeen - kMostSetBack;
    if (wasWrong)
        TakeUpSchedule(now);
    m_latestSeen = wasWrong ? now : std::max(m_latestSeen, now);
    if (!m_nextDue || now < *m_nextDue)
        return;
    if (m_schedule->done < now - kLookedBack) {
        EndSequences(now - kLookedBack);
        TakeUpSchedule(now - kLookedBack);
    }
    for (const DueEntry& due : m_times.Between(m_schedule->done, now)) {
        EndSequences(due.at);
        CarryOut(due.entry->action, due.at);
        m_schedule->done = due.at;
    }
    m_nextDue = m_times.NextAfter(m_schedule->done);
    // Also what changed nothing isn't to be carried out again after a restart.
    m_isChanged = true;
}

void Sign::TakeUpSchedule(TimePoint now) {
    m_schedule->done = now;
    m_nextDue = m_times.NextAfter(now);
    const std::vector<DueEntry> due = m_times.Between(now - kLookedBack, now);
    TakeUpPicture(due, now);
    TakeUpDimming(due);
    m_isChanged = true;
}

void Sign::TakeUpPicture(const std::vector<DueEntry>& due, TimePoint now) {
    // One that can't be played today couldn't be yesterday either.
    std::set<const ScheduleEntry*> tried;
    const auto first = std::find_if(due.rbegin(), due.rend(), [&](const DueEntry& one) {
        return tried.insert(one.entry).second && BeginPicture(one.entry->action, one.at);
    });
    const bool hasBegun = first != due.rend();
    for (auto next = hasBegun ? first.base() : due.begin(); next != due.end(); ++next) {
        if (!Is<ScheduleStop>(*next))
            continue;
        const TimePoint at = hasBegun ? next->at : now;
        GiveWayUntil(at);
        StopSequence(at);
    }
    if (hasBegun)
        GiveWayUntil(now);
}

/// Ends sequences without going on to the queue, which was filled for what is to come.
void Sign::GiveWayUntil(TimePoint now) {
    while (const std::optional<TimePoint> end = m_player.EndedBy(now))
        GiveWay(*end, now);
}

void Sign::TakeUpDimming(const std::vector<DueEntry>& due) {
    const auto last = std::find_if(due.rbegin(), due.rend(), Is<ScheduleDim>);
    if (last != due.rend())
        CarryOut(last->entry->action, last->at);
}

/// Carries out what the picture begins with. @return false for other actions, and for a sequence
/// that can't be played.
bool Sign::BeginPicture(const ScheduleAction& action, TimePoint at) {
    const bool begins = std::holds_alternative<SchedulePlay>(action) ||
                        std::holds_alternative<ScheduleBlank>(action) ||
                        std::holds_alternative<ScheduleDefault>(action);
    return begins && CarryOut(action, at);
}

bool Sign::CarryOut(const ScheduleAction& action, TimePoint at) {
    if (const auto* play = std::get_if<SchedulePlay>(&action)) {
        PlayOrder order = play->order;
        order.sequence = m_store.SequenceOfSchedule(order.sequence, m_schedule->file);
        return PlaySequence(order, at);
    }
    if (const auto* dim = std::get_if<ScheduleDim>(&action))
        return SetDimming(dim->mode, dim->value);
    if (std::holds_alternative<ScheduleStop>(action))
        StopSequence(at);
    else if (std::holds_alternative<ScheduleBlank>(action))
        BlankSign(at);
    else if (std::holds_alternative<ScheduleNext>(action))
        return NextItem(at);
    else if (!m_player.Position().isDefault)
        PlayDefault(at);
    return true;
}

}  // namespace k4suite
