#include <cstring>
#include <functional>

#include "tests/clients/ClientTest.h"

namespace k4test {
namespace {

class PassThrough : public ClientTest {};

TEST_F(PassThrough, WordsReachTheCallersPointers) {
    for (const char* stub : {"k4ssGetChangeFlag", "k4ssGetSchedChangeFlag", "k4ssGetPhotocell",
                             "k4ssGetTemperatureFreq", "k4ssGetDefaultSeqFlag"})
        m_rpc.replies[stub].words = {0xFFFFFFFE};
    std::uint32_t flag = 0, schedule = 0, photocell = 0, frequency = 0, playing = 0;
    EXPECT_EQ(m_client.GetChangeFlag("Main", &flag), 1);
    EXPECT_EQ(m_client.GetSchedChangeFlag("Main", &schedule), 1);
    EXPECT_EQ(m_client.GetPhotocellStatus("Main", &photocell), 1);
    EXPECT_EQ(m_client.GetTemperatureFreq(0xFFFFFFFF, &frequency), 1);
    EXPECT_EQ(m_client.GetDefaultSeqFlag("Main", &playing), 1);
    for (const std::uint32_t word : {flag, schedule, photocell, frequency, playing})
        EXPECT_EQ(word, 0xFFFFFFFE);
    EXPECT_EQ(m_rpc.calls[3], "k4ssGetTemperatureFreq(4294967295)");
}

TEST_F(PassThrough, NullPointersReachTheStubs) {
    struct Row {
        const char* name;
        std::size_t nulls;  ///< that reach the stub
        std::function<int(CK4CmnSS&)> call;
    };
    constexpr auto none = nullptr;
    std::uint32_t word = 0;
    const Row rows[] = {
        {"change flag", 1, [&](auto& c) { return c.GetChangeFlag("Main", none); }},
        {"schedule change flag", 1, [&](auto& c) { return c.GetSchedChangeFlag("Main", none); }},
        {"photocell", 1, [&](auto& c) { return c.GetPhotocellStatus("Main", none); }},
        {"temperature", 1, [&](auto& c) { return c.GetTemperatureFreq(0, none); }},
        {"effect", 3, [&](auto& c) { return c.GetEffectStatus("Main", none, none, none); }},
        {"effect's length", 2,
         [&](auto& c) { return c.GetEffectStatus("Main", none, none, &word); }},
        {"schedule", 3, [&](auto& c) { return c.GetSchedule("Main", none, none, none); }},
        {"schedule's word", 2, [&](auto& c) { return c.GetSchedule("Main", &word, none, none); }},
        {"DIB", 2, [&](auto& c) { return c.GetDIB("Main", none, 0, none); }},
        {"bulb data", 3, [&](auto& c) { return c.GetBulb("Main", none, 0, none, none); }},
        {"default sequence flag", 1, [&](auto& c) { return c.GetDefaultSeqFlag("Main", none); }},
        {"frame status", 7,
         [&](auto& c) {
             return c.GetFrameStatus("Main", none, none, none, none, none, none, none);
         }},
        {"default sequence but its text", 2,
         [&](auto& c) { return c.GetDefaultSequence("Main", none, none, none); }},
        {"running names have room of their own", 0,
         [&](auto& c) { return c.GetSignSchedSeq("Main", none, none, none); }},
        {"a wanted flag", 0, [&](auto& c) { return c.GetChangeFlag("Main", &word); }},
    };
    for (const Row& row : rows) {
        m_rpc.calls.clear();
        EXPECT_EQ(row.call(m_client), 1) << row.name;
        EXPECT_EQ(m_rpc.lastNullOutputs, row.nulls) << row.name;
        EXPECT_EQ(m_rpc.calls.size(), 1U) << row.name;
    }
}

TEST_F(PassThrough, ChangeFlagOfAServiceTakesAnyWait) {
    m_rpc.replies["k4ssGetChangeFlag"].words = {5};
    for (const std::uint32_t wait : {0U, 750U, 0xFFFFFFFFU}) {
        std::uint32_t flag = 0;
        EXPECT_EQ(m_client.GetChangeFlag("Alpha", "Main", &flag, wait), 1);
        EXPECT_EQ(flag, 5U);
    }
}

TEST_F(PassThrough, BytesReachTheCallersBuffers) {
    const auto reply = [](const char* text, std::uint32_t first, std::uint32_t second) {
        return RecordingSSRpc::Reply{std::string(text, 3), "", {first, second}, 0, false};
    };
    m_rpc.replies["k4ssGetEffectStatus"] = reply("\x01\0\xFF", 11, 12);
    m_rpc.replies["k4ssGetSchedule"] = reply("\x02\0\xFE", 21, 22);
    m_rpc.replies["k4ssGetBulb"] = reply("\x03\0\xFD", 31, 32);
    m_rpc.replies["k4ssGetDIB"] = reply("\x04\0\xFC", 0, 0);
    std::uint8_t bytes[3];
    char dib[3] = {};
    std::uint32_t first = 0, second = 0;
    const auto reset = [&] {
        std::memset(bytes, 0, 3);
        first = second = kUntouched;
    };
    const auto taken = [&] { return std::string(reinterpret_cast<char*>(bytes), 3); };

    reset();
    EXPECT_EQ(m_client.GetEffectStatus("Main", &first, bytes, &second), 1);
    EXPECT_EQ(taken(), std::string("\x01\0\xFF", 3));
    EXPECT_EQ(first, 11U);
    EXPECT_EQ(second, 12U);
    reset();
    EXPECT_EQ(m_client.GetSchedule("Main", &first, bytes, &second), 1);
    EXPECT_EQ(taken(), std::string("\x02\0\xFE", 3));
    EXPECT_EQ(first, 21U);
    EXPECT_EQ(second, 22U);
    reset();
    EXPECT_EQ(m_client.GetBulb("Main", bytes, 3, &first, &second), 1);
    EXPECT_EQ(taken(), std::string("\x03\0\xFD", 3));
    EXPECT_EQ(first, 31U);
    EXPECT_EQ(second, 32U);
    reset();
    EXPECT_EQ(m_client.GetDIB("Main", dib, 3, &first), 1);
    EXPECT_EQ(std::string(dib, 3), std::string("\x04\0\xFC", 3));
    EXPECT_EQ(first, 3U);
    EXPECT_EQ(m_rpc.calls.back(), "k4ssGetDIB(Main, 3)");
}

TEST_F(PassThrough, AFailedConnectionTouchesNothing) {
    m_rpc.results["k4ssConnectSignAsUser"] = 1;
    for (const char* stub : {"k4ssGetStatus", "k4ssGetSchedSeqStatus", "k4ssGetDefaultSequence"})
        m_rpc.replies[stub] = {"new\tnew", "new", {1, 2, 3}, 4, true};
    std::string text = "old";
    std::string text2 = "old";
    std::uint32_t word = kUntouched;
    EXPECT_EQ(m_client.GetSignStatus("Alpha", "Main", &text, &text2, &word, nullptr, &word, &word),
              0);
    EXPECT_EQ(m_client.GetSignSchedSeq("Alpha", "Main", &text, &text2, &word), 0);
    EXPECT_EQ(m_client.GetDefaultSequence("Alpha", "Main", &text, nullptr, &word), 0);
    EXPECT_EQ(text, "old");
    EXPECT_EQ(text2, "old");
    EXPECT_EQ(word, kUntouched);
}

}  // namespace
}  // namespace k4test
