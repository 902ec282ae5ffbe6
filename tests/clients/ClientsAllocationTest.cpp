#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "tests/support/CountedMemory.h"
#include "tests/support/TrivialSSRpc.h"

namespace k4test {
namespace {

// Longer than what a text holds without taking memory.
const std::string kSign = "a sign with a name of some length";
const std::string kFile = "a sequence with a name of some length.SQ4";

std::uint32_t word, word2, word3;
std::int32_t number, number2, number3;
tag_K4_PLAY_SEQ_MODE mode;
tag_K4_SIGN_COLOR color;
tag_K4_PIXEL_TECH pixel;
tag_K4_SIGN_DIM_MODE dimMode;
K4_DISPLAY_QUEUE queue[8];
char dib[16];
std::uint8_t bytes[16];

struct Row {
    const char* name;
    const char* reply;
    int (*call)(CK4CmnSS&);
};

const Row kNumberOperations[] = {
    {"GetChangeFlag", "", [](CK4CmnSS& c) { return c.GetChangeFlag(kSign, &word); }},
    {"GetSchedChangeFlag", "", [](CK4CmnSS& c) { return c.GetSchedChangeFlag(kSign, &word); }},
    {"GetPhotocellStatus", "", [](CK4CmnSS& c) { return c.GetPhotocellStatus(kSign, &word); }},
    {"GetTemperatureFreq", "", [](CK4CmnSS& c) { return c.GetTemperatureFreq(1, &word); }},
    {"GetDefaultSeqFlag", "", [](CK4CmnSS& c) { return c.GetDefaultSeqFlag(kSign, &word); }},
    {"GetEffectStatus", "",
     [](CK4CmnSS& c) { return c.GetEffectStatus(kSign, &word, bytes, &word2); }},
    {"GetSchedule", "", [](CK4CmnSS& c) { return c.GetSchedule(kSign, &word, bytes, &word2); }},
    {"GetDIB", "", [](CK4CmnSS& c) { return c.GetDIB(kSign, dib, 16, &word); }},
    {"GetBulb", "", [](CK4CmnSS& c) { return c.GetBulb(kSign, bytes, 16, &word, &word2); }},
    {"GetSignStatus", "Playing\tA.SQ4\t1\t4\t5\t6",
     [](CK4CmnSS& c) {
         return c.GetSignStatus(kSign, nullptr, nullptr, &word, &mode, &word2, &word3);
     }},
    {"GetSignStatus of long fields",
     "a status of more than a few bytes\ta sequence with a name of some length.SQ4\t"
     "00000000000000000000000000000001\t4\t5\t6",
     [](CK4CmnSS& c) {
         return c.GetSignStatus(kSign, nullptr, nullptr, &word, &mode, &word2, &word3);
     }},
    {"GetSignConfig", "48\t96\t11\t3\t0\t5\t0\t200\t-12",
     [](CK4CmnSS& c) {
         return c.GetSignConfig(kSign, &word, &word2, &color, &pixel, &dimMode, &number, &number2);
     }},
    {"GetSignSchedSeq", "",
     [](CK4CmnSS& c) { return c.GetSignSchedSeq(kSign, nullptr, nullptr, &word); }},
    {"GetFrameStatus", "",
     [](CK4CmnSS& c) {
         return c.GetFrameStatus(kSign, nullptr, &word, &word2, &mode, &word3, nullptr, nullptr);
     }},
    {"GetDefaultSequence", "",
     [](CK4CmnSS& c) { return c.GetDefaultSequence(kSign, nullptr, &mode, &word); }},
    {"GetWindowState", "a sign with a long name\t1\t2\t3\n",
     [](CK4CmnSS& c) { return c.GetWindowState(kSign, 1, &number, &number2, &number3, nullptr); }},
    {"GetQueue", "1\ta sequence with a long name\t4\t7\n",
     [](CK4CmnSS& c) { return c.GetQueue(kSign, queue, 8); }},
    {"PlaySequence", "",
     [](CK4CmnSS& c) { return c.PlaySequence(kSign, kFile, K4_PLAY_SEQ_CONTINUOUS, 1); }},
    {"PlayFile", "",
     [](CK4CmnSS& c) { return c.PlayFile(kSign, kFile, K4_PLAY_SEQ_CONTINUOUS, 1); }},
    {"PlaySchedule", "", [](CK4CmnSS& c) { return c.PlaySchedule(kSign, kFile); }},
    {"PlayScript", "", [](CK4CmnSS& c) { return c.PlayScript(kSign, kFile); }},
    {"CheckSequence", "",
     [](CK4CmnSS& c) { return c.CheckSequence(kSign, kFile, K4_PLAY_SEQ_CONTINUOUS, 1); }},
    {"SetDefaultSequence", "",
     [](CK4CmnSS& c) { return c.SetDefaultSequence(kSign, kFile, K4_PLAY_SEQ_CONTINUOUS, 1); }},
    {"QueueSequence", "",
     [](CK4CmnSS& c) { return c.QueueSequence(kSign, kFile, K4_PLAY_SEQ_CONTINUOUS, 1); }},
    {"SelectFrame", "", [](CK4CmnSS& c) { return c.SelectFrame(kSign, 1); }},
    {"SingleStep", "", [](CK4CmnSS& c) { return c.SingleStep(kSign, 1); }},
    {"StopSequence", "", [](CK4CmnSS& c) { return c.StopSequence(kSign); }},
    {"BlankSign", "", [](CK4CmnSS& c) { return c.BlankSign(kSign); }},
    {"EndSchedule", "", [](CK4CmnSS& c) { return c.EndSchedule(kSign); }},
    {"EndScript", "", [](CK4CmnSS& c) { return c.EndScript(kSign); }},
    {"SetDimming", "", [](CK4CmnSS& c) { return c.SetDimming(kSign, K4_SIGN_DIM_MANUAL, 300); }},
    {"SetWindowState", "", [](CK4CmnSS& c) { return c.SetWindowState(kSign, 1, 1, 2, 3, kSign); }},
    {"QueueWindowState", "",
     [](CK4CmnSS& c) { return c.QueueWindowState(kSign, 1, 1, 2, 3, kSign); }},
    {"ClearQueue", "", [](CK4CmnSS& c) { return c.ClearQueue(kSign); }},
    {"NextItem", "", [](CK4CmnSS& c) { return c.NextItem(kSign); }},
};

TEST(Allocations, AreCountedHere) {
    const std::size_t before = Allocations();
    // Of a length that no optimiser knows.
    const std::string text(before + 100, 'x');
    EXPECT_GT(Allocations(), before);
}

TEST(Allocations, APlainNumberOperationMakesNoneOnSuccess) {
    TrivialSSRpc rpc;
    const k4cmn::ScopedProvider<K4SSRpc> provider(rpc);
    for (const Row& row : kNumberOperations) {
        CK4CmnSS fresh;
        rpc.text = row.reply;
        const std::size_t before = Allocations();
        const int result = row.call(fresh);
        const std::size_t made = Allocations() - before;
        EXPECT_EQ(result, 1) << row.name;
        EXPECT_EQ(made, 0U) << row.name;
    }
}

// The first thing that a service overload takes memory for is the name of the service.
TEST(Allocations, AServiceOverloadWithoutMemoryIsUnavailableAndLeavesTheLockFree) {
    TrivialSSRpc rpc;
    const k4cmn::ScopedProvider<K4SSRpc> provider(rpc);
    const std::string service = "a machine with a name of some length";
    CK4CmnSS client;
    FailAllocation(1);
    EXPECT_EQ(client.StopSequence(service, kSign), 0);
    EXPECT_EQ(AllocationsUntilFailure(), 0u) << "took no memory";
    FailAllocation(1);
    EXPECT_EQ(client.GetChangeFlag(service, kSign, &word, 0), 0);
    EXPECT_EQ(AllocationsUntilFailure(), 0u) << "took no memory";

    // Would hang here with the lock still held.
    std::string words;
    std::thread([&] { words = client.GetLastError(); }).join();
    EXPECT_EQ(words, "Sign service unavailable.");
    EXPECT_EQ(client.StopSequence(service, kSign), 1);
}

}  // namespace
}  // namespace k4test
