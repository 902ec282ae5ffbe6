#pragma once

#include <QObject>
#include <QTimer>
#include <cstddef>
#include <memory>
#include <string>

#include "apps/preview/FileWatch.h"
#include "apps/preview/FrameLoader.h"
#include "apps/preview/PlayClock.h"
#include "apps/preview/TimeLineReader.h"

namespace preview {

/// Plays one sequence, without a window: which frame is to be seen, and its picture.
///
/// The frame follows from the time that has gone by, so one that comes late is passed over and
/// nothing queues up. The time line is read in short pieces from the event loop, and playing begins
/// with the first of them. While playing stands nothing is done, but for the look whether a file
/// has changed: then the sequence is read anew and goes on where it was.
///
/// Threads: the one that made it, which must run an event loop.
class Player final : public QObject {
    Q_OBJECT

 public:
    explicit Player(QObject* parent = nullptr);
    ~Player() override;

    /// Turns to a sequence and shows its first frame.
    /// @param path of the store; an empty one shows nothing.
    void Open(const std::string& path, bool play);

    const std::string& Path() const { return m_path; }
    const TimeLine& Line() const;
    /// Whether the time line is known to its end.
    bool IsComplete() const;
    /// The moment that is seen. Of no meaning where the time line is empty.
    std::size_t Index() const { return m_index; }
    /// What is seen: a picture, or words in its place.
    const FrameLoader::Seen& Seen() const { return m_seen; }
    /// What a person should know beside it; empty if there is nothing.
    std::string Notice() const;

    /// Whether there is anything that takes time.
    bool CanPlay() const;
    bool IsPlaying() const { return m_clock.IsRunning(); }
    /// Plays on, or from the beginning if the end was reached.
    void Play();
    void Pause();

    /// Shows a moment; one beyond an end is the one at that end.
    void GoTo(std::size_t index);
    /// Stands still at the next moment, or with -1 at the one before.
    void Step(int by);
    void ToFirst() { GoTo(0); }
    void ToLast();

    /// The place of the speed in kSpeeds.
    std::size_t Speed() const { return m_clock.Speed(); }
    void SetSpeed(std::size_t speed);
    bool IsLooping() const { return m_isLooping; }
    void SetLooping(bool looping);

    /// Whether it waits for no time to come: standing, or with nothing that will change.
    bool IsIdle() const { return !m_tick.isActive() && !m_slices.isActive(); }
    /// Sees to what the time says now. It is called by itself when a frame's time ends.
    void Tick();

 Q_SIGNALS:
    /// Another picture is to be seen, or other words.
    void SeenChanged();
    /// Anything else: the time line has grown, playing began or ended, the speed.
    void StateChanged();

 private:
    void ReadSlice();
    void Reload();
    void TakeNext();
    bool IsNextFarEnough();
    void PlayIfWanted();
    void Show(std::size_t index);
    void ShowWords(const std::string& words);
    void ShowWhatIsThere();
    void End();
    void Schedule();
    TimeLineReader& Reading() { return m_next ? *m_next : *m_reader; }

    std::string m_path;
    std::unique_ptr<TimeLineReader> m_reader;
    std::unique_ptr<TimeLineReader> m_next;  ///< reads the changed file, while the old one is seen
    FrameLoader m_loader;
    FileWatch m_watch;
    PlayClock m_clock;
    QTimer m_tick;
    QTimer m_slices;
    FrameLoader::Seen m_seen;
    std::size_t m_index = 0;
    bool m_isLooping = true;
    bool m_wantsToPlay = false;  ///< plays as soon as there is something that takes time
};

}  // namespace preview
