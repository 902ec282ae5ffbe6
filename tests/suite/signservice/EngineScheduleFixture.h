#pragma once

#include <string>

#include "tests/suite/signservice/EngineSequenceFixture.h"
#include "tests/suite/signservice/TimeZone.h"

namespace k4test {

/// A rig with schedules of the test's own. It begins on Friday, 15 January 2027, at 08:00, and its
/// clocks show UTC unless a test says otherwise.
class EngineScheduleFixture : public EngineSequenceFixture {
 protected:
    using Instant = k4cmn::Clock::TimePoint;

    /// Runs a schedule of these lines on "Main". @return the stub's result.
    std::int32_t Run(const std::string& lines) { return Run(rig, lines); }
    static std::int32_t Run(EngineRig& on, const std::string& lines) {
        on.store.Write("test.SD4", "K4 schedule 1\n" + lines);
        return on.rpc->k4ssRunSchedule("Main", "S:\\test.SD4", 0);
    }
    /// State, sequence and frame of "Main"; "show" and "film" are the store's sequences.
    static std::string Where(EngineRig& of) {
        const StatusReply status = of.Status();
        std::string name = status.sequence;
        if (name == "Test Pattern.SQ4")
            name = "pattern";
        else if (name.starts_with("S:\\") && name.ends_with(".SQ4"))
            name = name.substr(3, name.size() - 7);
        return status.state + " " + name + " " + std::to_string(status.frame);
    }
    std::string Where() { return Where(rig); }
    /// Dimming mode, level and offset of "Main".
    static std::string Dimmed(EngineRig& of) {
        const std::vector<std::string> config = of.Config();
        return config[5] + " " + config[7] + " " + config[8];
    }
    std::string Dimmed() { return Dimmed(rig); }
    /// The schedule that runs on "Main"; empty if none does.
    static std::string Running(EngineRig& on) {
        char name[262] = "";
        std::uint32_t capacity = 261;
        on.rpc->k4ssGetSchedSeqStatus("Main", name, &capacity, nullptr, nullptr, nullptr);
        return name;
    }
    std::string Running() { return Running(rig); }

    /// 00:00 UTC of the day on which the rig begins.
    static Instant Friday() { return Instant(std::chrono::hours(24) * 20'833); }
};

}  // namespace k4test
