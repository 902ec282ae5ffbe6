#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "suite/settings/MachineSettings.h"
#include "suite/signservice/Dimming.h"
#include "suite/signservice/DisplayQueue.h"
#include "suite/signservice/Player.h"
#include "suite/signservice/ScheduleTimes.h"
#include "suite/signservice/SequenceStore.h"
#include "suite/signservice/SignKept.h"
#include "suite/signservice/SignWindows.h"
#include "suite/signservice/TimeOfDay.h"

namespace k4suite {

/// One sign: what it is, how it is dimmed, what it plays, its windows and its queue.
///
/// Commands return false if they can't be carried out, and then change nothing (NextItem() alone
/// drops the entry that it couldn't carry out). Before anything else AdvanceTo() brings the sign to
/// the present.
///
/// At the end of a sequence that is played a number of times, stopped or followed, the queue's
/// entries are carried out up to and with the next sequence. With nothing queued, Play Stop stays
/// at the last frame, and the others give way to the default sequence, which is repeated in its own
/// mode. Play Blank ends in the dark and leaves the queue alone. While a sequence plays on and on,
/// the default one too, what is queued waits for NextItem().
///
/// While a schedule runs, its entries are carried out as they become due. docs/schedule-format.md
/// tells what is in force when one is started, and what clocks that are changed do to it.
/// Threads: one at a time; the engine sees to it.
class Sign {
 public:
    /// A sign as it comes out of the box.
    /// @param store what it can play; must outlive the sign.
    Sign(SignSetup setup, const SequenceStore& store, TimePoint now);

    /// Takes over what was kept, as far as it fits. Window signs have been set before.
    void Restore(const SignKept& kept, TimePoint now);
    SignKept Kept() const;
    /// Whether something to keep has changed since the last call.
    bool TakeChanged();

    const std::string& Name() const { return m_setup.name; }
    const k4cmn::SignSettings& Settings() const { return m_setup.settings; }
    const Dimming& Dimmer() const { return m_dimming; }
    const SignWindows& Windows() const { return m_windows; }
    SignWindows& Windows() { return m_windows; }
    const DisplayQueue& Queue() const { return m_queue; }
    const Player& Playing() const { return m_player; }
    const PlayOrder& DefaultOrder() const { return m_default; }
    const std::optional<RunningSchedule>& Schedule() const { return m_schedule; }

    /// Moves with every change of this sign; see ChangeFlag.
    std::uint64_t Changes() const { return m_changes; }
    /// Moves with every change of the schedule.
    std::uint32_t ScheduleChanges() const { return m_scheduleChanges; }

    /// Carries out what time has brought: ends of sequences, what follows them, and entries of the
    /// schedule, each as of its time.
    void AdvanceTo(TimePoint now);

    bool CanPlay(const PlayOrder& order) const;
    bool PlaySequence(const PlayOrder& order, TimePoint now);
    bool SetDefaultSequence(const PlayOrder& order, TimePoint now);
    /// @param frame from 1.
    bool SelectFrame(std::uint32_t frame);
    void SingleStep(std::int32_t step, TimePoint now);
    void StopSequence(TimePoint now);
    void BlankSign(TimePoint now);

    /// @return false if the file is no schedule, or has a bad line.
    bool RunSchedule(const std::string& file, TimePoint now);
    void EndSchedule();

    bool SetDimming(tag_K4_SIGN_DIM_MODE mode, std::int32_t value);
    bool EnableWindow(std::uint32_t window, bool open);
    bool MoveWindow(std::uint32_t window, std::int32_t row, std::int32_t column);

    bool QueueSequence(const PlayOrder& order);
    bool QueueEnable(std::uint32_t window, bool open);
    bool QueueMove(std::uint32_t window, std::int32_t row, std::int32_t column);
    void ClearQueue();
    /// Takes the queue's first entry and carries it out. @return false also if there is none.
    bool NextItem(TimePoint now);

 private:
    void Changed();
    bool Queue(QueueEntry entry);
    bool Play(const PlayOrder& order, TimePoint now, bool isDefault);
    void PlayDefault(TimePoint now);
    void EndSequences(TimePoint now);
    void Finish(TimePoint end, TimePoint now);
    void GiveWay(TimePoint end, TimePoint now);
    void GiveWayUntil(TimePoint now);
    bool CarryOut(const QueueEntry& entry, TimePoint now);
    bool PlayFromQueue(TimePoint now);
    void RestorePlaying(const std::optional<PlayPosition>& position, TimePoint now);

    bool TakeSchedule(RunningSchedule schedule);
    void FollowSchedule(TimePoint now);
    void TakeUpSchedule(TimePoint now);
    void TakeUpPicture(const std::vector<DueEntry>& due, TimePoint now);
    void TakeUpDimming(const std::vector<DueEntry>& due);
    bool BeginPicture(const ScheduleAction& action, TimePoint at);
    bool CarryOut(const ScheduleAction& action, TimePoint at);

    SignSetup m_setup;
    const SequenceStore& m_store;
    Dimming m_dimming;
    SignWindows m_windows;
    DisplayQueue m_queue;
    PlayOrder m_default{kTestPatternFile, K4_PLAY_SEQ_CONTINUOUS, 0};
    Player m_player;
    std::optional<RunningSchedule> m_schedule;
    ScheduleTimes m_times;               ///< of the schedule that runs
    std::optional<TimePoint> m_nextDue;  ///< its next entry's time
    TimePoint m_latestSeen{};            ///< the latest time at which it was followed
    std::uint64_t m_changes = 0;
    std::uint32_t m_scheduleChanges = 0;
    bool m_isChanged = false;
};

}  // namespace k4suite
