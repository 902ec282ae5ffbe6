#pragma once

#include <QImage>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "apps/k4ctl/sequence/GifWriter.h"

namespace k4ctl {

/// Where the pictures of frames go.
class FrameSink {
 public:
    virtual ~FrameSink() = default;

    /// Takes the picture of a frame.
    /// @return false with words in Problem().
    virtual bool Add(std::uint32_t frame, std::uint32_t dwell, const QImage& picture) = 0;
    /// Called once, behind the last picture.
    virtual bool Finish() = 0;
    virtual std::string Problem() const = 0;
};

/// One animated GIF.
class GifSink final : public FrameSink {
 public:
    explicit GifSink(std::string path) : m_path(std::move(path)) {}

    bool Add(std::uint32_t frame, std::uint32_t dwell, const QImage& picture) override;
    bool Finish() override { return m_writer && m_writer->Finish(); }
    std::string Problem() const override { return m_writer ? m_writer->Problem() : std::string(); }

 private:
    const std::string m_path;
    std::unique_ptr<GifWriter> m_writer;  ///< made with the first picture, whose size it takes
};

/// A folder of PNG files, numbered as the frames are.
class FolderSink final : public FrameSink {
 public:
    /// @param frameCount tells how many digits the numbers have.
    FolderSink(std::filesystem::path folder, std::uint32_t frameCount);

    /// The file of a frame.
    std::filesystem::path FileOf(std::uint32_t frame) const;

    bool Add(std::uint32_t frame, std::uint32_t dwell, const QImage& picture) override;
    bool Finish() override { return true; }
    std::string Problem() const override { return m_problem; }

 private:
    const std::filesystem::path m_folder;
    const int m_digits;
    std::string m_problem;
};

}  // namespace k4ctl
