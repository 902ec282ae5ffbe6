#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/suite/remoteservice/RemoteRig.h"

namespace {

using k4cmn::NamedEvent;
using k4suite::Fault;
using k4suite::LineFault;
using k4suite::RemoteEngine;
using k4suite::RemoteRpc;
using k4test::RemoteRig;
using std::chrono::milliseconds;

// With the system's clock: nobody asks, and the link comes up all the same.
TEST(RemoteThreads, ALinkComesUpAndIsToldThoughNobodyAsks) {
    RemoteRig rig;
    RemoteEngine engine(rig.settings, rig.folder / "other.ini",
                        k4cmn::Provided<k4cmn::Clock>::Current(), rig.events);
    engine.SetDialingTime(milliseconds(30));
    for (int round = 0; round < 3; ++round) {
        const std::uint32_t handle = engine.Dial("Harbor");
        EXPECT_EQ(rig.listener->WaitFor(60'000), NamedEvent::Wait::Signalled);
        rig.listener->Reset();
        EXPECT_TRUE(engine.HangUp(handle));
        EXPECT_TRUE(rig.WasTold());
    }
}

TEST(RemoteThreads, AQuickDiallingIsToldInTimeThoughALongOneIsGoingOn) {
    RemoteRig rig;
    RemoteEngine engine(rig.settings, rig.folder / "other.ini",
                        k4cmn::Provided<k4cmn::Clock>::Current(), rig.events);
    engine.SetDialingTime(std::chrono::hours(1));
    engine.Dial("Harbor");
    engine.SetDialingTime(milliseconds(10));
    const auto begin = std::chrono::steady_clock::now();
    for (int round = 0; round < 3; ++round) {
        const std::uint32_t handle = engine.Dial("Airport");
        EXPECT_EQ(rig.listener->WaitFor(60'000), NamedEvent::Wait::Signalled);
        engine.HangUp(handle);
        rig.WasTold();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(1500));
}

TEST(RemoteThreads, AnEngineThatGoesWhileItDialsDoesntWait) {
    RemoteRig rig;
    rig.engine->SetDialingTime(std::chrono::hours(1));
    rig.engine->Dial("Harbor");
    rig.engine->Dial("Airport");
    const auto begin = std::chrono::steady_clock::now();
    rig.Restart();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(900));
}

TEST(RemoteThreads, ManyConnectionsHammerOneEngine) {
    RemoteRig rig;
    rig.engine->SetDialingTime(milliseconds(1));
    rig.engine->SetWaiter([](milliseconds) { std::this_thread::yield(); });
    std::atomic<int> failures = 0;
    const auto work = [&](int seed) {
        RemoteRpc rpc(*rig.engine);
        const char* entry = seed % 2 ? "Harbor" : "Airport";
        for (int round = 0; round < 100; ++round) {
            char buffer[261] = "";
            std::uint32_t word = 0;
            const std::uint32_t handle = rig.engine->Dial(entry);
            failures += handle == 0;
            failures += rpc.k4rsConnect(".") != 0;
            rig.clock.Advance(milliseconds(1));
            failures += rpc.k4rsGetChangeFlag(&word) != 0;
            failures += rpc.k4rsListServices(buffer, sizeof buffer, &word) != 0;
            failures += rpc.k4rsListConnectedPhoneEntries(buffer, sizeof buffer, &word) != 0;
            rig.engine->HangUp(handle);
            failures += !rig.engine->SetLineFault(entry, LineFault::None);
            rig.engine->Problems();
            failures += rpc.k4rsDisconnect() != 0;
        }
    };
    std::vector<std::thread> threads;
    for (int seed = 0; seed < 4; ++seed)
        threads.emplace_back(work, seed);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

TEST(RemoteThreads, FaultsComeAndGoWhileOthersCall) {
    RemoteRig rig;
    std::atomic<bool> stop = false;
    std::thread caller([&] {
        while (!stop) {
            std::uint32_t flag = 0;
            rig.rpc->k4rsGetChangeFlag(&flag);
            rig.rpc->k4rsConnect(".");
        }
    });
    for (int round = 0; round < 300; ++round) {
        rig.engine->SetFault(Fault::Unreachable());
        rig.engine->SetFault(Fault::FailingStub("k4rsGetChangeFlag"));
        rig.engine->ClearFaults();
    }
    stop = true;
    caller.join();
    ASSERT_EQ(rig.rpc->k4rsConnect("."), 0);
    EXPECT_EQ(rig.rpc->k4rsGetChangeFlag(nullptr), 0);
}

}  // namespace
