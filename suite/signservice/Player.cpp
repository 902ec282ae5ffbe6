#include "suite/signservice/Player.h"

#include <algorithm>
#include <utility>

namespace k4suite {

namespace {

using std::chrono::milliseconds;

/// A step count brought into the frames, around both ends.
std::uint32_t Around(std::int64_t frame, std::uint32_t count) {
    const std::int64_t rest = frame % count;
    return static_cast<std::uint32_t>(rest < 0 ? rest + count : rest);
}

}  // namespace

bool Player::CanPlay(const PlayOrder& order, const FrameSource& frames) {
    if (order.mode < K4_PLAY_SEQ_NONE || order.mode > K4_PLAY_SEQ_LAST)
        return false;
    return order.mode != K4_PLAY_SEQ_SEL_FRAME ||
           (order.param >= 1 && order.param <= frames.FrameCount());
}

void Player::Take(std::unique_ptr<FrameSource> frames) {
    m_frames = std::move(frames);
    m_ends.clear();
    milliseconds end{0};
    for (std::uint32_t frame = 0; frame < m_frames->FrameCount(); ++frame) {
        end += std::max(milliseconds(1), m_frames->Dwell(frame));
        m_ends.push_back(end);
    }
}

void Player::Start(PlayOrder order, std::unique_ptr<FrameSource> frames, TimePoint now,
                   bool isDefault) {
    Take(std::move(frames));
    m_position = {std::move(order), PlayState::Playing, now, 0, isDefault};
    if (m_position.order.mode == K4_PLAY_SEQ_SINGLE_STEP)
        Hold(0, PlayState::Step);
    else if (m_position.order.mode == K4_PLAY_SEQ_SEL_FRAME)
        Hold(m_position.order.param - 1, PlayState::Stopped);
}

void Player::Resume(PlayPosition position, std::unique_ptr<FrameSource> frames, TimePoint now) {
    Take(std::move(frames));
    m_position = std::move(position);
    CatchUpWith(now);
    m_position.frame = std::min(m_position.frame, m_frames->FrameCount() - 1);
}

void Player::CatchUpWith(TimePoint now) {
    m_position.started = std::min(m_position.started, now);
}

void Player::Hold(std::uint32_t frame, PlayState state) {
    m_position.frame = frame;
    m_position.state = state;
}

std::optional<std::uint32_t> Player::Times() const {
    switch (m_position.order.mode) {
        case K4_PLAY_SEQ_NUM_TIMES:
            return std::max(1U, m_position.order.param);
        case K4_PLAY_SEQ_PLAY_STOP:
        case K4_PLAY_SEQ_PLAY_BLANK:
        case K4_PLAY_SEQ_PLAY_NEXT:
            return 1;
        default:
            return std::nullopt;
    }
}

// A clock that was set back makes nothing play backwards.
milliseconds Player::Elapsed(TimePoint now) const {
    return std::max(milliseconds(0), now - m_position.started);
}

std::optional<TimePoint> Player::EndedBy(TimePoint now) const {
    const std::optional<std::uint32_t> times = Times();
    if (!times || m_position.state != PlayState::Playing)
        return std::nullopt;
    // Many times a long sequence are more milliseconds than there are.
    if (Elapsed(now) / Length() < *times)
        return std::nullopt;
    return m_position.started + Length() * static_cast<std::int64_t>(*times);
}

void Player::Repeat(TimePoint now) {
    const milliseconds whole = Length() * static_cast<std::int64_t>(Times().value_or(1));
    m_position.started += Elapsed(now) / whole * whole;
}

bool Player::Stop(TimePoint now) {
    if (m_position.state != PlayState::Playing && m_position.state != PlayState::Step)
        return false;
    Hold(Frame(now), PlayState::Stopped);
    m_position.isDefault = false;
    return true;
}

void Player::StopAtEnd() {
    Hold(m_frames->FrameCount() - 1, PlayState::Stopped);
}

bool Player::Blank(TimePoint now) {
    if (m_position.state == PlayState::Blank)
        return false;
    Hold(Frame(now), PlayState::Blank);
    m_position.isDefault = false;
    return true;
}

bool Player::Select(std::uint32_t frame) {
    if (frame >= m_frames->FrameCount())
        return false;
    Hold(frame, PlayState::Stopped);
    m_position.order.mode = K4_PLAY_SEQ_SEL_FRAME;
    m_position.order.param = frame + 1;
    m_position.isDefault = false;
    return true;
}

void Player::Step(std::int32_t step, TimePoint now) {
    Hold(Around(std::int64_t{Frame(now)} + step, m_frames->FrameCount()), PlayState::Step);
    m_position.order.mode = K4_PLAY_SEQ_SINGLE_STEP;
    m_position.isDefault = false;
}

std::uint32_t Player::Frame(TimePoint now) const {
    if (m_position.state != PlayState::Playing)
        return m_position.frame;
    const auto at = std::upper_bound(m_ends.begin(), m_ends.end(), Elapsed(now) % Length());
    return static_cast<std::uint32_t>(at - m_ends.begin());
}

std::uint64_t Player::FramesShown(TimePoint now) const {
    const std::uint32_t count = m_frames->FrameCount();
    return count > 1 ? TimesPlayed(now) * count + Frame(now) : 0;
}

std::uint64_t Player::TimesPlayed(TimePoint now) const {
    if (m_position.state != PlayState::Playing)
        return 0;
    return static_cast<std::uint64_t>(Elapsed(now) / Length());
}

std::optional<FramePicture> Player::Picture(TimePoint now) const {
    if (m_position.state == PlayState::Blank)
        return std::nullopt;
    return m_frames->Picture(Frame(now));
}

}  // namespace k4suite
