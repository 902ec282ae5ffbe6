#pragma once

#include <optional>
#include <string>

#include "apps/k4ctl/Command.h"
#include "apps/k4ctl/sequence/FilePlace.h"
#include "apps/k4ctl/sequence/SequenceWords.h"

namespace k4ctl {

/// `sequence show FILE [--frames WHICH]`: what a sequence file says of itself, and its frames.
///
/// For people the first frames are listed, or those that are asked for; for machines all, or those
/// that are asked for. A frame that can't be read is told, and the rest is shown all the same.
class SequenceShowCommand final : public Command {
 public:
    /// How many frames are listed for people who don't say which.
    static constexpr std::uint32_t kUsualFrames = 20;

    explicit SequenceShowCommand(FilePlaces places) : m_places(std::move(places)) {}

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;
    bool UsesServices() const override { return false; }
    Answer Run() const override;

 private:
    const FilePlaces m_places;
    std::string m_file;
    FrameRange m_frames;
    bool m_chosen = false;  ///< frames were asked for
};

}  // namespace k4ctl
