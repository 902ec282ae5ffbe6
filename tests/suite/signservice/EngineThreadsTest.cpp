#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/suite/signservice/EngineRig.h"

namespace {

using k4suite::EngineRpc;
using k4suite::Fault;
using k4test::EngineRig;

TEST(EngineThreads, ManyConnectionsHammerOneEngine) {
    EngineRig rig;
    std::atomic<int> failures = 0;
    const auto check = [&](std::int32_t result) { failures += result != 0; };
    const auto work = [&](int seed) {
        EngineRpc rpc(*rig.engine);
        for (int round = 0; round < 60; ++round) {
            const bool north = (round + seed) % 2 != 0;
            const char* sign = north ? "Gate" : "Main";
            check(rpc.k4ssConnectSignAsUser(north ? "North" : ".", nullptr, nullptr, nullptr));
            check(rpc.k4ssSetDimming(sign, K4_SIGN_DIM_MANUAL, round));
            check(rpc.k4ssPlaySequence(sign, "S:\\show.SQ4", K4_PLAY_SEQ_NUM_TIMES, 1));
            check(rpc.k4ssWindowEnable(sign, 1, round % 2));
            std::vector<char> picture(1 << 14);
            std::uint32_t length = 0;
            check(rpc.k4ssGetDIB(sign, picture.data(), 1 << 14, &length));
            check(rpc.k4ssGetChangeFlag(sign, &length));
            rpc.k4ssQueueSequence(sign, "Test Pattern.SQ4", K4_PLAY_SEQ_PLAY_NEXT, 0);
            char buffer[1024];
            check(rpc.k4ssGetQueue(sign, buffer, 1024, &length));
            check(rpc.k4ssGetStatus(sign, buffer, 1024, &length));
            rig.clock.Advance(std::chrono::milliseconds(777));
            check(rpc.k4ssDisconnectSign());
        }
    };
    std::vector<std::thread> threads;
    for (int seed = 0; seed < 4; ++seed)
        threads.emplace_back(work, seed);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
    EXPECT_TRUE(rig.engine->Problems().empty());
}

TEST(EngineThreads, FaultsComeAndGoWhileOthersCall) {
    EngineRig rig;
    rig.engine->SetWaiter([](std::chrono::milliseconds) { std::this_thread::yield(); });
    std::atomic<bool> stop = false;
    std::atomic<int> answers = 0;
    std::thread caller([&] {
        while (!stop) {
            std::uint32_t flag = 0;
            rig.rpc->k4ssGetChangeFlag("Main", &flag);
            rig.rpc->k4ssConnectSignAsUser("North", nullptr, nullptr, nullptr);
            rig.rpc->k4ssConnectSignAsUser(".", nullptr, nullptr, nullptr);
            rig.engine->Problems();
            ++answers;
        }
    });
    for (int round = 0; round < 300 || answers < 100; ++round) {
        rig.engine->SetFault("Local", Fault::Unreachable());
        rig.engine->SetFault("North", Fault::Slow(std::chrono::milliseconds(1)));
        rig.engine->SetFault("Local", Fault::FailingStub("k4ssPing"));
        rig.engine->ClearFaults();
        rig.engine->SetWaiter([](std::chrono::milliseconds) { std::this_thread::yield(); });
    }
    stop = true;
    caller.join();
    ASSERT_EQ(rig.rpc->k4ssConnectSignAsUser(".", nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(rig.rpc->k4ssPing(), 0);
}

}  // namespace
