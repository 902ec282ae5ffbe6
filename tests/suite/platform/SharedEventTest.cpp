#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>

#include "suite/platform/SharedEvents.h"
#include "tests/support/NamedEventContract.h"
#include "tests/support/TempFolder.h"

namespace k4test {
namespace {

namespace fs = std::filesystem;
using k4cmn::NamedEvent;
using k4suite::DataHome;
using k4suite::SharedEvents;
using Wait = NamedEvent::Wait;

struct EventsOfAHome {
    TempFolder folder;
    SharedEvents events{DataHome(folder.Path())};
};

std::shared_ptr<k4cmn::NamedEvents> Make() {
    auto made = std::make_shared<EventsOfAHome>();
    return {made, &made->events};
}

INSTANTIATE_TEST_SUITE_P(Shared, NamedEventContract, testing::Values(&Make));

class SharedEventTest : public testing::Test {
 protected:
    /// Whether the memory of an event is there.
    bool IsThere(const std::string& name = "Event") const {
        return fs::exists("/dev/shm" + m_events.MemoryName(name));
    }
    /// Makes an event's memory by hand, with a content.
    void Leave(const std::string& content) const {
        const int file = shm_open(m_events.MemoryName("Event").c_str(), O_RDWR | O_CREAT, 0600);
        ASSERT_GE(file, 0);
        ASSERT_EQ(write(file, content.data(), content.size()),
                  static_cast<ssize_t>(content.size()));
        close(file);
    }

