#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "k4cmndlg/clients/contracts/K4rsRpc.h"
#include "tests/support/GuardedBytes.h"

/// What every implementation of K4rsRpc keeps.
///
/// To run it against an implementation, include this header in one source file of a test and name a
/// maker there:
///
///     k4test::RSRpcFixture Make() { ... }
///     INSTANTIATE_TEST_SUITE_P(Embedded, RSRpcContract, ::testing::Values(&Make));
///
/// Each test makes a fixture of its own. In it the process isn't connected, and no link is up.
namespace k4test {

struct RSRpcFixture {
    std::shared_ptr<void> owner;        ///< keeps alive whatever `rpc` lives in; goes last
    K4rsRpc* rpc = nullptr;             ///< the implementation, fresh
    std::function<void()> bringUp;      ///< brings up the links of `entries`, at least two
    std::function<void()> bringDown;    ///< brings them down again
    std::vector<std::string> entries;   ///< in the order of the service's list
    std::vector<std::string> services;  ///< what can be reached through them, in that order
};

using RSRpcMaker = RSRpcFixture (*)();

class RSRpcContract : public ::testing::TestWithParam<RSRpcMaker> {
 protected:
    using Texts = std::vector<std::string>;
    using Stub = std::function<std::int32_t(char*, std::uint32_t, std::uint32_t*)>;
    struct NamedStub {
        const char* name;
        Stub call;
    };

    static constexpr std::uint32_t kNoon = 12 << 6;
    static constexpr std::uint32_t kNewYear = (2027 << 4 | 1) << 5 | 1;

    RSRpcContract() : m_fixture(GetParam()()), m_rpc(*m_fixture.rpc) {}

    void Connect() { ASSERT_EQ(m_rpc.k4rsConnect("."), 0); }
    std::vector<NamedStub> ListStubs() {
        return {
            {"k4rsListConnectedPhoneEntries",
             [this](auto... out) { return m_rpc.k4rsListConnectedPhoneEntries(out...); }},
            {"k4rsListServices", [this](auto... out) { return m_rpc.k4rsListServices(out...); }},
        };
    }
    /// The names that a stub with room enough gives.
    Texts Names(const Stub& stub) {
        GuardedBytes buffer(1000);
        std::uint32_t length = 0;
        EXPECT_EQ(stub(buffer.Data(), buffer.Capacity(), &length), 0);
        EXPECT_TRUE(buffer.IsIntact() && buffer.IsTerminated());
        const std::string text = buffer.Data();
        EXPECT_EQ(length, text.size());
        Texts names;
        for (std::size_t at = text.find_first_not_of("\n\t"); at != std::string::npos;) {
            const std::size_t end = text.find_first_of("\n\t", at);
            names.push_back(text.substr(at, end - at));
            at = text.find_first_not_of("\n\t", end);
        }
        return names;
    }
    Texts Entries() { return Names(ListStubs()[0].call); }
    Texts Services() { return Names(ListStubs()[1].call); }
    std::uint32_t ChangeFlag() {
        std::uint32_t flag = 0;
        EXPECT_EQ(m_rpc.k4rsGetChangeFlag(&flag), 0);
        return flag;
    }
    std::int32_t Add(const std::string& path, std::uint32_t time = kNoon,
                     std::uint32_t date = kNewYear) {
        return m_rpc.k4rsAddDownLoadEvent(path.c_str(), static_cast<std::uint32_t>(path.size()) + 1,
                                          time, date);
    }
    void ExpectDead() {
        std::uint32_t word = 77;
        char buffer[16] = "untouched";
        EXPECT_NE(m_rpc.k4rsGetChangeFlag(&word), 0);
        EXPECT_EQ(word, 77U);
        for (const NamedStub& stub : ListStubs())
            EXPECT_NE(stub.call(buffer, sizeof buffer, &word), 0) << stub.name;
        EXPECT_STREQ(buffer, "untouched");
        EXPECT_NE(Add("A:\\list.DL4"), 0);
    }

