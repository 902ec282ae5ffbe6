#pragma once

#include <QImage>
#include <QImageReader>
#include <cstdint>
#include <string>

namespace k4ctl {

/// The pictures of an image file, one after the other: one of a still image, each of an animated
/// one. Takes every format that the toolkit reads, told by the content and not by the name.
///
/// Memory is bounded: a picture that would take more than kMostBytes is made smaller while it is
/// read, where its format can do that, and refused where it can't.
///
/// Threads: the main one; what the toolkit says about damaged files while it reads is swallowed.
class PictureReader {
 public:
    /// The most bytes of one picture in memory.
    static constexpr std::int64_t kMostBytes = std::int64_t{256} << 20;

    /// @param path native.
    /// @param wanted the size for which the pictures are wanted, so that none is made smaller than
    ///               it needs to be.
    PictureReader(const std::string& path, const QSize& wanted);

    /// Reads the next picture.
    /// @return false at the end, and at a failure, which leaves words in Problem().
    bool Next(QImage& picture);

    /// How long the picture that was read last stands in milliseconds; 0 in a still image.
    std::uint32_t Delay() const { return m_delay; }
    /// Empty, or what was wrong with the file.
    const std::string& Problem() const { return m_problem; }

 private:
    bool Fail(const std::string& words);
    bool Open();
    bool LimitSize();

    const std::string m_path;
    const QSize m_wanted;
    QImageReader m_reader;
    std::uint32_t m_delay = 0;
    std::uint32_t m_read = 0;  ///< pictures so far
    bool m_ended = false;
    std::string m_problem;
};

}  // namespace k4ctl
