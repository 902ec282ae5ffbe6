#include "apps/preview/Player.h"

#include <QElapsedTimer>
#include <algorithm>
#include <utility>

#include "k4cmndlg/frame/Format.h"

namespace preview {

namespace {

constexpr milliseconds kShortestTick{15};  // no screen shows more pictures than that
// A timer can't wait for as long as a frame can stand; when it has come, there is a next one.
constexpr milliseconds kLongestTick{std::chrono::hours(1)};
constexpr int kSliceMilliseconds = 8;  // how long reading may keep the window waiting
constexpr int kStepsAtOnce = 64;

constexpr char kNothing[] =
    "Nothing to preview yet.\n"
    "Choose a sequence in a list of files, and \"Preview\" in its menu.";

}  // namespace

Player::Player(QObject* parent) : QObject(parent), m_seen{{}, kNothing} {
    m_reader = std::make_unique<TimeLineReader>(std::string());
    m_tick.setSingleShot(true);
    m_tick.setTimerType(Qt::PreciseTimer);
    connect(&m_tick, &QTimer::timeout, this, &Player::Tick);
    connect(&m_slices, &QTimer::timeout, this, &Player::ReadSlice);
    connect(&m_watch, &FileWatch::Changed, this, &Player::Reload);
}

Player::~Player() = default;

const TimeLine& Player::Line() const {
    return m_reader->Line();
}

bool Player::IsComplete() const {
    return m_path.empty() || m_reader->IsDone();
}

void Player::Open(const std::string& path, bool play) {
    m_path = path;
    m_next.reset();
    m_loader.Forget();
    m_reader = std::make_unique<TimeLineReader>(path);
    m_clock.Stand();
    m_clock.SetPosition(PlayClock::microseconds(0));
    m_tick.stop();
    m_index = 0;
    m_wantsToPlay = play && !path.empty();
    m_slices.stop();
    if (path.empty()) {
        m_watch.Watch({});
        ShowWords(kNothing);
        Q_EMIT StateChanged();
        return;
    }
    m_reader->Read(kStepsAtOnce);
    if (!IsComplete())
        m_slices.start(0);
    ShowWhatIsThere();
    m_watch.Watch(m_reader->Places());
    PlayIfWanted();
    Q_EMIT StateChanged();
}

void Player::PlayIfWanted() {
    if (!m_wantsToPlay || !CanPlay())
        return;
    m_wantsToPlay = false;
    m_clock.Run();
    Tick();
}

void Player::Reload() {
    m_next = std::make_unique<TimeLineReader>(m_path);
    m_next->Read(kStepsAtOnce);
    m_slices.start(0);
    m_watch.Watch(m_next->Places());
}

void Player::ReadSlice() {
    QElapsedTimer sliceTime;
    sliceTime.start();
    while (!Reading().IsDone() && !sliceTime.hasExpired(kSliceMilliseconds))
        Reading().Read(kStepsAtOnce);
    const bool wasEmpty = Line().IsEmpty();
    const bool isDone = Reading().IsDone();
    if (isDone)
        m_slices.stop();
    if (m_next && IsNextFarEnough())
        TakeNext();
    else if (wasEmpty != Line().IsEmpty() || (isDone && wasEmpty))
        ShowWhatIsThere();
    if (isDone)
        m_watch.Watch(m_reader->Places());
    PlayIfWanted();
    if (IsPlaying() && !m_tick.isActive())
        Tick();
    Q_EMIT StateChanged();
}

bool Player::IsNextFarEnough() {
    const TimeLine& line = m_next->Line();
    return m_next->IsDone() || (line.Count() > m_index && line.Duration() > m_clock.Position());
}

void Player::TakeNext() {
    m_wantsToPlay = m_wantsToPlay || IsPlaying();
    m_tick.stop();
    m_clock.Stand();
    const bool wasAtEnd = CanPlay() && m_clock.Position() >= Line().Duration();
    m_reader = std::move(m_next);
    m_loader.Forget();
    if (m_wantsToPlay && CanPlay())
        m_index = Line().IndexAt(std::chrono::floor<milliseconds>(m_clock.Position()));
    ShowWhatIsThere();
    // What stands plays on from what is seen, or from the beginning behind the end.
    if (!m_wantsToPlay && !Line().IsEmpty())
        m_clock.SetPosition(wasAtEnd ? Line().Duration() : Line().At(m_index).start);
}

void Player::ShowWhatIsThere() {
    if (!Line().IsEmpty())
        Show(std::min(m_index, Line().Count() - 1));
    else if (!m_reader->Problem().empty())
        ShowWords("Cannot show " + m_path + ":\n" + m_reader->Problem() +
                  "\n\nIt will be shown as soon as it can be read.");
    else if (m_reader->IsDone())
        ShowWords("Cannot show " + m_path + ":\nThe sequence has no frames.");
    else
        ShowWords("Reading " + m_path + "…");
}

void Player::Show(std::size_t index) {
    m_index = index;
    m_seen = m_loader.Load(Line(), index);
    Q_EMIT SeenChanged();
}

void Player::ShowWords(const std::string& words) {
    m_seen = {{}, words};
    Q_EMIT SeenChanged();
}

std::string Player::Notice() const {
    const TimeLine& line = Line();
    if (line.ProblemCount() == 0)
        return m_reader->Notice();
    std::string notice =
        k4cmn::Format(line.ProblemCount() == 1
                          ? "One place of the sequence can't be played: see frame %zu."
                          : "Places of the sequence can't be played; the first is frame %zu.",
                      line.FirstProblem() + 1);
    if (!m_reader->Notice().empty())
        notice += " " + m_reader->Notice();
    return notice;
}

bool Player::CanPlay() const {
    return Line().Duration().count() > 0;
}

void Player::Play() {
    if (!CanPlay() || IsPlaying())
        return;
    if (IsComplete() && m_clock.Position() >= Line().Duration())
        m_clock.SetPosition(PlayClock::microseconds(0));
    m_clock.Run();
    Q_EMIT StateChanged();
    Tick();
}

void Player::Pause() {
    m_wantsToPlay = false;
    m_tick.stop();
    m_clock.Stand();
    Q_EMIT StateChanged();
}

void Player::Tick() {
    if (!IsPlaying() || Line().IsEmpty())
        return;
    const milliseconds duration = Line().Duration();
    auto position = m_clock.Position();
    if (position >= duration && !IsComplete()) {
        m_clock.SetPosition(duration);  // playing waits for what is being read
    } else if (position >= duration && m_isLooping) {
        position %= PlayClock::microseconds(duration);
        m_clock.SetPosition(position);
    } else if (position >= duration) {
        End();
        return;
    }
    const std::size_t index = Line().IndexAt(std::chrono::floor<milliseconds>(position));
    if (index != m_index)
        Show(index);
    Schedule();
}

void Player::End() {
    m_clock.SetPosition(Line().Duration());
    const std::size_t last = Line().IndexAt(Line().Duration());
    if (last != m_index)
        Show(last);
    Pause();
}

void Player::Schedule() {
    m_tick.stop();
    if (!IsPlaying() || Line().IsEmpty())
        return;
    const Moment& moment = Line().At(m_index);
    const bool isAll = moment.dwell == Line().Duration();
    const bool atEndOfKnown = moment.End() == Line().Duration() && !IsComplete();
    const milliseconds wait = m_clock.Until(moment.End());
    if ((isAll && m_isLooping && IsComplete()) || (atEndOfKnown && wait.count() == 0))
        return;
    m_tick.start(std::clamp(wait, kShortestTick, kLongestTick));
}

void Player::GoTo(std::size_t index) {
    if (Line().IsEmpty())
        return;
    index = std::min(index, Line().Count() - 1);
    m_clock.SetPosition(Line().At(index).start);
    if (index != m_index)
        Show(index);
    Schedule();
}

void Player::Step(int by) {
    Pause();
    if (by > 0)
        GoTo(m_index + 1);
    else if (m_index > 0)
        GoTo(m_index - 1);
}

void Player::ToLast() {
    if (!Line().IsEmpty())
        GoTo(Line().Count() - 1);
}

void Player::SetSpeed(std::size_t speed) {
    m_clock.SetSpeed(speed);
    Schedule();
    Q_EMIT StateChanged();
}

void Player::SetLooping(bool looping) {
    m_isLooping = looping;
    Schedule();
    Q_EMIT StateChanged();
}

}  // namespace preview
