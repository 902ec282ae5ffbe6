#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace preview {

using std::chrono::milliseconds;

/// What stands at one place of a sequence that is played.
enum class MomentKind : std::uint8_t {
    Frame,       ///< a frame of a file
    Include,     ///< an included sequence that isn't played here; takes no time
    Unreadable,  ///< a frame that can't be read; takes no time
};

/// One place of a sequence that is played, its included sequences among its own frames.
struct Moment {
    milliseconds start{0};
    milliseconds dwell{0};    ///< 0: it is seen by stepping only
    std::uint32_t file = 0;   ///< index in TimeLine::Files()
    std::uint32_t frame = 0;  ///< number in that file, from 1
    std::uint32_t words = 0;  ///< index in TimeLine::Words(); 0: none
    MomentKind kind = MomentKind::Frame;

    milliseconds End() const { return start + dwell; }
};

/// What a window shows of one file.
struct FileFacts {
    std::string path;  ///< of the store
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
    std::uint32_t color = 0;
    std::uint32_t pixel = 0;
    std::string keywords;
    bool isPreviewOnly = false;
};

/// The frames of a sequence in the order and at the times at which they are played. Grows while it
/// is read. Moments count from 0. A plain value.
class TimeLine {
 public:
    /// Adds a moment at the end; its start follows from what is there.
    void Append(Moment moment);
    /// Adds a file. @return its index.
    std::uint32_t AddFile(FileFacts facts);
    /// Adds words. @return their index.
    std::uint32_t AddWords(std::string words);

    std::size_t Count() const { return m_moments.size(); }
    bool IsEmpty() const { return m_moments.empty(); }
    milliseconds Duration() const;
    const Moment& At(std::size_t index) const { return m_moments[index]; }
    /// How many moments there are that can't be shown as they should be.
    std::size_t ProblemCount() const { return m_problems; }
    /// The first of those. There must be one.
    std::size_t FirstProblem() const { return m_firstProblem; }

    /// The moment that is seen at a time. From the duration on it is the last one that takes time;
    /// where none does, the first one. There must be one.
    std::size_t IndexAt(milliseconds time) const;

    /// The files; the first one is the sequence itself. Empty if it couldn't be opened.
    const std::vector<FileFacts>& Files() const { return m_files; }
    const std::string& Words(std::uint32_t index) const { return m_words[index]; }

 private:
    std::vector<Moment> m_moments;
    std::vector<FileFacts> m_files;
    std::vector<std::string> m_words{std::string()};
    std::size_t m_lastTimed = 0;
    std::size_t m_problems = 0;
    std::size_t m_firstProblem = 0;
};

}  // namespace preview
