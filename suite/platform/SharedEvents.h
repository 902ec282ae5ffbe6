#pragma once

#include <memory>
#include <string>

#include "k4cmndlg/frame/contracts/NamedEvent.h"
#include "suite/settings/DataHome.h"

namespace k4suite {

/// The named events of a data home: the processes of one user that work on that home share them,
/// and those of other homes or other users don't.
///
/// An event is a word of shared memory of the name "k4-USER-HOME-NAME", with the user's number and
/// a number that stands for the home's place. It goes with its last party. What the processes of an
/// event left behind when all of them were killed, its signal too, counts no more: the next party
/// finds the event new.
/// Threads: any.
class SharedEvents final : public k4cmn::NamedEvents {
 public:
    /// @param home need not exist.
    explicit SharedEvents(const DataHome& home);

    std::unique_ptr<k4cmn::NamedEvent> CreateOrOpen(const std::string& name) override;

    /// The name of an event's shared memory.
    std::string MemoryName(const std::string& name) const;

 private:
    std::string m_prefix;
};

}  // namespace k4suite
