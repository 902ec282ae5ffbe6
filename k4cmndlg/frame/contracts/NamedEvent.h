#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// An event that threads and processes share by its name. It is signalled or not, and stays
/// signalled until somebody resets it. Each NamedEvent is one party's hold on it; the event lives
/// as long as somebody holds it.
///
/// No signal is lost on a party: where one has reset the event before another came round to wait,
/// the other's next wait still ends with the signal.
///
/// A party that dies leaves nothing locked and nobody waiting.
///
/// Ownership: the opener's; destroying it lets the event go. No wait may be going on then.
/// Threads: any, also several at once.
class K4CMNCORE_EXPORT NamedEvent {
 public:
    /// How a wait ended.
    enum class Wait {
        Signalled,
        TimedOut,
        Abandoned,  ///< Abandon() was called
        Failed,     ///< the event can't be waited for
    };

    virtual ~NamedEvent();

    /// Signals the event: whoever waits for it goes on. @return 1 or 0.
    virtual int Set() = 0;
    /// Takes the signal away, for all. Whatever was signalled up to now counts as told to this
    /// party. @return 1 or 0.
    virtual int Reset() = 0;
    /// Waits until the event is signalled, or was since this party last waited or reset. The signal
    /// stays.
    /// @param milliseconds how long at most; 0 only looks.
    virtual Wait WaitFor(std::uint32_t milliseconds) = 0;
    /// Gives this party up: its waits, the present one and all later ones, end with Abandoned. The
    /// event itself and the other parties are as before.
    virtual void Abandon() = 0;
};

/// Makes named events. What a name reaches is the implementation's to say: at least all parties of
/// the process that got theirs here.
/// Threads: any.
class K4CMNCORE_EXPORT NamedEvents {
 public:
    virtual ~NamedEvents();

    /// Opens the event of that name, or makes it, not signalled.
    /// @param name of letters, digits, '-', '_' and '.'; case counts.
    /// @return a new party, or null if that can't be.
    virtual std::unique_ptr<NamedEvent> CreateOrOpen(const std::string& name) = 0;
};

}  // namespace k4cmn

/// With nothing installed no event can be made.
K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, NamedEvents)
