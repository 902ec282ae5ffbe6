#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/clients/contracts/K4rsRpc.h"
#include "suite/remoteservice/RemoteEngine.h"
#include "suite/remoteservice/RemoteRpc.h"
#include "suite/settings/MachineSettings.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/MemoryEvents.h"
#include "tests/support/TempFolder.h"

namespace k4test {

/// "Local" and "North" without dialling; "Harbor" behind two services, "Airport" behind one.
inline k4suite::MachineSettings RemoteSettings() {
    k4suite::MachineSettings settings;
    settings.services = {
        {"Local", {}, {}, {}},         {"Pier", "Harbor", {}, {}},       {"North", {}, {}, {}},
        {"Gate 1", "Airport", {}, {}}, {"Lighthouse", "HARBOR", {}, {}},
    };
    return settings;
}

/// An engine with its surroundings, the process connected to it; time is driven, and stands still.
class RemoteRig {
 public:
    explicit RemoteRig(k4suite::MachineSettings machineSettings = RemoteSettings())
        : settings(std::move(machineSettings)),
          listener(events.CreateOrOpen(kRemoteNotificationEvent)) {
        Restart();
    }

    /// Ends the service and starts it anew over the same files.
    void Restart() {
        rpc.reset();
        engine.reset();
        engine = std::make_unique<k4suite::RemoteEngine>(settings, folder / "downloads.ini", clock,
                                                         events);
        rpc = std::make_unique<k4suite::RemoteRpc>(*engine);
        rpc->k4rsConnect(".");
    }

    /// Dials, and lets the time go by that it takes.
    std::uint32_t BringUp(const std::string& entry) {
        const std::uint32_t handle = engine->Dial(entry);
        clock.Advance(k4suite::RemoteEngine::kDialingTime);
        engine->StateOf(handle);
        return handle;
    }
    /// Whether the event has been set since this was last asked.
    bool WasTold() {
        const bool isSet = listener->WaitFor(0) == k4cmn::NamedEvent::Wait::Signalled;
        listener->Reset();
        return isSet;
    }
    std::vector<std::string> UpEntries() {
        std::vector<std::string> entries;
        for (const k4suite::PhoneLink& link : engine->Links())
            entries.push_back(link.entry);
        return entries;
    }

    TempFolder folder;
    DrivenClock clock;
    MemoryEvents events;
    k4suite::MachineSettings settings;
    std::unique_ptr<k4cmn::NamedEvent> listener;
    std::unique_ptr<k4suite::RemoteEngine> engine;
    std::unique_ptr<k4suite::RemoteRpc> rpc;
};

}  // namespace k4test
