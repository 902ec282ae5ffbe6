#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/frame/contracts/Clock.h"

namespace k4suite {

/// What is wrong with a telephone line.
enum class LineFault { None, NoDialTone, Busy, NoAnswer };

/// A link that is up.
struct PhoneLink {
    std::uint32_t handle = 0;
    std::string entry;
    bool operator==(const PhoneLink&) const = default;
};

/// How far a dialled link has come.
struct DialState {
    enum class Phase {
        Unknown,  ///< no such handle, or hung up, or dialled anew since
        Dialing,
        Up,
        Failed,  ///< `fault` says why; also a link that went down by itself
    };
    Phase phase = Phase::Unknown;
    LineFault fault = LineFault::None;
    bool operator==(const DialState&) const = default;
};

/// The line of an entry of the phone book, as it stands.
struct PhoneLine {
    std::string entry;
    std::uint32_t handle = 0;  ///< of the link that was dialled last; 0: none, or hung up
    DialState state;
    LineFault fault = LineFault::None;  ///< what the next dialling will meet
    bool operator==(const PhoneLine&) const = default;
};

/// The simulated links of the entries of a phone book. Dialling takes a time, and ends with the
/// link up, or with what is wrong with the line. Time goes by through AdvanceTo() alone.
/// Threads: one at a time.
class PhoneLinks {
    using TimePoint = k4cmn::Clock::TimePoint;

 public:
    /// @param entries the names of the phone book, each different.
    explicit PhoneLinks(const std::vector<std::string>& entries);

    /// Begins to dial. An entry that is being dialled or is up already stays as it is.
    /// @param entry by name, case not counting.
    /// @param time how long dialling takes.
    /// @return the link's handle, never 0; or 0 if there is no such entry.
    std::uint32_t Dial(std::string_view entry, TimePoint now, std::chrono::milliseconds time);
    DialState StateOf(std::uint32_t handle) const;
    /// Ends a link, or the dialling of it, or lets go of a failed one.
    /// @return false if there is no such handle.
    bool HangUp(std::uint32_t handle);
    /// Makes a line fail or whole. A link that is up goes down with a fault.
    /// @return false if there is no such entry.
    bool SetFault(std::string_view entry, LineFault fault);

    /// Ends the dialling that is due. A clock that was set back ends it too.
    void AdvanceTo(TimePoint now);
    /// When the next dialling is due; nothing if none is going on.
    std::optional<TimePoint> NextDue() const;

    /// The links that are up, in the order of the phone book.
    std::vector<PhoneLink> Up() const;
    /// The lines of all entries, in the order of the phone book.
    std::vector<PhoneLine> All() const;
    /// How many times a link has come up or gone down.
    std::uint32_t Changes() const { return m_changes; }

 private:
    using Phase = DialState::Phase;

    struct Line {
        std::string entry;
        std::uint32_t handle = 0;
        DialState state;
        LineFault fault = LineFault::None;
        TimePoint begun;
        TimePoint due;
    };

    Line* Named(std::string_view entry);
    Line* OfHandle(std::uint32_t handle);
    void Enter(Line& line, DialState state);

    std::vector<Line> m_lines;
    std::uint32_t m_lastHandle = 0;
    std::uint32_t m_changes = 0;
};

}  // namespace k4suite
