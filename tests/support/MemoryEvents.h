#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/NamedEvent.h"

namespace k4test {

/// Named events of this process alone, which tell how they are used. Any thread.
class MemoryEvents final : public k4cmn::NamedEvents {
    struct Event {
        std::mutex guard;
        std::condition_variable changed;
        bool isSignalled = false;
        std::uint64_t signals = 0;  ///< how many times it became signalled
        std::vector<std::string> steps;
        std::map<std::uint32_t, int> waits;
    };

    class Party final : public k4cmn::NamedEvent {
     public:
        explicit Party(std::shared_ptr<Event> event) : m_event(std::move(event)) {
            const std::lock_guard lock(m_event->guard);
            m_told = m_event->signals;
        }

        int Set() override {
            const std::lock_guard lock(m_event->guard);
            m_event->signals += !m_event->isSignalled;
            m_event->isSignalled = true;
            m_event->changed.notify_all();
            return 1;
        }
        int Reset() override {
            const std::lock_guard lock(m_event->guard);
            m_event->isSignalled = false;
            m_event->steps.push_back("reset");
            m_told = m_event->signals;
            return 1;
        }
        Wait WaitFor(std::uint32_t milliseconds) override {
            std::unique_lock lock(m_event->guard);
            ++m_event->waits[milliseconds];
            m_event->changed.notify_all();
            m_event->changed.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] {
                return m_isAbandoned || m_event->isSignalled || m_told != m_event->signals;
            });
            if (m_isAbandoned)
                return Wait::Abandoned;
            if (!m_event->isSignalled && m_told == m_event->signals)
                return Wait::TimedOut;
            m_told = m_event->signals;
            m_event->steps.push_back("signalled");
            return Wait::Signalled;
        }
        void Abandon() override {
            const std::lock_guard lock(m_event->guard);
            m_isAbandoned = true;
            m_event->changed.notify_all();
        }

     private:
        std::shared_ptr<Event> m_event;
        std::uint64_t m_told = 0;
        bool m_isAbandoned = false;
    };

 public:
    std::vector<std::string> made;  ///< names that were asked for

    std::unique_ptr<k4cmn::NamedEvent> CreateOrOpen(const std::string& name) override {
        made.push_back(name);
        return std::make_unique<Party>(Of(name));
    }

    /// What the parties of an event did: "signalled" where a wait found it so, "reset".
    std::vector<std::string> Steps(const std::string& name) {
        const std::shared_ptr<Event> event = Of(name);
        const std::lock_guard lock(event->guard);
        return event->steps;
    }
    void AddStep(const std::string& name, const std::string& step) {
        const std::shared_ptr<Event> event = Of(name);
        const std::lock_guard lock(event->guard);
        event->steps.push_back(step);
    }
    /// How many waits of that time-out have begun.
    int Waits(const std::string& name, std::uint32_t milliseconds) {
        const std::shared_ptr<Event> event = Of(name);
        const std::lock_guard lock(event->guard);
        return event->waits[milliseconds];
    }

 private:
    std::shared_ptr<Event> Of(const std::string& name) {
        const std::lock_guard lock(m_guard);
        std::shared_ptr<Event>& event = m_events[name];
        if (!event)
            event = std::make_shared<Event>();
        return event;
    }

    std::mutex m_guard;
    std::map<std::string, std::shared_ptr<Event>> m_events;
};

}  // namespace k4test
