#pragma once

#include <QImage>
#include <QSaveFile>
#include <cstdint>
#include <memory>
#include <string>

struct GifFileType;

namespace k4ctl {

/// Writes an animated GIF that plays over and over. It appears, or replaces what was there, when
/// Finish() succeeds; until then it is written beside its place, and goes with the object.
/// After the first failure every operation fails, with the words of that failure.
class GifWriter {
 public:
    /// A side of a picture is this long at most.
    static constexpr int kLongestSide = 65535;

    /// @param path native.
    GifWriter(const std::string& path, const QSize& size);
    ~GifWriter();
    GifWriter(const GifWriter&) = delete;
    GifWriter& operator=(const GifWriter&) = delete;

    /// Adds a picture of the given size with a table of colors.
    /// @param dwell milliseconds. The format counts in hundredths of a second; what is left over
    ///              goes to the next picture, so that the whole takes as long as it should. It
    ///              stands for 20 ms at least, since viewers slow down what is faster, and for
    ///              655.35 s at most.
    bool Add(const QImage& picture, std::uint32_t dwell);
    /// Completes the file.
    bool Finish();

    const std::string& Problem() const { return m_problem; }

 private:
    bool Fail(const std::string& words);
    bool Write(int result);
    bool WriteHead(const QSize& size);
    bool WriteTime(std::uint32_t dwell);
    bool WritePicture(const QImage& picture);

    QSaveFile m_file;
    GifFileType* m_gif = nullptr;
    std::int64_t m_owed = 0;  ///< milliseconds that weren't written yet
    std::string m_problem;
};

}  // namespace k4ctl
