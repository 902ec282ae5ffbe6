#include <gmock/gmock.h>

#include "tests/clients/ClientTest.h"

namespace k4test {
namespace {

class GetSignSchedSeq : public ClientTest {
 protected:
    RecordingSSRpc::Reply& Reply() { return m_rpc.replies["k4ssGetSchedSeqStatus"]; }
    int Read() { return m_client.GetSignSchedSeq("Main", &schedule, &sequence, &word); }

    std::string schedule = "old schedule", sequence = "old sequence";
    std::uint32_t word = kUntouched;
};

TEST_F(GetSignSchedSeq, StoresScheduleSequenceAndWord) {
    Reply() = {"Day.SD4", "A.SQ4", {9}, 0, true};
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(schedule, "Day.SD4");
    EXPECT_EQ(sequence, "A.SQ4");
    EXPECT_EQ(word, 9U);
    EXPECT_EQ(m_rpc.calls, Calls{"k4ssGetSchedSeqStatus(Main, 261, 261)"});
}

TEST_F(GetSignSchedSeq, StoresAllOnFailureToo) {
    Reply() = {"Day.SD4", "", {9}, 0, true};
    m_rpc.results["k4ssGetSchedSeqStatus"] = 1;
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(schedule, "Day.SD4");
    EXPECT_EQ(sequence, "");
    EXPECT_EQ(word, 9U);
    EXPECT_EQ(m_client.GetLastError(), "Could not get sequence/schedule status from service");
}

TEST_F(GetSignSchedSeq, TheWordStartsAt0) {
    m_rpc.lastLengthBefore = 99;
    m_rpc.results["k4ssGetSchedSeqStatus"] = 1;
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(m_rpc.lastLengthBefore, 0U);
    EXPECT_EQ(word, 0U);
}

TEST_F(GetSignSchedSeq, AStubThatWritesNothingLeavesTheTexts) {
    schedule.assign(1000, 's');
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(schedule, std::string(1000, 's'));
    EXPECT_EQ(sequence, "old sequence");
}

TEST_F(GetSignSchedSeq, AFullBufferGives261Bytes) {
    Reply() = {std::string(5000, 'a'), std::string(261, 'b'), {}, 0, false};
    schedule.assign(1000, 's');
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(schedule, std::string(261, 'a'));
    EXPECT_EQ(sequence, std::string(261, 'b'));
}

TEST_F(GetSignSchedSeq, UnwantedOutputsMayBeNull) {
    Reply() = {"Day.SD4", "A.SQ4", {9}, 0, true};
    EXPECT_EQ(m_client.GetSignSchedSeq("Main", nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(m_client.GetSignSchedSeq("Main", nullptr, &sequence, nullptr), 1);
    EXPECT_EQ(sequence, "A.SQ4");
}

class GetFrameStatus : public ClientTest {};

TEST_F(GetFrameStatus, StoresTextModeAndFiveWords) {
    m_rpc.replies["k4ssGetFrameStatus"] = {"A.SQ4", "", {1, 2, 3, 4, 5}, 99, true};
    std::string text = "a longer text";
    std::uint32_t words[5] = {};
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    EXPECT_EQ(m_client.GetFrameStatus("Main", &text, &words[0], &words[1], &mode, &words[2],
                                      &words[3], &words[4]),
              1);
    EXPECT_EQ(text, "A.SQ4");
    EXPECT_EQ(mode, 99) << "the mode isn't normalised here";
    EXPECT_THAT(words, ::testing::ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(GetFrameStatus, TakesTheTextOverOnFailureToo) {
    m_rpc.replies["k4ssGetFrameStatus"].text = "A.SQ4";
    m_rpc.results["k4ssGetFrameStatus"] = 1;
    std::string text = "old";
    EXPECT_EQ(m_client.GetFrameStatus("Main", &text, nullptr, nullptr, nullptr, nullptr, nullptr,
                                      nullptr),
              0);
    EXPECT_EQ(text, "A.SQ4");
    EXPECT_EQ(m_client.GetLastError(), "Could not get frame status from service.");
}

TEST_F(GetFrameStatus, AStubThatWritesNothingLeavesTheText) {
    for (const std::size_t length : {0U, 3U, 1024U, 3000U}) {
        std::string text(length, 'x');
        EXPECT_EQ(m_client.GetFrameStatus("Main", &text, nullptr, nullptr, nullptr, nullptr,
                                          nullptr, nullptr),
                  1);
        EXPECT_EQ(text, std::string(length, 'x'));
    }
}

TEST_F(GetFrameStatus, AFullBufferGives1024Bytes) {
    m_rpc.replies["k4ssGetFrameStatus"].text.assign(5000, 'a');
    m_rpc.replies["k4ssGetFrameStatus"].terminate = false;
    std::string text;
    EXPECT_EQ(m_client.GetFrameStatus("Main", &text, nullptr, nullptr, nullptr, nullptr, nullptr,
                                      nullptr),
              1);
    EXPECT_EQ(text, std::string(1024, 'a'));
}

class GetDefaultSequence : public ClientTest {};

TEST_F(GetDefaultSequence, StoresTextModeAndParam) {
    m_rpc.replies["k4ssGetDefaultSequence"] = {"A.SQ4", "", {8}, 4, true};
    std::string text = "a longer text";
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    std::uint32_t param = 0;
    EXPECT_EQ(m_client.GetDefaultSequence("Main", &text, &mode, &param), 1);
    EXPECT_EQ(text, "A.SQ4");
    EXPECT_EQ(mode, K4_PLAY_SEQ_NUM_TIMES);
    EXPECT_EQ(param, 8U);
    EXPECT_EQ(m_rpc.calls, Calls{"k4ssGetDefaultSequence(Main, 270)"});
}

TEST_F(GetDefaultSequence, TakesTheTextOverOnFailureToo) {
    m_rpc.replies["k4ssGetDefaultSequence"].text = "A.SQ4";
    m_rpc.results["k4ssGetDefaultSequence"] = 1;
    std::string text = "old";
    EXPECT_EQ(m_client.GetDefaultSequence("Main", &text, nullptr, nullptr), 0);
    EXPECT_EQ(text, "A.SQ4");
    EXPECT_EQ(m_client.GetLastError(), "Could not get default sequence from sign service");
}

TEST_F(GetDefaultSequence, AFullBufferGives270Bytes) {
    m_rpc.replies["k4ssGetDefaultSequence"].text.assign(5000, 'a');
    m_rpc.replies["k4ssGetDefaultSequence"].terminate = false;
    std::string text;
    EXPECT_EQ(m_client.GetDefaultSequence("Main", &text, nullptr, nullptr), 1);
    EXPECT_EQ(text, std::string(270, 'a'));
    EXPECT_EQ(m_client.GetDefaultSequence("Main", nullptr, nullptr, nullptr), 1);
}

}  // namespace
}  // namespace k4test
