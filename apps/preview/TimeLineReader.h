#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "apps/preview/FileStamp.h"
#include "apps/preview/TimeLine.h"
#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"

namespace preview {

/// Reads the time line of a sequence piece by piece, so that a window can live meanwhile.
///
/// Included sequences are followed as signs follow them: the path of a field begins at the file
/// that holds it; a sequence that is being played already isn't played inside of itself; a sequence
/// at the depth of 8 doesn't include any more. What isn't played leaves a moment with its words
/// that takes no time. A frame that stands for no time at all is played for a millisecond.
///
/// Frames that can't be read leave a moment with words, too. Where a file ends before the frames
/// that it promises there is one for all of them.
///
/// Includes may branch without end; after a million moments and fields reading stops, with words in
/// Notice().
///
/// Threads: one at a time.
class TimeLineReader {
 public:
    /// How deep includes are followed.
    static constexpr std::size_t kDeepest = 8;
    /// How many moments and include fields are read at most.
    static constexpr std::uint32_t kMostSteps = 1'000'000;
    /// How many files are told in Places().
    static constexpr std::size_t kMostPlaces = 256;

    /// @param path of the store. Nothing is read yet.
    explicit TimeLineReader(std::string path);
    ~TimeLineReader();
    TimeLineReader(TimeLineReader&&) noexcept;
    TimeLineReader& operator=(TimeLineReader&&) noexcept;

    /// Reads on by so many frames and fields.
    void Read(int steps);
    /// Whether all has been read, or nothing can be.
    bool IsDone() const { return m_isDone; }

    const TimeLine& Line() const { return m_line; }
    /// Why the sequence itself couldn't be opened; empty if it could.
    const std::string& Problem() const { return m_problem; }
    /// What else a person should know; empty if there is nothing.
    const std::string& Notice() const { return m_notice; }
    /// The files that were looked for, as they were just before they were opened.
    const std::map<std::string, FileStamp>& Places() const { return m_places; }

 private:
    /// A file that is being read, and how far.
    struct Level {
        std::unique_ptr<CK4SequenceFile> file;
        std::string path;
        std::uint32_t index = 0;  ///< in the time line's files
        int frame = 0;            ///< read last
        std::vector<std::string> includes;
        std::size_t nextInclude = 0;
        std::string defect;  ///< the words about the frame before, if it couldn't be read
    };

    void Step();
    void ReadFrame(Level& level);
    void Include(Level& level, const std::string& field);
    /// Opens a file and goes down to it. @return the words of a failure.
    std::string Enter(const std::string& path);
    void AppendWords(const Level& level, MomentKind kind, const std::string& words);
    bool IsPlaying(const std::string& path) const;

    std::string m_path;
    TimeLine m_line;
    std::vector<Level> m_levels;
    std::map<std::string, std::uint32_t> m_files;  ///< the time line's files by path
    std::map<std::string, std::uint32_t> m_words;  ///< the time line's words
    std::map<std::string, FileStamp> m_places;
    std::string m_problem;
    std::string m_notice;
    std::uint32_t m_steps = 0;
    bool m_isDone = false;
};

}  // namespace preview
