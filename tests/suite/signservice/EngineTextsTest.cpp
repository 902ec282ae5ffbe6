#include <gtest/gtest.h>

#include <functional>

#include "suite/signservice/ReplyText.h"
#include "tests/suite/signservice/EngineRig.h"
#include "tests/support/GuardedBytes.h"

namespace {

using k4test::EngineRig;
using k4test::GuardedBytes;

struct TextStub {
    const char* name;
    bool isList;
    std::function<std::int32_t(k4suite::EngineRpc&, char*, std::uint32_t, std::uint32_t*)> call;
};

std::vector<TextStub> TextStubs() {
    using Rpc = k4suite::EngineRpc;
    return {
        {"ListSigns", true, [](Rpc& rpc, auto... out) { return rpc.k4ssListSigns(out...); }},
        {"Status", false, [](Rpc& rpc, auto... out) { return rpc.k4ssGetStatus("Main", out...); }},
        {"Config", false, [](Rpc& rpc, auto... out) { return rpc.k4ssGetConfig("Main", out...); }},
        {"Windows", true,
         [](Rpc& rpc, auto... out) { return rpc.k4ssListWindows("Main", out...); }},
        {"Queue", true, [](Rpc& rpc, auto... out) { return rpc.k4ssGetQueue("Main", out...); }},
        {"Default", false,
         [](Rpc& rpc, char* buffer, std::uint32_t capacity, std::uint32_t* length) {
             *length = capacity;
             return rpc.k4ssGetDefaultSequence("Main", buffer, length, nullptr, nullptr);
         }},
        {"Running schedule", false,
         [](Rpc& rpc, char* buffer, std::uint32_t capacity, std::uint32_t* length) {
             *length = capacity;
             return rpc.k4ssGetSchedSeqStatus("Main", buffer, length, nullptr, nullptr, nullptr);
         }},
        {"Running sequence", false,
         [](Rpc& rpc, char* buffer, std::uint32_t capacity, std::uint32_t* length) {
             *length = capacity;
             return rpc.k4ssGetSchedSeqStatus("Main", nullptr, nullptr, buffer, length, nullptr);
         }},
    };
}

/// Everything has a text to give.
void FillReplies(EngineRig& rig) {
    ASSERT_EQ(rig.Play("S:\\show.SQ4", K4_PLAY_SEQ_CONTINUOUS), 0);
    ASSERT_EQ(rig.rpc->k4ssRunSchedule("Main", "S:\\day.SD4", 0), 0);
    for (int count = 0; count < 64; ++count)
        ASSERT_EQ(rig.rpc->k4ssQueueSequence("Main", "S:\\show.SQ4", K4_PLAY_SEQ_NUM_TIMES, 7), 0);
}

TEST(EngineTexts, EveryCapacityGetsAZeroEndedBeginningOfTheReply) {
    EngineRig rig;
    FillReplies(rig);
    for (const TextStub& stub : TextStubs()) {
        GuardedBytes whole(2048);
        std::uint32_t wholeLength = 0;
        ASSERT_EQ(stub.call(*rig.rpc, whole.Data(), whole.Capacity(), &wholeLength), 0);
        const std::string reply = whole.Data();
        ASSERT_FALSE(reply.empty()) << stub.name;
        ASSERT_EQ(reply.size(), wholeLength) << stub.name;
        for (std::uint32_t capacity = 0; capacity <= 1100; ++capacity) {
            GuardedBytes buffer(capacity);
            std::uint32_t length = 9999;
            ASSERT_EQ(stub.call(*rig.rpc, buffer.Data(), capacity, &length), 0);
            ASSERT_TRUE(buffer.IsIntact()) << stub.name << " with " << capacity;
            if (capacity == 0) {
                ASSERT_EQ(length, 0U) << stub.name;
                continue;
            }
            ASSERT_TRUE(buffer.IsTerminated()) << stub.name << " with " << capacity;
            const std::string text = buffer.Data();
            ASSERT_EQ(text.size(), length) << stub.name << " with " << capacity;
            ASSERT_TRUE(reply.starts_with(text)) << stub.name << " with " << capacity;
            if (stub.isList) {
                ASSERT_TRUE(text.empty() || text.back() == '\n') << stub.name << " " << capacity;
                // The next line would not have fitted.
                const std::size_t next = reply.find('\n', text.size());
                ASSERT_TRUE(next == std::string::npos || next + 1 > capacity - 1)
                    << stub.name << " with " << capacity;
            } else {
                ASSERT_EQ(text.size(), std::min<std::size_t>(reply.size(), capacity - 1))
                    << stub.name << " with " << capacity;
            }
        }
    }
}

TEST(EngineTexts, AQueueReplyStaysWithin1024BytesWhateverTheBuffer) {
    EngineRig rig;
    FillReplies(rig);
    GuardedBytes buffer(4096);
    std::uint32_t length = 0;
    ASSERT_EQ(rig.rpc->k4ssGetQueue("Main", buffer.Data(), 4096, &length), 0);
    const std::string line = "1\tS:\\show.SQ4\t4\t7\n";
    EXPECT_EQ(length, 1023 / line.size() * line.size());
}

TEST(EngineTexts, NullBuffersAreAcceptedWhateverTheirCapacity) {
    EngineRig rig;
    FillReplies(rig);
    for (const TextStub& stub : TextStubs()) {
        std::uint32_t length = 9;
        EXPECT_EQ(stub.call(*rig.rpc, nullptr, 1024, &length), 0) << stub.name;
        EXPECT_EQ(length, 0U) << stub.name;
    }
}

TEST(EngineTexts, ATextIsntCutInsideACharacter) {
    struct Row {
        std::uint32_t capacity;
        const char* expected;
    };
    // The text has characters of one, two, three and four bytes.
    const std::string text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
    constexpr Row rows[] = {
        {1, ""},
        {2, "a"},
        {3, "a"},
        {4, "a\xC3\xA4"},
        {6, "a\xC3\xA4"},
        {7, "a\xC3\xA4\xE2\x82\xAC"},
        {10, "a\xC3\xA4\xE2\x82\xAC"},
        {11, "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {50, "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
    };
    for (const Row& row : rows) {
        GuardedBytes buffer(row.capacity);
        std::uint32_t length = 0;
        k4suite::PutText(text, buffer.Data(), row.capacity, &length);
        EXPECT_STREQ(buffer.Data(), row.expected) << row.capacity;
        EXPECT_EQ(length, std::string(row.expected).size());
        EXPECT_TRUE(buffer.IsIntact());
    }
}

TEST(EngineTexts, TheConfigurationTellsTheSettings) {
    k4suite::MachineSettings settings = k4test::RigSettings();
    settings.services[0].signs[0].settings.orientation = K4_OUTPUT_ORIENTATION_MIRRORED;
    EngineRig rig(settings);
    EXPECT_EQ(rig.Config(),
              (std::vector<std::string>{"32", "64", "11", "3", "2", "5", "100", "255", "0"}));
    EXPECT_EQ(rig.Config("Disc"),
              (std::vector<std::string>{"7", "17", "0", "2", "0", "5", "100", "255", "0"}));
}

TEST(EngineTexts, ASignOutOfTheBoxHas16ClosedWindowsWithSignsInTurnAtTheUpperLeft) {
    EngineRig rig;
    const char* const smaller[] = {"Small", "Strip", "Quad", "Disc", "Packed"};
    for (std::size_t window = 1; window <= 16; ++window)
        EXPECT_EQ(rig.Window(window),
                  (std::vector<std::string>{smaller[(window - 1) % 5], "0", "0", "0"}))
            << window;
}

TEST(EngineTexts, ASignWithoutSmallerOnesShowsOthersAndOneAloneItself) {
    EngineRig rig;
    EXPECT_EQ(rig.Window(1, "Disc")[0], "Main") << "nothing smaller: any other";
    EXPECT_EQ(rig.Window(2, "Disc")[0], "Small");
    ASSERT_EQ(rig.rpc->k4ssConnectSignAsUser("North", nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(rig.Window(16, "Gate")[0], "Gate 2") << "a sign of the same size isn't smaller";
    ASSERT_EQ(rig.rpc->k4ssConnectSignAsUser("Far", nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(rig.Window(1, "Alone")[0], "Alone");
}

TEST(EngineTexts, AWindowListOfLongNamesIsCutBehindALine) {
    k4suite::MachineSettings settings = k4test::RigSettings();
    settings.services[0].signs[1].name = std::string(200, 'n');
    settings.services[0].signs.resize(2);
    EngineRig rig(settings);
    const std::string text = rig.Text(&k4suite::EngineRpc::k4ssListWindows, "Main");
    EXPECT_EQ(k4test::SplitAt(text, '\n').size(), 5U) << "four whole lines";
    EXPECT_EQ(text.back(), '\n');
}

TEST(EngineTexts, PhotocellAndTemperatureFollowTheDay) {
    EngineRig rig;
    using namespace std::chrono;
    std::uint32_t noon = 0;
    std::uint32_t night = 0;
    std::uint32_t warm = 0;
    std::uint32_t cold = 0;
    const auto at = [&](hours hour) {
        rig.clock.Set(k4cmn::Clock::TimePoint(floor<days>(rig.clock.Now()).time_since_epoch()) +
                      hour);
    };
    at(hours(12));
    ASSERT_EQ(rig.rpc->k4ssGetPhotocell("Main", &noon), 0);
    at(hours(17));
    ASSERT_EQ(rig.rpc->k4ssGetTemperatureFreq(0, &warm), 0);
    at(hours(5));
    ASSERT_EQ(rig.rpc->k4ssGetTemperatureFreq(0, &cold), 0);
    at(hours(2));
    ASSERT_EQ(rig.rpc->k4ssGetPhotocell("Main", &night), 0);
    EXPECT_GE(noon, 180U);
    EXPECT_LE(noon, 255U);
    EXPECT_LE(night, 10U);
    EXPECT_EQ(warm, 2960U);
    EXPECT_EQ(cold, 2800U);
}

TEST(EngineTexts, TemperatureHasFourSensors) {
    EngineRig rig;
    std::uint32_t before = 0;
    for (std::uint32_t sensor = 0; sensor < 4; ++sensor) {
        std::uint32_t frequency = 0;
        EXPECT_EQ(rig.rpc->k4ssGetTemperatureFreq(sensor, &frequency), 0) << sensor;
        EXPECT_GT(frequency, before) << sensor;
        before = frequency;
    }
    EXPECT_NE(rig.rpc->k4ssGetTemperatureFreq(4, &before), 0);
    EXPECT_NE(rig.rpc->k4ssGetTemperatureFreq(0xFFFFFFFF, &before), 0);
}

TEST(EngineTexts, EffectStatusSaysThatThereIsNone) {
    EngineRig rig;
    std::uint32_t word = 7;
    std::uint32_t length = 100;
    std::uint8_t bytes[1] = {0x5A};
    EXPECT_EQ(rig.rpc->k4ssGetEffectStatus("Main", &word, bytes, &length), 0);
    EXPECT_EQ(word, 0U);
    EXPECT_EQ(length, 0U);
    EXPECT_EQ(bytes[0], 0x5A);
}

}  // namespace
