#include "suite/remoteservice/RemoteEngine.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "k4cmndlg/clients/contracts/K4rsRpc.h"
#include "k4cmndlg/frame/Format.h"
#include "suite/settings/NameText.h"

namespace k4suite {

namespace {

using std::chrono::milliseconds;

/// The service's own name among the faults.
constexpr char kService[] = "Remote";
/// One wait for a dialling to end lasts that long at most: a clock may be set in the meantime.
constexpr milliseconds kLongestWait{1000};

std::vector<std::string> NamesOf(const std::vector<PhoneBookEntry>& book) {
    std::vector<std::string> names;
    for (const PhoneBookEntry& entry : book)
        names.push_back(entry.name);
    return names;
}

std::unique_ptr<k4cmn::NamedEvent> EventOfChanges(k4cmn::NamedEvents& events,
                                                  std::vector<std::string>& problems) {
    std::unique_ptr<k4cmn::NamedEvent> event = events.CreateOrOpen(kRemoteNotificationEvent);
    if (!event)
        problems.push_back(
            k4cmn::Format("The event \"%s\" can't be made: nobody is told when a link changes.",
                          kRemoteNotificationEvent));
    return event;
}

}  // namespace

RemoteEngine::RemoteEngine(const MachineSettings& settings, const std::filesystem::path& downLoads,
                           k4cmn::Clock& clock, k4cmn::NamedEvents& events)
    : m_clock(clock),
      m_book(PhoneBookOf(settings, m_problems)),
      m_event(EventOfChanges(events, m_problems)),
      m_firstFlag(static_cast<std::uint32_t>(clock.Now().time_since_epoch().count())),
      m_links(NamesOf(m_book)),
      m_downLoads(downLoads) {}

RemoteEngine::~RemoteEngine() = default;

void RemoteEngine::Advance() {
    m_links.AdvanceTo(m_clock.Now());
    if (std::exchange(m_toldChanges, m_links.Changes()) != m_links.Changes() && m_event)
        m_event->Set();
}

void RemoteEngine::Watch(const std::stop_token& stop) {
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        if (const auto due = m_links.NextDue()) {
            const milliseconds left =
                std::clamp(*due - m_clock.Now(), milliseconds(1), kLongestWait);
            // Until then, or until another dialling is the next one.
            m_dialing.wait_for(lock, stop, left, [&] { return m_links.NextDue() != due; });
        } else {
            m_dialing.wait(lock, stop, [this] { return m_links.NextDue().has_value(); });
        }
        Advance();
    }
}

std::uint32_t RemoteEngine::Dial(const std::string& entry) {
    const std::lock_guard lock(m_mutex);
    Advance();
    const std::uint32_t handle = m_links.Dial(entry, m_clock.Now(), m_dialingTime);
    Advance();
    if (m_links.NextDue() && !m_watcher.joinable())
        m_watcher = std::jthread([this](const std::stop_token& stop) { Watch(stop); });
    m_dialing.notify_all();
    return handle;
}

DialState RemoteEngine::StateOf(std::uint32_t handle) {
    const std::lock_guard lock(m_mutex);
    Advance();
    return m_links.StateOf(handle);
}

bool RemoteEngine::HangUp(std::uint32_t handle) {
    const std::lock_guard lock(m_mutex);
    Advance();
    const bool wasThere = m_links.HangUp(handle);
    Advance();
    return wasThere;
}

std::vector<PhoneLink> RemoteEngine::Links() {
    const std::lock_guard lock(m_mutex);
    Advance();
    return m_links.Up();
}

std::vector<PhoneLine> RemoteEngine::Lines() {
    const std::lock_guard lock(m_mutex);
    Advance();
    return m_links.All();
}

std::vector<std::string> RemoteEngine::Services() {
    std::vector<std::string> services;
    for (const PhoneLink& link : Links())
        for (const PhoneBookEntry& entry : m_book)
            if (entry.name == link.entry)
                services.insert(services.end(), entry.services.begin(), entry.services.end());
    return services;
}

std::uint32_t RemoteEngine::ChangeFlag() {
    const std::lock_guard lock(m_mutex);
    Advance();
    return m_firstFlag + m_links.Changes();
}

bool RemoteEngine::AddDownLoadEvent(const DownLoadEvent& event) {
    const std::lock_guard lock(m_mutex);
    return m_downLoads.Add(event);
}

std::vector<DownLoadEvent> RemoteEngine::DownLoads() const {
    const std::lock_guard lock(m_mutex);
    return m_downLoads.All();
}

void RemoteEngine::SetDialingTime(milliseconds time) {
    const std::lock_guard lock(m_mutex);
    m_dialingTime = time;
}

bool RemoteEngine::SetLineFault(const std::string& entry, LineFault fault) {
    const std::lock_guard lock(m_mutex);
    Advance();
    const bool isThere = m_links.SetFault(entry, fault);
    Advance();
    return isThere;
}

void RemoteEngine::SetFault(const Fault& fault) {
    m_faults.Set(kService, fault);
    if (fault.What() != Fault::Kind::Unreachable)
        return;
    const std::lock_guard lock(m_mutex);
    ++m_connectionNumber;
}

void RemoteEngine::ClearFaults() {
    m_faults.Clear();
}

void RemoteEngine::SetWaiter(Faults::Waiter waiter) {
    m_faults.SetWaiter(std::move(waiter));
}

bool RemoteEngine::Pass(const char* stub) {
    return m_faults.Pass(kService, stub);
}

std::uint32_t RemoteEngine::ConnectionNumber() const {
    const std::lock_guard lock(m_mutex);
    return m_connectionNumber;
}

std::vector<std::string> RemoteEngine::Problems() const {
    const std::lock_guard lock(m_mutex);
    std::vector<std::string> problems = m_problems;
    const std::vector<std::string> more = m_downLoads.Problems();
    problems.insert(problems.end(), more.begin(), more.end());
    return problems;
}

}  // namespace k4suite
