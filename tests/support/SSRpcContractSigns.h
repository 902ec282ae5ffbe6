#pragma once

// A part of tests/support/SSRpcContract.h: what a sign does and reports. Include that one.

namespace k4test {

TEST_P(SSRpcContract, TheListOfSignsHoldsTheSignOnALineOfItsOwn) {
    Connect();
    std::string reply(513, '\0');
    std::uint32_t length = 0;
    ASSERT_EQ(m_rpc.k4ssListSigns(reply.data(), 512, &length), 0);
    const std::vector<std::string> signs = Split(reply.c_str(), "\n");
    EXPECT_EQ(std::count(signs.begin(), signs.end(), m_fixture.sign), 1);
}

TEST_P(SSRpcContract, TheStatusHasSixFields) {
    Connect();
    const std::vector<std::string> fields =
        Fields(Reply([this](auto... out) { return m_rpc.k4ssGetStatus(Sign(), out...); }));
    ASSERT_EQ(fields.size(), 6U);
    for (const std::size_t number : {2U, 3U, 4U, 5U})
        EXPECT_FALSE(fields[number].empty()) << number;
    EXPECT_LE(std::stol(fields[3]), K4_PLAY_SEQ_LAST);
}

TEST_P(SSRpcContract, TheConfigurationHasNineFieldsWithinTheirBounds) {
    struct Row {
        const char* what;
        std::size_t field;
        long lowest, highest;
    };
    constexpr Row rows[] = {
        {"rows", 0, 1, 1 << 20},          {"columns", 1, 1, 1 << 20}, {"color", 2, 0, 15},
        {"pixel technology", 3, 1, 3},    {"dimming mode", 5, 0, 5},  {"dimming level", 7, 0, 255},
        {"photocell offset", 8, -64, 64},
    };
    Connect();
    const std::vector<std::string> config = Config();
    ASSERT_EQ(config.size(), 9U);
    for (const Row& row : rows) {
        ASSERT_FALSE(config[row.field].empty()) << row.what;
        EXPECT_GE(std::stol(config[row.field]), row.lowest) << row.what;
        EXPECT_LE(std::stol(config[row.field]), row.highest) << row.what;
    }
}

TEST_P(SSRpcContract, DimmingShowsInTheConfiguration) {
    struct Row {
        tag_K4_SIGN_DIM_MODE mode;
        std::int32_t value;
        std::size_t field;
    };
    constexpr std::size_t level = 7;
    constexpr std::size_t offset = 8;
    constexpr std::size_t none = 0;
    constexpr Row rows[] = {
        {K4_SIGN_DIM_MANUAL, 200, level},        {K4_SIGN_DIM_MANUAL, 0, level},
        {K4_SIGN_DIM_MANUAL, 255, level},        {K4_SIGN_DIM_PHOTOCELL, -64, offset},
        {K4_SIGN_DIM_PHOTOCELL, 10, offset},     {K4_SIGN_DIM_PHOTOCELL, 64, offset},
        {K4_SIGN_DIM_REMOTE_PHOTOCELL, 0, none}, {K4_SIGN_DIM_SCHEDULED, 0, none},
    };
    Connect();
    for (const Row& row : rows) {
        ASSERT_EQ(m_rpc.k4ssSetDimming(Sign(), row.mode, row.value), 0) << row.mode;
        const std::vector<std::string> config = Config();
        ASSERT_EQ(config.size(), 9U);
        EXPECT_EQ(config[5], std::to_string(row.mode));
        if (row.field != none) {
            EXPECT_EQ(config[row.field], std::to_string(row.value)) << "mode " << row.mode;
        }
    }
}

TEST_P(SSRpcContract, EachWindowIsALineOfNameOpenFlagRowAndColumn) {
    Connect();
    const std::string windows = Windows();
    ASSERT_FALSE(windows.empty());
    EXPECT_EQ(windows.back(), '\n');
    const std::vector<std::string> lines = Split(windows, "\n");
    EXPECT_GE(lines.size(), 2U);
    EXPECT_LE(lines.size(), K4_MAX_SIGN_WINDOWS);
    for (const std::string& line : lines) {
        const std::vector<std::string> fields = Split(line, "\t");
        ASSERT_EQ(fields.size(), 4U) << line;
        EXPECT_TRUE(fields[1] == "0" || fields[1] == "1") << line;
        EXPECT_GE(std::stol(fields[2]), 0) << line;
        EXPECT_GE(std::stol(fields[3]), 0) << line;
    }
}

TEST_P(SSRpcContract, OpeningAndMovingAWindowShowsInItsLineAlone) {
    Connect();
    const std::vector<std::string> other = WindowFields(2);
    for (const std::int32_t open : {1, 0, 1}) {
        ASSERT_EQ(m_rpc.k4ssWindowEnable(Sign(), 1, open), 0);
        const std::vector<std::string> fields = WindowFields(1);
        ASSERT_EQ(fields.size(), 4U);
        EXPECT_EQ(fields[1], std::to_string(open));
    }
    ASSERT_EQ(m_rpc.k4ssWindowMove(Sign(), 1, 2, 8), 0);
    const std::vector<std::string> fields = WindowFields(1);
    ASSERT_EQ(fields.size(), 4U);
    EXPECT_EQ(fields[1], "1");
    EXPECT_EQ(fields[2], "2");
    EXPECT_EQ(fields[3], "8");
    EXPECT_EQ(WindowFields(2), other);
}

TEST_P(SSRpcContract, WindowsOutOf1To16Fail) {
    Connect();
    const std::string before = Windows();
    for (const std::uint32_t window : {0U, 17U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        EXPECT_NE(m_rpc.k4ssWindowEnable(Sign(), window, 1), 0) << window;
        EXPECT_NE(m_rpc.k4ssWindowMove(Sign(), window, 0, 0), 0) << window;
    }
    EXPECT_EQ(Windows(), before);
}

// While a sequence plays on and on, what is queued waits.
TEST_P(SSRpcContract, TheQueueKeepsItsEntriesInOrder) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssPlaySequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    ASSERT_EQ(m_rpc.k4ssQueueSequence(Sign(), File(), K4_PLAY_SEQ_NUM_TIMES, 7), 0);
    ASSERT_EQ(m_rpc.k4ssQueueWindowEnable(Sign(), 2, 1), 0);
    ASSERT_EQ(m_rpc.k4ssQueueWindowMove(Sign(), 2, 2, 8), 0);
    ASSERT_EQ(m_rpc.k4ssQueueWindowEnable(Sign(), 1, 0), 0);
    const std::vector<std::string> expected = Split(
        "1\t" + m_fixture.file + "\t4\t7\n" + "2\t2\t1\n" + "3\t2\t2\t8\n" + "2\t1\t0", "\t\n");
    EXPECT_EQ(Queue(), expected);
    EXPECT_EQ(Queue(), expected) << "reading took something away";
}

TEST_P(SSRpcContract, ClearingEmptiesTheQueue) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssPlaySequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    ASSERT_EQ(m_rpc.k4ssQueueSequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    ASSERT_EQ(m_rpc.k4ssClearQueue(Sign()), 0);
    EXPECT_TRUE(Queue().empty());
    EXPECT_EQ(m_rpc.k4ssClearQueue(Sign()), 0) << "an empty queue can be cleared";
}

TEST_P(SSRpcContract, AFullQueueStillAnswersWithWholeText) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssPlaySequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    for (int count = 0; count < 500; ++count)
        m_rpc.k4ssQueueSequence(Sign(), File(), K4_PLAY_SEQ_NUM_TIMES, 1);
    GuardedBytes buffer(1024);
    std::uint32_t length = 0;
    EXPECT_EQ(m_rpc.k4ssGetQueue(Sign(), buffer.Data(), 1024, &length), 0);
    EXPECT_TRUE(buffer.IsIntact());
    EXPECT_TRUE(buffer.IsTerminated());
}

