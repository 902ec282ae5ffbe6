#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/frame/contracts/Clock.h"
#include "suite/settings/MachineSettings.h"
#include "suite/signservice/Fault.h"
#include "suite/signservice/Faults.h"
#include "suite/signservice/SequenceStore.h"

namespace k4suite {

class Machine;

/// The sign services of this system's machines: the real thing, which owns the signs, plays on them
/// and keeps what they keep. Time goes by through the clock alone: what plays is worked out from
/// the time when it began, whenever somebody asks, so there is no thread.
///
/// A sign's state is saved after each call that changed it, and taken up again at the next start: a
/// sequence then stands where it would be if the service had never stopped.
///
/// EngineRpc puts it behind the stubs. Replies.h says what the replies mean.
/// Threads: any; calls to machines take turns.
class SignEngine {
 public:
    /// @param settings    the machines and their signs.
    /// @param stateFolder where signs keep their state; made when needed.
    /// @param clock,files must outlive the engine.
    SignEngine(const MachineSettings& settings, const std::filesystem::path& stateFolder,
               k4cmn::Clock& clock, k4cmn::FilesProvider& files);
    ~SignEngine();
    SignEngine(const SignEngine&) = delete;
    SignEngine& operator=(const SignEngine&) = delete;

    /// The machine that a service name means: "." and "Local" are this one, case doesn't count.
    /// @return the machine's own name; empty if there is none.
    std::string MachineNamed(const std::string& service) const;

    /// What is to be done at a machine. @return false if it fails.
    using Work = std::function<bool(Machine& machine, k4cmn::Clock::TimePoint now)>;
    /// Carries out one call of a stub: faults first, then the work, with all signs of the machine
    /// brought to the present, then saving.
    /// @param machine a name that MachineNamed() gave.
    /// @return false if the work or a fault failed it, or there is no such machine. Nothing is
    /// thrown.
    bool Call(const std::string& machine, const char* stub, const Work& work);

    /// Makes something go wrong with a machine, beside what goes wrong already.
    /// @param service a service name; one that nobody bears changes nothing.
    void SetFault(const std::string& service, const Fault& fault);
    /// Makes all machines whole.
    void ClearFaults();
    /// Says how a slow machine's time is spent; by default the calling thread sleeps.
    void SetWaiter(Faults::Waiter waiter);

    /// What went wrong with settings and states, for people, each told once.
    std::vector<std::string> Problems() const;

 private:
    Machine* Find(const std::string& machine);
    void Tell(std::vector<std::string> problems);

    k4cmn::Clock& m_clock;
    const SequenceStore m_store;
    Faults m_faults;
    mutable std::mutex m_mutex;  ///< guards what follows; the list of machines itself stays
    std::vector<std::unique_ptr<Machine>> m_machines;
    std::vector<std::string> m_problems;
};

}  // namespace k4suite
