#pragma once

#include <memory>
#include <string>
#include <utility>

#include "apps/k4ctl/Command.h"
#include "apps/k4ctl/sequence/FilePlace.h"
#include "apps/k4ctl/sequence/FrameSink.h"
#include "apps/k4ctl/sequence/OpenSequence.h"
#include "apps/k4ctl/sequence/SequenceWords.h"

namespace k4ctl {

/// `sequence export FILE OUT.gif|DIR [--scale N] [--frames WHICH] [--force]`: the graphic frames of
/// a sequence as pictures, in one animated GIF or in a folder of PNG files.
///
/// Files that are there are replaced with --force alone, which is settled before the first one is
/// written. A frame that can't be read is told, and the others are written all the same.
class SequenceExportCommand final : public Command {
 public:
    static constexpr int kLargestScale = 64;
    /// The most pixels of a picture.
    static constexpr std::int64_t kMostPixels = std::int64_t{64} << 20;

    explicit SequenceExportCommand(FilePlaces places) : m_places(std::move(places)) {}

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;
    bool UsesServices() const override { return false; }
    Answer Run() const override;

 private:
    bool IsGif() const;
    std::string SizeProblem(const tag_K4_SOS_FRM& start) const;
    std::string FileInTheWay(OpenSequence& sequence, const std::string& out) const;
    std::unique_ptr<FrameSink> MakeSink(const OpenSequence& sequence, const std::string& out) const;
    std::uint32_t AddFrames(OpenSequence& sequence, FrameSink& sink, Answer& answer) const;
    void Finish(std::uint32_t pictures, FrameSink& sink, Answer& answer) const;

    const FilePlaces m_places;
    std::string m_file;
    std::string m_out;
    int m_scale = 1;
    FrameRange m_frames;
    bool m_force = false;
};

}  // namespace k4ctl
