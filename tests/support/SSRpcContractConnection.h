#pragma once

// A part of tests/support/SSRpcContract.h: the connection. Include that one.

namespace k4test {

TEST_P(SSRpcContract, NothingIsConnectedAtFirst) {
    EXPECT_EQ(m_rpc.k4ssIsServer(Service()), 0);
    EXPECT_EQ(m_rpc.k4ssIsServer(Other()), 0);
    EXPECT_NE(m_rpc.k4ssPing(), 0);
}

TEST_P(SSRpcContract, ConnectingMakesThatServiceTheServer) {
    Connect();
    EXPECT_NE(m_rpc.k4ssIsServer(Service()), 0);
    EXPECT_EQ(m_rpc.k4ssIsServer(Other()), 0);
    EXPECT_EQ(m_rpc.k4ssPing(), 0);
}

TEST_P(SSRpcContract, ConnectingAgainToTheSameServiceSucceeds) {
    Connect();
    Connect();
    EXPECT_NE(m_rpc.k4ssIsServer(Service()), 0);
}

TEST_P(SSRpcContract, ConnectingElsewhereReplacesTheConnection) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssConnectSignAsUser(Other(), nullptr, nullptr, nullptr), 0);
    EXPECT_NE(m_rpc.k4ssIsServer(Other()), 0);
    EXPECT_EQ(m_rpc.k4ssIsServer(Service()), 0);
    EXPECT_EQ(m_rpc.k4ssPing(), 0);
}

TEST_P(SSRpcContract, AnUnreachableServiceCantBeConnected) {
    const char* unreachable = m_fixture.unreachable.c_str();
    EXPECT_NE(m_rpc.k4ssConnectSignAsUser(unreachable, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(m_rpc.k4ssIsServer(unreachable), 0);
}

TEST_P(SSRpcContract, AnUnreachableServiceNeverBecomesTheServer) {
    Connect();
    const char* unreachable = m_fixture.unreachable.c_str();
    EXPECT_NE(m_rpc.k4ssConnectSignAsUser(unreachable, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(m_rpc.k4ssIsServer(unreachable), 0);
}

TEST_P(SSRpcContract, ANameThatNoMachineBearsCantBeConnected) {
    const std::string endless(5000, 'x');
    for (const char* name : {"no such machine", "\t\n", endless.c_str()})
        EXPECT_NE(m_rpc.k4ssConnectSignAsUser(name, nullptr, nullptr, nullptr), 0) << name;
}

TEST_P(SSRpcContract, DisconnectingDropsTheConnection) {
    Connect();
    EXPECT_EQ(m_rpc.k4ssDisconnectSign(), 0);
    EXPECT_EQ(m_rpc.k4ssIsServer(Service()), 0);
    EXPECT_NE(m_rpc.k4ssPing(), 0);
}

TEST_P(SSRpcContract, DisconnectingWithoutAConnectionIsHarmless) {
    m_rpc.k4ssDisconnectSign();
    m_rpc.k4ssDisconnectSign();
    EXPECT_EQ(m_rpc.k4ssIsServer(Service()), 0);
    Connect();
    EXPECT_EQ(m_rpc.k4ssPing(), 0);
}

TEST_P(SSRpcContract, WithoutAConnectionEveryStubFails) {
    char buffer[512] = "";
    std::uint32_t word = 0;
    EXPECT_NE(m_rpc.k4ssListSigns(buffer, sizeof buffer, &word), 0);
    EXPECT_NE(m_rpc.k4ssGetTemperatureFreq(0, &word), 0);
    for (const SSRpcSignStub& stub : SSRpcSignStubs())
        EXPECT_NE(stub.call(m_rpc, Sign(), File()), 0) << stub.name;
}

TEST_P(SSRpcContract, AnUnknownSignFailsInEveryStub) {
    Connect();
    const std::string endless(5000, 'x');
    for (const char* sign : {"no such sign", "", endless.c_str()}) {
        for (const SSRpcSignStub& stub : SSRpcSignStubs())
            EXPECT_NE(stub.call(m_rpc, sign, File()), 0) << stub.name << " for " << sign;
    }
}

TEST_P(SSRpcContract, ASignKeepsItsStateOverAReconnect) {
    Connect();
    ASSERT_EQ(m_rpc.k4ssSetDimming(Sign(), K4_SIGN_DIM_MANUAL, 77), 0);
    ASSERT_EQ(m_rpc.k4ssWindowMove(Sign(), 1, 1, 8), 0);
    const std::vector<std::string> config = Config();
    const std::string windows = Windows();
    m_rpc.k4ssDisconnectSign();
    ASSERT_EQ(m_rpc.k4ssConnectSignAsUser(Other(), nullptr, nullptr, nullptr), 0);
    Connect();
    EXPECT_EQ(Config(), config);
    EXPECT_EQ(Windows(), windows);
}

TEST_P(SSRpcContract, ThreadsMayCallAtOnce) {
    Connect();
    std::atomic<int> failures = 0;
    const auto work = [&] {
        for (std::int32_t round = 0; round < 20; ++round) {
            char buffer[1024] = "";
            std::uint32_t word = 0;
            failures += m_rpc.k4ssPing() != 0;
            failures += m_rpc.k4ssGetChangeFlag(Sign(), &word) != 0;
            failures += m_rpc.k4ssSetDimming(Sign(), K4_SIGN_DIM_MANUAL, round) != 0;
            failures += m_rpc.k4ssWindowMove(Sign(), 1, 0, 0) != 0;
            failures += m_rpc.k4ssListWindows(Sign(), buffer, sizeof buffer, &word) != 0;
            failures += m_rpc.k4ssGetConfig(Sign(), buffer, sizeof buffer, &word) != 0;
        }
    };
    std::vector<std::thread> threads;
    for (int count = 0; count < 4; ++count)
        threads.emplace_back(work);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

}  // namespace k4test
