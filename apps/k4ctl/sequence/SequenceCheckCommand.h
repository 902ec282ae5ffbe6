#pragma once

#include <string>
#include <utility>

#include "apps/k4ctl/Command.h"
#include "apps/k4ctl/sequence/FilePlace.h"

namespace k4ctl {

/// `sequence check FILE`: looks at every byte of a sequence file, and lists what is wrong with the
/// offset at which it stands. A file with a defect is a failure.
class SequenceCheckCommand final : public Command {
 public:
    explicit SequenceCheckCommand(FilePlaces places) : m_places(std::move(places)) {}

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;
    bool UsesServices() const override { return false; }
    Answer Run() const override;

 private:
    const FilePlaces m_places;
    std::string m_file;
};

}  // namespace k4ctl