TEST_P(SSRpcContract, TheDefaultSequenceIsReadAsItWasSet) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssSetDefaultSequence(Sign(), File(), K4_PLAY_SEQ_NUM_TIMES, 3), 0);
    char buffer[271] = "";
    std::uint32_t capacity = 270;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    std::uint32_t param = 0;
    ASSERT_EQ(m_rpc.k4ssGetDefaultSequence(Sign(), buffer, &capacity, &mode, &param), 0);
    EXPECT_EQ(buffer, m_fixture.file);
    EXPECT_EQ(mode, K4_PLAY_SEQ_NUM_TIMES);
    EXPECT_EQ(param, 3U);
}

TEST_P(SSRpcContract, APlayedSequenceIsTheOneThatRuns) {
    Connect();
    EXPECT_EQ(m_rpc.k4ssCheckSequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    ASSERT_EQ(m_rpc.k4ssPlaySequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    char schedule[262] = "";
    char sequence[262] = "";
    std::uint32_t first = 261;
    std::uint32_t second = 261;
    std::uint32_t word = 0;
    ASSERT_EQ(m_rpc.k4ssGetSchedSeqStatus(Sign(), schedule, &first, sequence, &second, &word), 0);
    EXPECT_EQ(sequence, m_fixture.file);
    EXPECT_STREQ(schedule, "");
}

TEST_P(SSRpcContract, EveryReadOfAnIdleSignSucceeds) {
    Connect();
    std::uint32_t word = 0;
    EXPECT_EQ(m_rpc.k4ssGetSchedChangeFlag(Sign(), &word), 0);
    EXPECT_EQ(m_rpc.k4ssGetPhotocell(Sign(), &word), 0);
    EXPECT_EQ(m_rpc.k4ssGetTemperatureFreq(0, &word), 0);
    EXPECT_EQ(m_rpc.k4ssGetDefaultSeqFlag(Sign(), &word), 0);
    EXPECT_TRUE(Queue().empty());
}

TEST_P(SSRpcContract, TheChangeFlagRestsWhileNothingChanges) {
    Connect();
    const std::uint32_t before = ChangeFlag();
    Config();
    Windows();
    Queue();
    EXPECT_EQ(ChangeFlag(), before);
}

TEST_P(SSRpcContract, TheChangeFlagMovesWithEachChange) {
    struct Step {
        const char* what;
        std::function<std::int32_t()> call;
    };
    const auto dim = [this](std::int32_t level) {
        return m_rpc.k4ssSetDimming(Sign(), K4_SIGN_DIM_MANUAL, level);
    };
    const Step steps[] = {
        {"dimming", [&] { return dim(10); }},
        {"dimming again", [&] { return dim(20); }},
        {"closing a window", [&] { return m_rpc.k4ssWindowEnable(Sign(), 1, 0); }},
        {"opening a window", [&] { return m_rpc.k4ssWindowEnable(Sign(), 1, 1); }},
        {"moving a window", [&] { return m_rpc.k4ssWindowMove(Sign(), 1, 2, 8); }},
        {"moving it again", [&] { return m_rpc.k4ssWindowMove(Sign(), 1, 4, 16); }},
        {"playing",
         [&] { return m_rpc.k4ssPlaySequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0); }},
        {"queueing",
         [&] { return m_rpc.k4ssQueueSequence(Sign(), File(), K4_PLAY_SEQ_NUM_TIMES, 1); }},
        {"clearing the queue", [&] { return m_rpc.k4ssClearQueue(Sign()); }},
        {"stopping", [&] { return m_rpc.k4ssStopSequence(Sign()); }},
        {"playing on",
         [&] { return m_rpc.k4ssPlaySequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0); }},
        {"blanking", [&] { return m_rpc.k4ssBlankSign(Sign()); }},
    };
    Connect();
    dim(0);
    m_rpc.k4ssWindowEnable(Sign(), 1, 1);
    for (const Step& step : steps) {
        const std::uint32_t before = ChangeFlag();
        ASSERT_EQ(step.call(), 0) << step.what;
        EXPECT_NE(ChangeFlag(), before) << step.what;
    }
}

}  // namespace k4test
