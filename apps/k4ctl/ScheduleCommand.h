#pragma once

#include <string>
#include <utility>

#include "apps/k4ctl/Command.h"
#include "apps/k4ctl/sequence/FilePlace.h"
#include "suite/signservice/Schedule.h"

namespace k4ctl {

/// `schedule check FILE`: reads a schedule, and lists its entries, or what is wrong with each bad
/// line. A bad line is a failure. Whether the sequences are there isn't looked at.
class ScheduleCommand final : public Command {
 public:
    /// @param places where the file of an argument lies.
    explicit ScheduleCommand(FilePlaces places) : m_places(std::move(places)) {}

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;
    bool UsesServices() const override { return false; }
    Answer Run() const override;

 private:
    void TellEntries(const k4suite::ParsedSchedule& schedule, Answer& answer) const;
    void TellProblems(const k4suite::ParsedSchedule& schedule, Answer& answer) const;

    const FilePlaces m_places;
    std::string m_file;
};

}  // namespace k4ctl
