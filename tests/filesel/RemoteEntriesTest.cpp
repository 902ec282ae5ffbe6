#include "k4cmndlg/filesel/RemoteEntries.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "k4cmndlg/clients/CK4CmnRS.h"
#include "tests/support/RecordingRSRpc.h"

namespace k4test {
namespace {

constexpr char kList[] = "k4rsListConnectedPhoneEntries";

class RemoteEntriesTest : public ::testing::Test {
 protected:
    using Calls = std::vector<std::string>;

    void Answer(const std::string& text, bool terminate = true) {
        m_rpc.replies[kList] = {text, 0, terminate};
    }
    int Read() { return m_entries.Read(m_reply); }
    static Calls AllThree() {
        return {"k4rsConnect()", "k4rsListConnectedPhoneEntries()", "k4rsDisconnect()"};
    }

    RecordingRSRpc m_rpc;
    k4cmn::ScopedProvider<K4rsRpc> m_provider{m_rpc};
    k4cmn::RemoteEntries m_entries;
    std::string m_reply = "before";
};

TEST_F(RemoteEntriesTest, ConnectsToThisSystemAsksAndDisconnects) {
    Answer("One\nTwo\t");
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(m_reply, "One\nTwo\t") << "as it stands";
    EXPECT_EQ(m_rpc.calls, AllThree());
    EXPECT_EQ(m_rpc.lastCapacity, 1000U);
    EXPECT_EQ(m_rpc.lastLengthBefore, 0U);
}

TEST_F(RemoteEntriesTest, AnEmptyReplyIsASuccess) {
    Answer("");
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(m_reply, "");
    m_reply = "before";
    m_rpc.replies.clear();
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(m_reply, "") << "a stub that writes nothing";
}

TEST_F(RemoteEntriesTest, WhereConnectingFailsNothingIsAskedButTheConnectionIsDropped) {
    Answer("One");
    m_rpc.results["k4rsConnect"] = {7};
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(m_rpc.calls, (Calls{"k4rsConnect()", "k4rsDisconnect()"}));
    EXPECT_EQ(m_reply, "before");
}

TEST_F(RemoteEntriesTest, AFailedListDisconnectsToo) {
    Answer("One");
    m_rpc.results[kList] = {-1};
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(m_rpc.calls, AllThree());
    EXPECT_EQ(m_reply, "before");
}

TEST_F(RemoteEntriesTest, DisconnectingMayFail) {
    Answer("One");
    m_rpc.results["k4rsDisconnect"] = {1};
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(m_reply, "One");
}

TEST_F(RemoteEntriesTest, NothingThatAStubThrowsComesThrough) {
    for (const char* stub : {"k4rsConnect", kList, "k4rsDisconnect"}) {
        m_rpc.calls.clear();
        m_rpc.onCall = [&](const std::string& called) {
            if (called == stub)
                throw std::runtime_error("gone");
        };
        EXPECT_EQ(Read(), stub == std::string("k4rsDisconnect") ? 1 : 0) << stub;
        EXPECT_EQ(m_rpc.calls.back(), "k4rsDisconnect()") << stub;
    }
}

struct ReplyRow {
    const char* name;
    std::string text;
    bool terminate;
    std::string read;
};

void PrintTo(const ReplyRow& row, std::ostream* stream) {
    *stream << row.name;
}

class RemoteEntriesReply : public RemoteEntriesTest,
                           public ::testing::WithParamInterface<ReplyRow> {};

TEST_P(RemoteEntriesReply, EndsAtItsFirstZeroOrAtTheEndOfItsRoom) {
    Answer(GetParam().text, GetParam().terminate);
    EXPECT_EQ(Read(), 1);
    EXPECT_EQ(m_reply, GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(
    Replies, RemoteEntriesReply,
    ::testing::Values(
        ReplyRow{"JustFits", std::string(999, 'x'), true, std::string(999, 'x')},
        ReplyRow{"ExactlyFull", std::string(1000, 'x'), true, std::string(1000, 'x')},
        ReplyRow{"LongerThanItsRoom", std::string(5000, 'x'), true, std::string(1000, 'x')},
        ReplyRow{"FullAndUnterminated", std::string(1000, '\n'), false, std::string(1000, '\n')},
        ReplyRow{"ShortAndUnterminated", "One\nTwo", false, "One\nTwo"},
        ReplyRow{"ZerosInTheMiddle", std::string("One\nT\0o", 7), true, "One\nT"},
        ReplyRow{"AnyBytes", "\xFF\xC3\n\x01\t", true, "\xFF\xC3\n\x01\t"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(RemoteEntriesTest, ClientsOfOtherThreadsWaitUntilTheConnectionIsDropped) {
    std::atomic<bool> isAsking = false;
    std::atomic<bool> isOther = false;
    std::thread other([&] {
        isAsking.wait(false);
        CK4CmnRS client;
        std::vector<std::string> entries;
        client.GetConnectedPhoneEntries(entries);
        isOther = true;
    });
    std::thread::id self = std::this_thread::get_id();
    m_rpc.onCall = [&](const std::string& stub) {
        if (std::this_thread::get_id() != self)
            return;
        isAsking = true;
        isAsking.notify_all();
        EXPECT_FALSE(isOther) << stub;
        std::this_thread::yield();
    };
    EXPECT_EQ(Read(), 1);
    other.join();
    EXPECT_EQ(m_rpc.calls.front(), "k4rsConnect()");
    EXPECT_EQ(m_rpc.calls[1], "k4rsListConnectedPhoneEntries()");
    EXPECT_EQ(m_rpc.calls[2], "k4rsDisconnect()");
    EXPECT_EQ(m_rpc.calls[3], "k4rsConnect(.)");
}

TEST(RemoteEntriesWithoutAService, ReadNothing) {
    std::string reply = "before";
    EXPECT_EQ(k4cmn::RemoteEntries().Read(reply), 0);
    EXPECT_EQ(reply, "before");
}

}  // namespace
}  // namespace k4test
