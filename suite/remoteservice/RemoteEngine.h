#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "k4cmndlg/frame/contracts/Clock.h"
#include "k4cmndlg/frame/contracts/NamedEvent.h"
#include "suite/remoteservice/DownLoadEvents.h"
#include "suite/remoteservice/PhoneBook.h"
#include "suite/remoteservice/PhoneLinks.h"
#include "suite/settings/MachineSettings.h"
#include "suite/signservice/Fault.h"
#include "suite/signservice/Faults.h"

namespace k4suite {

/// The remote service of this system: it knows the phone book, keeps the links, and tells of each
/// change by the change flag and the named event. The links are simulated: dialling takes a time of
/// the clock, and lines can be made to fail. They don't survive the engine; download events that
/// were registered do.
///
/// A link comes up when its time has come, whether anybody asks or not: a thread waits for that
/// while an entry is being dialled.
///
/// RemoteRpc puts it behind the stubs. Threads: any.
class RemoteEngine {
 public:
    static constexpr std::chrono::milliseconds kDialingTime{3000};

    /// @param settings  the services; those with a phone book entry count.
    /// @param downLoads the file that keeps download events; made when needed.
    /// @param clock     the time; must outlive the engine.
    /// @param events    where the event of changes is made.
    RemoteEngine(const MachineSettings& settings, const std::filesystem::path& downLoads,
                 k4cmn::Clock& clock, k4cmn::NamedEvents& events);
    ~RemoteEngine();
    RemoteEngine(const RemoteEngine&) = delete;
    RemoteEngine& operator=(const RemoteEngine&) = delete;

    // Links ---------------------------------------------------------------------------------------

    /// The phone book.
    const std::vector<PhoneBookEntry>& PhoneBook() const { return m_book; }
    /// Begins to dial an entry, and returns at once. One that is being dialled or is up already
    /// stays as it is.
    /// @param entry by name, case not counting.
    /// @return the link's handle, never 0; or 0 if there is no such entry.
    std::uint32_t Dial(const std::string& entry);
    /// How far a link has come.
    DialState StateOf(std::uint32_t handle);
    /// Ends a link, or the dialling of it. @return false if there is no such handle.
    bool HangUp(std::uint32_t handle);
    /// The links that are up, in the order of the phone book.
    std::vector<PhoneLink> Links();
    /// The lines of all entries, in the order of the phone book: for whoever shows them and offers
    /// to dial or hang up.
    std::vector<PhoneLine> Lines();
    /// The names of the services behind them, in that order.
    std::vector<std::string> Services();

    /// A word that moves each time a link has come up or gone down; it differs from start to start.
    std::uint32_t ChangeFlag();

    // Download events -----------------------------------------------------------------------------

    /// Registers an event. @return false if it can't be kept.
    bool AddDownLoadEvent(const DownLoadEvent& event);
    /// All that have been registered, in their order.
    std::vector<DownLoadEvent> DownLoads() const;

    // What can go wrong ---------------------------------------------------------------------------

    /// How long dialling takes from now on.
    void SetDialingTime(std::chrono::milliseconds time);
    /// Makes an entry's line fail, or whole again. A link that is up goes down with a fault.
    /// @return false if there is no such entry.
    bool SetLineFault(const std::string& entry, LineFault fault);
    /// Makes something go wrong with the service itself, beside what goes wrong already. One that
    /// becomes unreachable loses its connections.
    void SetFault(const Fault& fault);
    /// Makes the service whole; lines stay as they are.
    void ClearFaults();
    /// Says how a slow service's time is spent; by default the calling thread sleeps.
    void SetWaiter(Faults::Waiter waiter);
    /// Lets a call of a stub wait as long as the faults say. @return false if it is to fail.
    bool Pass(const char* stub);
    /// Which connections live: those that were made under this number.
    std::uint32_t ConnectionNumber() const;

    /// What went wrong with settings, files and the event, for people.
    std::vector<std::string> Problems() const;

 private:
    /// Brings the links to the present and tells of changes; with the lock held.
    void Advance();
    void Watch(const std::stop_token& stop);

    k4cmn::Clock& m_clock;
    std::vector<std::string> m_problems;
    const std::vector<PhoneBookEntry> m_book;
    const std::unique_ptr<k4cmn::NamedEvent> m_event;
    const std::uint32_t m_firstFlag;
    Faults m_faults;

    mutable std::mutex m_mutex;  ///< guards what follows
    PhoneLinks m_links;
    std::uint32_t m_toldChanges = 0;
    std::uint32_t m_connectionNumber = 1;
    std::chrono::milliseconds m_dialingTime = kDialingTime;
    DownLoadEvents m_downLoads;
    std::condition_variable_any m_dialing;
    std::jthread m_watcher;  ///< begins with the first dialling; last, so that it goes first
};

}  // namespace k4suite
