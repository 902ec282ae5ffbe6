#include "suite/signservice/Sign.h"

#include <utility>

namespace k4suite {

Sign::Sign(SignSetup setup, const SequenceStore& store, TimePoint now)
    : m_setup(std::move(setup)),
      m_store(store),
      m_windows(m_setup.settings.rows, m_setup.settings.columns) {
    PlayDefault(now);
    m_isChanged = false;
}

void Sign::Restore(const SignKept& kept, TimePoint now) {
    m_dimming = kept.dimming;
    m_default = kept.defaultOrder;
    if (kept.schedule)
        TakeSchedule(*kept.schedule);
    for (std::uint32_t window = 1; window <= K4_MAX_SIGN_WINDOWS; ++window) {
        const KeptWindow& from = kept.windows[window - 1];
        m_windows.Enable(window, from.open);
        m_windows.MoveNear(window, from.row, from.column);
    }
    m_queue.Clear();
    for (const QueueEntry& entry : kept.queue)
        m_queue.Add(entry);
    RestorePlaying(kept.playing, now);
    m_isChanged = false;
}

void Sign::RestorePlaying(const std::optional<PlayPosition>& position, TimePoint now) {
    // The test pattern stood in for a default sequence that couldn't be played then.
    const bool isStandIn = position && position->isDefault && position->order != m_default;
    std::unique_ptr<FrameSource> frames;
    if (position && !(isStandIn && CanPlay(m_default)))
        frames = m_store.Open(position->order.sequence, m_setup.settings);
    if (frames && Player::CanPlay(position->order, *frames)) {
        m_player.Resume(*position, std::move(frames), now);
        return;
    }
    PlayDefault(now);
    // A sign that was dark doesn't light up because a file has gone.
    if (position && position->state == PlayState::Blank)
        m_player.Blank(now);
}

SignKept Sign::Kept() const {
    SignKept kept;
    kept.dimming = m_dimming;
    kept.defaultOrder = m_default;
    kept.schedule = m_schedule;
    for (std::uint32_t window = 1; window <= K4_MAX_SIGN_WINDOWS; ++window) {
        const SignWindow& from = m_windows.At(window);
        kept.windows[window - 1] = {from.sign, from.open, from.row, from.column};
    }
    kept.queue = m_queue.Entries();
    kept.playing = m_player.Position();
    return kept;
}

bool Sign::TakeChanged() {
    return std::exchange(m_isChanged, false);
}

void Sign::Changed() {
    ++m_changes;
    m_isChanged = true;
}

void Sign::AdvanceTo(TimePoint now) {
    m_player.CatchUpWith(now);
    FollowSchedule(now);
    EndSequences(now);
}

void Sign::EndSequences(TimePoint now) {
    while (const std::optional<TimePoint> end = m_player.EndedBy(now))
        Finish(*end, now);
}

void Sign::Finish(TimePoint end, TimePoint now) {
    const bool leavesQueue = m_player.Position().order.mode == K4_PLAY_SEQ_PLAY_BLANK;
    if (leavesQueue || !PlayFromQueue(end))
        GiveWay(end, now);
}

void Sign::GiveWay(TimePoint end, TimePoint now) {
    const tag_K4_PLAY_SEQ_MODE mode = m_player.Position().order.mode;
    if (mode == K4_PLAY_SEQ_PLAY_BLANK) {
        m_player.StopAtEnd();
        m_player.Blank(end);
        Changed();
    } else if (mode == K4_PLAY_SEQ_PLAY_STOP) {
        m_player.StopAtEnd();
        Changed();
    } else if (m_player.Position().isDefault) {
        m_player.Repeat(now);
    } else {
        PlayDefault(end);
    }
}

bool Sign::PlayFromQueue(TimePoint now) {
    while (const std::optional<QueueEntry> entry = m_queue.Take()) {
        Changed();
        const bool carriedOut = CarryOut(*entry, now);
        if (carriedOut && std::holds_alternative<PlayOrder>(*entry))
            return true;
    }
    return false;
}

bool Sign::CarryOut(const QueueEntry& entry, TimePoint now) {
    if (const auto* order = std::get_if<PlayOrder>(&entry))
        return PlaySequence(*order, now);
    if (const auto* enable = std::get_if<QueuedEnable>(&entry))
        return EnableWindow(enable->window, enable->open);
    const auto& move = std::get<QueuedMove>(entry);
    return MoveWindow(move.window, move.row, move.column);
}

bool Sign::CanPlay(const PlayOrder& order) const {
    const std::unique_ptr<FrameSource> frames = m_store.Open(order.sequence, m_setup.settings);
    return frames && Player::CanPlay(order, *frames);
}

bool Sign::Play(const PlayOrder& order, TimePoint now, bool isDefault) {
    std::unique_ptr<FrameSource> frames = m_store.Open(order.sequence, m_setup.settings);
    if (!frames || !Player::CanPlay(order, *frames))
        return false;
    m_player.Start(order, std::move(frames), now, isDefault);
    Changed();
    return true;
}

// A default sequence whose file has gone must not leave the sign dark.
void Sign::PlayDefault(TimePoint now) {
    if (!Play(m_default, now, true))
        Play({kTestPatternFile, K4_PLAY_SEQ_CONTINUOUS, 0}, now, true);
}

bool Sign::PlaySequence(const PlayOrder& order, TimePoint now) {
    return Play(order, now, false);
}

bool Sign::SetDefaultSequence(const PlayOrder& order, TimePoint now) {
    if (!CanPlay(order))
        return false;
    m_default = order;
    Changed();
    if (m_player.Position().isDefault)
        PlayDefault(now);
    return true;
}

bool Sign::SelectFrame(std::uint32_t frame) {
    if (frame == 0 || !m_player.Select(frame - 1))
        return false;
    Changed();
    return true;
}

void Sign::SingleStep(std::int32_t step, TimePoint now) {
    m_player.Step(step, now);
    Changed();
}

void Sign::StopSequence(TimePoint now) {
    if (m_player.Stop(now))
        Changed();
}

void Sign::BlankSign(TimePoint now) {
    if (m_player.Blank(now))
        Changed();
}

bool Sign::SetDimming(tag_K4_SIGN_DIM_MODE mode, std::int32_t value) {
    const Dimming before = m_dimming;
    if (!m_dimming.Set(mode, value))
        return false;
    if (m_dimming != before)
        Changed();
    return true;
}

bool Sign::EnableWindow(std::uint32_t window, bool open) {
    const bool wasOpen = SignWindows::IsWindow(window) && m_windows.At(window).open;
    if (!m_windows.Enable(window, open))
        return false;
    if (open != wasOpen)
        Changed();
    return true;
}

bool Sign::MoveWindow(std::uint32_t window, std::int32_t row, std::int32_t column) {
    if (!m_windows.CanMove(window, row, column))
        return false;
    const SignWindow& before = m_windows.At(window);
    if (before.row == row && before.column == column)
        return true;
    m_windows.Move(window, row, column);
    Changed();
    return true;
}

bool Sign::Queue(QueueEntry entry) {
    if (!m_queue.Add(std::move(entry)))
        return false;
    Changed();
    return true;
}

bool Sign::QueueSequence(const PlayOrder& order) {
    return CanPlay(order) && Queue(order);
}

bool Sign::QueueEnable(std::uint32_t window, bool open) {
    return SignWindows::IsWindow(window) && Queue(QueuedEnable{window, open});
}

bool Sign::QueueMove(std::uint32_t window, std::int32_t row, std::int32_t column) {
    return m_windows.CanMove(window, row, column) && Queue(QueuedMove{window, row, column});
}

void Sign::ClearQueue() {
    if (m_queue.Clear())
        Changed();
}

bool Sign::NextItem(TimePoint now) {
    const std::optional<QueueEntry> entry = m_queue.Take();
    if (!entry)
        return false;
    Changed();
    return CarryOut(*entry, now);
}

}  // namespace k4suite
