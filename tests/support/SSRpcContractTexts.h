#pragma once

// A part of tests/support/SSRpcContract.h: buffers and their limits. Include that one.

namespace k4test {

TEST_P(SSRpcContract, NoTextIsWrittenBeyondItsCapacity) {
    Connect();
    for (const NamedTextStub& stub : TextStubs()) {
        for (std::size_t capacity = 0; capacity <= 1024; capacity += capacity < 96 ? 1 : 64) {
            GuardedBytes buffer(capacity);
            std::uint32_t length = 0;
            const std::int32_t result = stub.call(buffer.Data(), buffer.Capacity(), &length);
            EXPECT_TRUE(buffer.IsIntact()) << stub.name << " with " << capacity;
            if (result == 0 && capacity > 0) {
                EXPECT_TRUE(buffer.IsTerminated()) << stub.name << " with " << capacity;
            }
        }
    }
}

TEST_P(SSRpcContract, ALengthThatIsntWantedMayBeNull) {
    Connect();
    for (const NamedTextStub& stub : TextStubs()) {
        GuardedBytes buffer(1024);
        EXPECT_EQ(stub.call(buffer.Data(), 1024, nullptr), 0) << stub.name;
        EXPECT_TRUE(buffer.IsTerminated()) << stub.name;
    }
}

TEST_P(SSRpcContract, NumbersThatArentWantedMayBeNull) {
    Connect();
    GuardedBytes buffer(1024);
    std::uint32_t size = 270;
    EXPECT_EQ(m_rpc.k4ssGetChangeFlag(Sign(), nullptr), 0);
    EXPECT_EQ(m_rpc.k4ssGetSchedChangeFlag(Sign(), nullptr), 0);
    EXPECT_EQ(m_rpc.k4ssGetPhotocell(Sign(), nullptr), 0);
    EXPECT_EQ(m_rpc.k4ssGetDefaultSeqFlag(Sign(), nullptr), 0);
    EXPECT_EQ(m_rpc.k4ssGetDefaultSequence(Sign(), buffer.Data(), &size, nullptr, nullptr), 0);
    EXPECT_EQ(m_rpc.k4ssGetFrameStatus(Sign(), buffer.Data(), nullptr, nullptr, nullptr, nullptr,
                                       nullptr, nullptr),
              0);
}

TEST_P(SSRpcContract, NullBuffersDoNoHarm) {
    Connect();
    std::uint32_t word = 0;
    for (const NamedTextStub& stub : TextStubs())
        stub.call(nullptr, 0, &word);
    m_rpc.k4ssGetDIB(Sign(), nullptr, 0, &word);
    m_rpc.k4ssGetBulb(Sign(), nullptr, 0, &word, &word);
    m_rpc.k4ssGetEffectStatus(Sign(), nullptr, nullptr, nullptr);
    m_rpc.k4ssGetSchedule(Sign(), nullptr, nullptr, nullptr);
    m_rpc.k4ssGetFrameStatus(Sign(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(m_rpc.k4ssPing(), 0);
}

TEST_P(SSRpcContract, RunningNamesKeepToTheirCapacities) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssPlaySequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    for (const std::size_t capacity : {0U, 1U, 2U, 5U, 32U, 261U}) {
        GuardedBytes schedule(capacity);
        GuardedBytes sequence(capacity);
        std::uint32_t first = schedule.Capacity();
        std::uint32_t second = sequence.Capacity();
        std::uint32_t word = 0;
        const std::int32_t result = m_rpc.k4ssGetSchedSeqStatus(Sign(), schedule.Data(), &first,
                                                                sequence.Data(), &second, &word);
        EXPECT_TRUE(schedule.IsIntact() && sequence.IsIntact()) << capacity;
        if (result == 0 && capacity > 0) {
            EXPECT_TRUE(schedule.IsTerminated() && sequence.IsTerminated()) << capacity;
        }
    }
}

TEST_P(SSRpcContract, TheDefaultSequenceKeepsToItsCapacity) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssSetDefaultSequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    for (const std::size_t capacity : {0U, 1U, 2U, 5U, 32U, 270U}) {
        GuardedBytes buffer(capacity);
        std::uint32_t size = buffer.Capacity();
        const std::int32_t result =
            m_rpc.k4ssGetDefaultSequence(Sign(), buffer.Data(), &size, nullptr, nullptr);
        EXPECT_TRUE(buffer.IsIntact()) << capacity;
        if (result == 0 && capacity > 0) {
            EXPECT_TRUE(buffer.IsTerminated()) << capacity;
        }
    }
}

TEST_P(SSRpcContract, TheFrameTextKeepsTo1024Bytes) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssPlaySequence(Sign(), File(), K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    GuardedBytes text(1024);
    std::uint32_t words[5] = {};
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    EXPECT_EQ(m_rpc.k4ssGetFrameStatus(Sign(), text.Data(), &words[0], &words[1], &mode, &words[2],
                                       &words[3], &words[4]),
              0);
    EXPECT_TRUE(text.IsIntact());
    EXPECT_TRUE(text.IsTerminated());
    EXPECT_EQ(mode, K4_PLAY_SEQ_CONTINUOUS);
}

TEST_P(SSRpcContract, PicturesFitOrFailButNeverOverflow) {
    Connect();
    for (const std::size_t capacity : {0U, 1U, 39U, 40U, 64U, 1000U, 1U << 22}) {
        GuardedBytes picture(capacity);
        std::uint32_t length = 0;
        const std::int32_t result =
            m_rpc.k4ssGetDIB(Sign(), picture.Data(), picture.Capacity(), &length);
        EXPECT_TRUE(picture.IsIntact()) << capacity;
        if (result == 0) {
            EXPECT_LE(length, capacity);
        }

        GuardedBytes bulbs(capacity);
        std::uint32_t word = 0;
        m_rpc.k4ssGetBulb(Sign(), bulbs.Bytes(), bulbs.Capacity(), &word, &length);
        EXPECT_TRUE(bulbs.IsIntact()) << capacity;
    }
}

TEST_P(SSRpcContract, ASignHasAPictureAndBulbs) {
    Connect();
    GuardedBytes room(1U << 22);
    std::uint32_t length = 0;
    std::uint32_t word = 0;
    ASSERT_EQ(m_rpc.k4ssGetDIB(Sign(), room.Data(), room.Capacity(), &length), 0);
    EXPECT_GT(length, 0U);
    EXPECT_EQ(m_rpc.k4ssGetBulb(Sign(), room.Bytes(), room.Capacity(), &word, &length), 0);
}

TEST_P(SSRpcContract, NamesOfAnyLengthLeaveTheRepliesWhole) {
    Connect();
    const std::string endless(5000, 'x');
    const std::string broken = "a\tb\nc.SQ4";
    for (const char* name : {endless.c_str(), broken.c_str(), ""}) {
        m_rpc.k4ssPlaySequence(Sign(), name, K4_PLAY_SEQ_CONTINUOUS, 0);
        m_rpc.k4ssQueueSequence(Sign(), name, K4_PLAY_SEQ_CONTINUOUS, 0);
        m_rpc.k4ssSetDefaultSequence(Sign(), name, K4_PLAY_SEQ_CONTINUOUS, 0);
        for (const NamedTextStub& stub : TextStubs()) {
            GuardedBytes buffer(1024);
            std::uint32_t length = 0;
            const std::int32_t result = stub.call(buffer.Data(), 1024, &length);
            EXPECT_TRUE(buffer.IsIntact()) << stub.name;
            if (result == 0) {
                EXPECT_TRUE(buffer.IsTerminated()) << stub.name;
            }
        }
    }
}

}  // namespace k4test