    RSRpcFixture m_fixture;
    K4rsRpc& m_rpc;
};

TEST_P(RSRpcContract, WithoutAConnectionEveryStubFails) {
    ExpectDead();
}

TEST_P(RSRpcContract, ADotAndTheEmptyTextMeanThisSystem) {
    for (const char* system : {".", ""}) {
        m_rpc.k4rsDisconnect();
        EXPECT_EQ(m_rpc.k4rsConnect(system), 0);
        EXPECT_EQ(m_rpc.k4rsGetChangeFlag(nullptr), 0);
    }
}

TEST_P(RSRpcContract, ThereIsNoOtherSystem) {
    const std::string endless(5000, '.');
    for (const char* system : {"..", " ", "Elsewhere", "\t\n", endless.c_str()})
        EXPECT_NE(m_rpc.k4rsConnect(system), 0) << system;
    ExpectDead();
}

TEST_P(RSRpcContract, ConnectingAgainSucceeds) {
    Connect();
    Connect();
    EXPECT_EQ(m_rpc.k4rsGetChangeFlag(nullptr), 0);
}

TEST_P(RSRpcContract, DisconnectingDropsTheConnection) {
    Connect();
    EXPECT_EQ(m_rpc.k4rsDisconnect(), 0);
    ExpectDead();
    m_rpc.k4rsDisconnect();
    Connect();
    EXPECT_EQ(m_rpc.k4rsGetChangeFlag(nullptr), 0);
}

TEST_P(RSRpcContract, WithoutALinkTheListsAreEmpty) {
    Connect();
    EXPECT_EQ(Entries(), Texts());
    EXPECT_EQ(Services(), Texts());
}

TEST_P(RSRpcContract, LinksThatComeUpAreListedWithTheirServices) {
    Connect();
    m_fixture.bringUp();
    EXPECT_EQ(Entries(), m_fixture.entries);
    EXPECT_EQ(Services(), m_fixture.services);
    m_rpc.k4rsDisconnect();
    Connect();
    EXPECT_EQ(Entries(), m_fixture.entries) << "a link is the service's, not the connection's";
    m_fixture.bringDown();
    EXPECT_EQ(Entries(), Texts());
    EXPECT_EQ(Services(), Texts());
}

TEST_P(RSRpcContract, TheChangeFlagMovesWithTheLinksAndElseStays) {
    Connect();
    const std::uint32_t before = ChangeFlag();
    Entries();
    Add("A:\\list.DL4");
    EXPECT_EQ(ChangeFlag(), before);
    m_fixture.bringUp();
    const std::uint32_t up = ChangeFlag();
    EXPECT_NE(up, before);
    EXPECT_EQ(ChangeFlag(), up);
    m_fixture.bringDown();
    EXPECT_NE(ChangeFlag(), up);
}

TEST_P(RSRpcContract, NoListIsWrittenBeyondItsCapacity) {
    Connect();
    m_fixture.bringUp();
    for (const NamedStub& stub : ListStubs()) {
        for (std::size_t capacity = 0; capacity <= 261; ++capacity) {
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

TEST_P(RSRpcContract, WhatIsntWantedMayBeNull) {
    Connect();
    m_fixture.bringUp();
    EXPECT_EQ(m_rpc.k4rsGetChangeFlag(nullptr), 0);
    for (const NamedStub& stub : ListStubs()) {
        GuardedBytes buffer(261);
        EXPECT_EQ(stub.call(buffer.Data(), buffer.Capacity(), nullptr), 0) << stub.name;
        EXPECT_TRUE(buffer.IsTerminated()) << stub.name;
        stub.call(nullptr, 0, nullptr);
    }
    EXPECT_NE(m_rpc.k4rsAddDownLoadEvent(nullptr, 0, kNoon, kNewYear), 0);
    EXPECT_NE(m_rpc.k4rsAddDownLoadEvent(nullptr, 5, kNoon, kNewYear), 0);
    EXPECT_NE(m_rpc.k4rsConnect(nullptr), 0);
}

TEST_P(RSRpcContract, ADownLoadEventNeedsAPossibleTime) {
    constexpr auto time = [](std::uint32_t hour, std::uint32_t minute) {
        return hour << 6 | minute;
    };
    constexpr auto date = [](std::uint32_t year, std::uint32_t month, std::uint32_t day) {
        return (year << 4 | month) << 5 | day;
    };
    struct Row {
        std::uint32_t time;
        std::uint32_t date;
        bool isPossible;
    };
    constexpr Row rows[] = {
        {time(0, 0), date(2027, 1, 1), true},
        {time(23, 59), date(2027, 12, 31), true},
        {time(12, 30), date(2028, 2, 29), true},
        {time(24, 0), date(2027, 1, 1), false},
        {time(12, 60), date(2027, 1, 1), false},
        {0xFFFFFFFF, date(2027, 1, 1), false},
        {time(12, 0), date(2027, 0, 1), false},
        {time(12, 0), date(2027, 13, 1), false},
        {time(12, 0), date(2027, 1, 0), false},
        {time(12, 0), date(2027, 2, 29), false},
        {time(12, 0), date(2027, 4, 31), false},
        {time(12, 0), date(0, 1, 1), false},
        {time(12, 0), 0, false},
        {time(12, 0), 0xFFFFFFFF, false},
    };
    Connect();
    for (const Row& row : rows)
        EXPECT_EQ(Add("A:\\list.DL4", row.time, row.date) == 0, row.isPossible)
            << row.time << " on " << row.date;
}

TEST_P(RSRpcContract, ADownLoadEventNeedsAPathAsLongAsItSays) {
    Connect();
    const char path[] = "A:\\list.DL4";
    for (const std::uint32_t length : {0U, 1U, 5U, 11U, 13U, 0xFFFFFFFFU}) {
        // Whatever lies behind the path is at the end of readable memory.
        GuardedBytes bytes(13);
        std::copy(path, path + sizeof path, bytes.Data());
        bytes.Data()[12] = 'x';
        EXPECT_NE(m_rpc.k4rsAddDownLoadEvent(bytes.Data(), length, kNoon, kNewYear), 0) << length;
    }
    EXPECT_EQ(m_rpc.k4rsAddDownLoadEvent(path, sizeof path, kNoon, kNewYear), 0);
    EXPECT_NE(Add(""), 0);
    EXPECT_NE(Add(std::string(100000, 'x')), 0);
}

TEST_P(RSRpcContract, ThreadsMayCallAtOnce) {
    Connect();
    m_fixture.bringUp();
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int count = 0; count < 4; ++count) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                char buffer[261] = "";
                std::uint32_t word = 0;
                failures += m_rpc.k4rsConnect(".") != 0;
                failures += m_rpc.k4rsGetChangeFlag(&word) != 0;
                failures += m_rpc.k4rsListServices(buffer, sizeof buffer, &word) != 0;
                failures += m_rpc.k4rsListConnectedPhoneEntries(buffer, sizeof buffer, &word) != 0;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

}  // namespace k4test