    TempFolder m_folder;
    SharedEvents m_events{DataHome(m_folder.Path())};
};

TEST_F(SharedEventTest, MemoryIsThereForItsUserAloneAndGoesWithTheLastParty) {
    EXPECT_FALSE(IsThere());
    auto first = m_events.CreateOrOpen("Event");
    auto second = m_events.CreateOrOpen("Event");
    ASSERT_TRUE(IsThere());
    struct stat status {};
    ASSERT_EQ(stat(("/dev/shm" + m_events.MemoryName("Event")).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    first.reset();
    EXPECT_TRUE(IsThere());
    second.reset();
    EXPECT_FALSE(IsThere());
}

TEST_F(SharedEventTest, IsNewAgainWhenAllPartiesHaveGone) {
    m_events.CreateOrOpen("Event")->Set();
    EXPECT_EQ(m_events.CreateOrOpen("Event")->WaitFor(0), Wait::TimedOut);
}

TEST_F(SharedEventTest, HomesDontDisturbEachOther) {
    const TempFolder elsewhere;
    SharedEvents others{DataHome(elsewhere.Path())};
    const auto one = m_events.CreateOrOpen("Event");
    const auto other = others.CreateOrOpen("Event");
    one->Set();
    EXPECT_EQ(other->WaitFor(0), Wait::TimedOut);
}

TEST_F(SharedEventTest, OneHomeIsOneByWhateverWayItIsNamed) {
    fs::create_directories(m_folder / "home");
    fs::create_directory_symlink(m_folder / "home", m_folder / "link");
    const std::string name = SharedEvents(DataHome(m_folder / "home")).MemoryName("Event");
    for (const char* way : {"home/", "./home", "home/../home", "link", "link/", "home/."}) {
        EXPECT_EQ(SharedEvents(DataHome(m_folder.Path() / way)).MemoryName("Event"), name) << way;
    }
    const fs::path relative = fs::relative(m_folder / "home");
    EXPECT_EQ(SharedEvents(DataHome(relative)).MemoryName("Event"), name);
    EXPECT_NE(SharedEvents(DataHome(m_folder / "other")).MemoryName("Event"), name);
}

TEST_F(SharedEventTest, AHomeThatIsMadeLaterIsTheSame) {
    const DataHome home(m_folder / "later");
    const std::string before = SharedEvents(home).MemoryName("Event");
    fs::create_directories(home.Path());
    EXPECT_EQ(SharedEvents(home).MemoryName("Event"), before);
}

TEST_F(SharedEventTest, ImpossibleNamesMakeNoEvent) {
    for (const std::string& name :
         {std::string(), std::string("a/b"), std::string("a b"), std::string("a\0b", 3),
          std::string("\xC3\xA9"), std::string("a\n"), std::string(201, 'x')})
        EXPECT_FALSE(m_events.CreateOrOpen(name)) << name;
    EXPECT_TRUE(m_events.CreateOrOpen(std::string(200, 'x')));
}

TEST_F(SharedEventTest, WhatWasLeftBehindIsMadeNew) {
    const std::string leftBehind[] = {"", "x", std::string(4, '\xFF'), std::string(100, '\xFF')};
    for (const std::string& content : leftBehind) {
        Leave(content);
        const auto event = m_events.CreateOrOpen("Event");
        ASSERT_TRUE(event) << content.size();
        EXPECT_EQ(event->WaitFor(0), Wait::TimedOut) << content.size();
        event->Set();
        EXPECT_EQ(event->WaitFor(0), Wait::Signalled) << content.size();
    }
}

TEST_F(SharedEventTest, MemoryThatCantBeOpenedMakesNoEvent) {
    Leave("");
    const std::string file = "/dev/shm" + m_events.MemoryName("Event");
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_FALSE(m_events.CreateOrOpen("Event"));
    fs::remove(file);
    EXPECT_TRUE(m_events.CreateOrOpen("Event"));
}

/// Runs something in a forked child, which ends without the rest of this program.
template <class Work>
void InForkedChild(const Work& work) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

TEST_F(SharedEventTest, AForkedChildThatEndsLeavesTheEventToItsParent) {
    auto event = m_events.CreateOrOpen("Event");
    InForkedChild([&] { event.reset(); });
    EXPECT_TRUE(IsThere());
    const auto other = m_events.CreateOrOpen("Event");
    event->Set();
    EXPECT_EQ(other->WaitFor(0), Wait::Signalled) << "still the same event";
    event.reset();
    EXPECT_TRUE(IsThere());
}

TEST_F(SharedEventTest, AForkedChildMaySignal) {
    const auto event = m_events.CreateOrOpen("Event");
    InForkedChild([&] { event->Set(); });
    EXPECT_EQ(event->WaitFor(0), Wait::Signalled);
}

TEST_F(SharedEventTest, AForkedChildThatOutlivesItsParentKeepsTheEvent) {
    int end[2];
    ASSERT_EQ(pipe(end), 0);
    InForkedChild([&] {
        const auto event = m_events.CreateOrOpen("Event");
        event->Set();
        if (fork() != 0)
            _exit(0);
        close(end[1]);
        char byte = 0;
        while (read(end[0], &byte, 1) > 0) {
        }
    });
    EXPECT_EQ(m_events.CreateOrOpen("Event")->WaitFor(0), Wait::Signalled);
    close(end[1]);
    close(end[0]);
    // The next party after its end takes away what it left.
    while (IsThere())
        m_events.CreateOrOpen("Event");
}

// A child whose files may have no content finds what a full disk gives.
TEST_F(SharedEventTest, WithoutRoomThereIsNoEventAndNothingIsLeft) {
    InForkedChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit none{0, 0};
        setrlimit(RLIMIT_FSIZE, &none);
        if (m_events.CreateOrOpen("Event") || IsThere())
            _exit(1);
    });
    EXPECT_FALSE(IsThere());
    EXPECT_TRUE(m_events.CreateOrOpen("Event"));
}

TEST_F(SharedEventTest, ASecondSignalIsHeardByWhoCameAfterTheFirst) {
    const auto service = m_events.CreateOrOpen("Event");
    const auto first = m_events.CreateOrOpen("Event");
    service->Set();
    const auto late = m_events.CreateOrOpen("Event");
    service->Set();
    first->Reset();
    EXPECT_EQ(late->WaitFor(0), Wait::Signalled) << "whatever others reset";
    EXPECT_EQ(late->WaitFor(0), Wait::TimedOut);
}

// The count of signals in the word runs over after a million of them.
TEST_F(SharedEventTest, CountsOnPastItsEnd) {
    const auto service = m_events.CreateOrOpen("Event");
    const auto listener = m_events.CreateOrOpen("Event");
    for (int count = 0; count < (1 << 20) - 1; ++count) {
        service->Set();
        service->Reset();
    }
    EXPECT_EQ(listener->WaitFor(0), Wait::Signalled);
    service->Set();
    service->Reset();
    EXPECT_EQ(listener->WaitFor(0), Wait::Signalled) << "the one that runs over";
    EXPECT_EQ(listener->WaitFor(0), Wait::TimedOut);
}

// Opened and closed all the time by others, an event is never torn apart: while one party holds it,
// all hold the same.
TEST_F(SharedEventTest, PartiesComeAndGoFromAllSides) {
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&, name = number % 2 ? "One" : "Two"] {
            for (int round = 0; round < 300; ++round) {
                const auto event = m_events.CreateOrOpen(name);
                const auto again = event ? m_events.CreateOrOpen(name) : nullptr;
                if (!event || !again) {
                    ++failures;
                    continue;
                }
                // Others reset it too, but nobody can take the signal from `again`.
                event->Set();
                failures += again->WaitFor(0) != Wait::Signalled;
                event->Reset();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
    EXPECT_FALSE(IsThere("One"));
    EXPECT_FALSE(IsThere("Two"));
}

}  // namespace
}  // namespace k4test
