#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "suite/signservice/FrameSource.h"
#include "suite/signservice/PlayOrder.h"
#include "suite/signservice/TimeOfDay.h"

namespace k4suite {

/// What a sign's player is doing.
enum class PlayState : std::uint8_t {
    Playing,  ///< frames follow each other in time
    Stopped,  ///< a frame stands
    Step,     ///< a frame stands, and steps move it
    Blank,    ///< nothing is lit
};

/// All that a player has to keep to go on after a restart.
struct PlayPosition {
    PlayOrder order;
    PlayState state = PlayState::Playing;
    TimePoint started{};      ///< while Playing: when the first frame came up
    std::uint32_t frame = 0;  ///< otherwise: the frame that stands, from 0
    bool isDefault = true;    ///< it is the sign's default sequence
};

/// Plays one sequence at a time. It has no thread: the frame that shows follows from the time when
/// playing began and the time that it is asked for.
///
/// Modes: Single Step stands at the first frame; Sel Frame shows the frame of the param, from 1;
/// Num Times plays as often as the param says (0 counts as 1); Play Stop, Play Blank and Play Next
/// play once; all others play on and on. What comes after the end of a sequence is the sign's
/// affair. Threads: one at a time.
class Player {
 public:
    /// Whether an order can be carried out with these frames: a known mode, and a frame that
    /// exists.
    static bool CanPlay(const PlayOrder& order, const FrameSource& frames);

    /// Begins with an order, which CanPlay().
    void Start(PlayOrder order, std::unique_ptr<FrameSource> frames, TimePoint now, bool isDefault);
    /// Goes on where another player was; a position out of the sequence is brought into it.
    void Resume(PlayPosition position, std::unique_ptr<FrameSource> frames, TimePoint now);

    /// Begins the sequence anew if it was started later than now: the clock was set back, and
    /// nobody is to wait until it is there again.
    void CatchUpWith(TimePoint now);
    /// When the sequence ends by itself, if that is now or before.
    std::optional<TimePoint> EndedBy(TimePoint now) const;
    /// Begins the same order anew, as if it had been repeated without a gap until now.
    void Repeat(TimePoint now);

    /// Holds the frame that shows. @return false if none was moving.
    bool Stop(TimePoint now);
    /// Holds the last frame.
    void StopAtEnd();
    /// Turns all lamps off. @return false if they were off.
    bool Blank(TimePoint now);
    /// Shows one frame, from 0. @return false if there is no such frame.
    bool Select(std::uint32_t frame);
    /// Moves on or back by frames, around the ends.
    void Step(std::int32_t step, TimePoint now);

    const PlayPosition& Position() const { return m_position; }
    const FrameSource& Frames() const { return *m_frames; }
    /// The frame that shows, from 0; while blank, the one that showed last.
    std::uint32_t Frame(TimePoint now) const;
    /// How many frames have come up since playing began; moves exactly when the picture does.
    std::uint64_t FramesShown(TimePoint now) const;
    /// How often the sequence has been played to its end.
    std::uint64_t TimesPlayed(TimePoint now) const;
    /// The picture; nothing while blank. It holds until the player is asked again.
    std::optional<FramePicture> Picture(TimePoint now) const;

 private:
    using Span = std::chrono::milliseconds;

    void Take(std::unique_ptr<FrameSource> frames);
    void Hold(std::uint32_t frame, PlayState state);
    Span Length() const { return m_ends.back(); }
    Span Elapsed(TimePoint now) const;
    /// How often the order plays the sequence; nothing: without end.
    std::optional<std::uint32_t> Times() const;

    PlayPosition m_position;
    std::unique_ptr<FrameSource> m_frames;
    std::vector<Span> m_ends;  ///< of each frame, from the start of the sequence
};

}  // namespace k4suite
