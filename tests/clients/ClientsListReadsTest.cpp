#include <cstring>

#include "tests/clients/ClientTest.h"

namespace k4test {
namespace {

class GetWindowState : public ClientTest {
 protected:
    int Read(std::uint32_t window, const std::string& reply) {
        m_rpc.replies["k4ssListWindows"].text = reply;
        return m_client.GetWindowState("Main", window, &open, &row, &column, &name);
    }
    static std::string Lines(int count) {
        std::string reply;
        for (int line = 1; line <= count; ++line) {
            const std::string number = std::to_string(line);
            reply += "Sign" + number + "\t" + std::to_string(line % 2) + "\t" + number + "\t" +
                     std::to_string(10 * line) + "\n";
        }
        return reply;
    }

    std::int32_t open = -7, row = -7, column = -7;
    std::string name = "old";
};

TEST_F(GetWindowState, EachOfSixteenWindowsIsItsLine) {
    for (std::int32_t window = 1; window <= 16; ++window) {
        EXPECT_EQ(Read(static_cast<std::uint32_t>(window), Lines(16)), 1);
        EXPECT_EQ(name, "Sign" + std::to_string(window));
        EXPECT_EQ(open, window % 2);
        EXPECT_EQ(row, window + 1);
        EXPECT_EQ(column, 10 * window + 1);
    }
    EXPECT_EQ(m_rpc.lastCapacity, 1024U);
    EXPECT_EQ(m_rpc.lastLengthBefore, 0U);
}

TEST_F(GetWindowState, PlacesCountFrom1) {
    EXPECT_EQ(Read(1, "Small\t1\t0\t0\n"), 1);
    EXPECT_EQ(row, 1);
    EXPECT_EQ(column, 1);
}

TEST_F(GetWindowState, AWindowThatTheReplyDoesntHoldHasNoWords) {
    struct Row {
        const char* what;
        std::uint32_t window;
        int lines;
    };
    constexpr Row rows[] = {
        {"window 0", 0, 16},
        {"window 17", 17, 16},
        {"window 17 of twenty lines", 17, 20},
        {"window 0 of twenty", 0, 20},
        {"a line too few", 3, 2},
        {"no line", 1, 0},
        {"the greatest number", 0xFFFFFFFF, 20},
    };
    for (const Row& missing : rows) {
        EXPECT_EQ(Read(missing.window, Lines(missing.lines)), 0) << missing.what;
        EXPECT_EQ(m_client.GetLastError(), "") << missing.what;
        EXPECT_EQ(name, "old") << missing.what;
        EXPECT_EQ(row, -7) << missing.what;
    }
}

TEST_F(GetWindowState, ALineWithoutANewlineAtTheEndCounts) {
    EXPECT_EQ(Read(2, "One\t1\t0\t0\nTwo\t0\t3\t4"), 1);
    EXPECT_EQ(name, "Two");
    EXPECT_EQ(column, 5);
}

TEST_F(GetWindowState, RunsOfNewlinesAreOneLineEnd) {
    EXPECT_EQ(Read(2, "\n\nOne\t1\t0\t0\n\n\nTwo\t0\t3\t4\n\n"), 1);
    EXPECT_EQ(name, "Two");
}

TEST_F(GetWindowState, AnEmptyFieldCantBeToldAndTheRestMovesUp) {
    EXPECT_EQ(Read(1, "\t1\t2\t3\n"), 0);
    EXPECT_EQ(name, "1");
    EXPECT_EQ(open, 2);
    EXPECT_EQ(row, 4);
    EXPECT_EQ(column, -7);
    EXPECT_EQ(m_client.GetLastError(), "");
    EXPECT_EQ(Read(1, "Small\t\t\t1\t\t2\t3\n"), 1);
    EXPECT_EQ(name, "Small");
    EXPECT_EQ(column, 4);
}

TEST_F(GetWindowState, AShortLineStoresWhatItHas) {
    struct Row {
        const char* line;
        const char* name;
        std::int32_t open, row;
    };
    constexpr Row rows[] = {
        {"\t\n", "old", -7, -7},
        {"Small\n", "Small", -7, -7},
        {"Small\t1\n", "Small", 1, -7},
        {"Small\t1\t2\n", "Small", 1, 3},
    };
    for (const Row& shortRow : rows) {
        name = "old";
        open = row = column = -7;
        EXPECT_EQ(Read(1, shortRow.line), 0) << shortRow.line;
        EXPECT_EQ(m_client.GetLastError(), "");
        EXPECT_EQ(name, shortRow.name) << shortRow.line;
        EXPECT_EQ(open, shortRow.open) << shortRow.line;
        EXPECT_EQ(row, shortRow.row) << shortRow.line;
        EXPECT_EQ(column, -7) << shortRow.line;
    }
}

TEST_F(GetWindowState, MissingFieldsThatArentWantedAreNoFailure) {
    m_rpc.replies["k4ssListWindows"].text = "Small\t1\n";
    EXPECT_EQ(m_client.GetWindowState("Main", 1, &open, nullptr, nullptr, &name), 1);
    EXPECT_EQ(m_client.GetWindowState("Main", 1, nullptr, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(m_client.GetWindowState("Main", 1, nullptr, nullptr, &column, nullptr), 0);
    EXPECT_EQ(open, 1);
}

TEST_F(GetWindowState, FieldsThatArentWantedAreStillTaken) {
    m_rpc.replies["k4ssListWindows"].text = "Small\t1\t2\t3\n";
    EXPECT_EQ(m_client.GetWindowState("Main", 1, nullptr, nullptr, &column, nullptr), 1);
    EXPECT_EQ(column, 4);
}

TEST_F(GetWindowState, ThePlaceAtTheEndOf32BitsStays) {
    EXPECT_EQ(Read(1, "Small\t1\t2147483647\t-99999999999\n"), 1);
    EXPECT_EQ(row, 2147483647);
    EXPECT_EQ(column, -2147483647);
}

TEST_F(GetWindowState, AFailureHasWordsAndTouchesNothing) {
    m_rpc.results["k4ssListWindows"] = 1;
    EXPECT_EQ(Read(1, Lines(16)), 0);
    EXPECT_EQ(m_client.GetLastError(), "Could not get window state");
    EXPECT_EQ(name, "old");
}

class GetQueue : public ClientTest {
 protected:
    GetQueue() { std::memset(entries, 0x5A, sizeof entries); }

    int Read(const std::string& reply, std::uint32_t capacity = 8) {
        m_rpc.replies["k4ssGetQueue"].text = reply;
        return m_client.GetQueue("Main", entries, capacity);
    }
    static bool IsUntouched(const K4_DISPLAY_QUEUE& entry) {
        K4_DISPLAY_QUEUE untouched;
        std::memset(&untouched, 0x5A, sizeof untouched);
        return std::memcmp(&entry, &untouched, sizeof untouched) == 0;
    }

    K4_DISPLAY_QUEUE entries[9];
};

TEST_F(GetQueue, FillsOneEntryOfEachTag) {
    EXPECT_EQ(Read("1\tA.SQ4\t4\t7\n2\t3\t1\n3\t4\t5\t6\n"), 3);
    EXPECT_EQ(entries[0].dwType, K4_QUEUE_SEQUENCE);
    EXPECT_STREQ(entries[0].sequence.szSequence, "A.SQ4");
    EXPECT_EQ(entries[0].sequence.ePlayMode, K4_PLAY_SEQ_NUM_TIMES);
    EXPECT_EQ(entries[0].sequence.dwPlayParam, 7U);
    EXPECT_EQ(entries[1].dwType, K4_QUEUE_WINDOW_ENABLE);
    EXPECT_EQ(entries[1].window.dwWindow, 3U);
    EXPECT_EQ(entries[1].window.bOpen, 1);
    EXPECT_EQ(entries[2].dwType, K4_QUEUE_WINDOW_MOVE);
    EXPECT_EQ(entries[2].window.dwWindow, 4U);
    EXPECT_EQ(entries[2].window.dwRow, 5U) << "places count from 0 here";
    EXPECT_EQ(entries[2].window.dwCol, 6U);
    EXPECT_TRUE(IsUntouched(entries[3]));
    EXPECT_EQ(m_client.GetLastError(), "");
    EXPECT_EQ(m_rpc.lastCapacity, 1024U);
    EXPECT_EQ(m_rpc.lastLengthBefore, 0U);
}

TEST_F(GetQueue, ServiceOverloadGivesTheCountToo) {
    m_rpc.replies["k4ssGetQueue"].text = "1\tA.SQ4\t4\t7\n2\t3\t1\n3\t4\t5\t6\n";
    EXPECT_EQ(m_client.GetQueue("Alpha", "Main", entries, 8), 3);
    EXPECT_EQ(entries[2].dwType, K4_QUEUE_WINDOW_MOVE);
    EXPECT_EQ(m_client.GetQueue("Alpha", "Main", entries, 2), 2);
}

TEST_F(GetQueue, AnyOpenFlagOtherThan0Is1) {
    struct Row {
        const char* flag;
        std::int32_t open;
    };
    constexpr Row rows[] = {{"5", 1}, {"1", 1}, {"0", 0}, {"-1", 1}, {"x", 0}, {"99999999999", 1}};
    for (const Row& row : rows) {
        EXPECT_EQ(Read(std::string("2\t1\t") + row.flag), 1);
        EXPECT_EQ(entries[0].window.bOpen, row.open) << row.flag;
    }
}

TEST_F(GetQueue, AnUnknownTagIsCountedAndItsSlotLeft) {
    for (const char* tag : {"0", "4", "x", "-1", "99999999999"}) {
        std::memset(entries, 0x5A, sizeof entries);
        EXPECT_EQ(Read(std::string(tag) + "\t2\t3\t1\n"), 2) << tag;
        EXPECT_TRUE(IsUntouched(entries[0])) << tag;
        EXPECT_EQ(entries[1].dwType, K4_QUEUE_WINDOW_ENABLE) << tag;
        EXPECT_EQ(entries[1].window.dwWindow, 3U) << tag;
    }
}

TEST_F(GetQueue, FillsNoMoreThanItsCapacity) {
    EXPECT_EQ(Read("2\t1\t1\n2\t2\t1\n2\t3\t1\n", 2), 2);
    EXPECT_EQ(entries[1].window.dwWindow, 2U);
    EXPECT_TRUE(IsUntouched(entries[2]));
    EXPECT_EQ(Read("2\t1\t1\n", 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "");
    EXPECT_EQ(m_client.GetQueue("Main", nullptr, 0), 0);
}

TEST_F(GetQueue, AnEmptyReplyAndAFailureDifferInTheWords) {
    EXPECT_EQ(Read(""), 0);
    EXPECT_EQ(m_client.GetLastError(), "");
    EXPECT_EQ(Read("\n\t\n"), 0);
    EXPECT_EQ(m_client.GetLastError(), "");
    m_rpc.results["k4ssGetQueue"] = 1;
    EXPECT_EQ(Read("2\t1\t1\n"), 0);
    EXPECT_EQ(m_client.GetLastError(), "Could not get queue from service");
    EXPECT_TRUE(IsUntouched(entries[0]));
}

TEST_F(GetQueue, AnEntryThatIsCutShortIsntCountedButKeepsWhatItHas) {
    EXPECT_EQ(Read("2\t1\t1\n1\tA.SQ4\t4"), 1);
    EXPECT_EQ(entries[1].dwType, K4_QUEUE_SEQUENCE);
    EXPECT_STREQ(entries[1].sequence.szSequence, "A.SQ4");
    EXPECT_EQ(entries[1].sequence.ePlayMode, K4_PLAY_SEQ_NUM_TIMES);
    EXPECT_EQ(entries[1].sequence.dwPlayParam, 0x5A5A5A5AU);
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(GetQueue, EveryCutOfEveryTagEndsTheReading) {
    for (const char* cut : {"1", "1\tA", "1\tA\t4", "2", "2\t3", "3", "3\t4", "3\t4\t5"}) {
        std::memset(entries, 0x5A, sizeof entries);
        EXPECT_EQ(Read(std::string("2\t9\t0\n") + cut), 1) << cut;
        EXPECT_EQ(entries[1].dwType, static_cast<std::uint32_t>(cut[0] - '0')) << cut;
        EXPECT_TRUE(IsUntouched(entries[2])) << cut;
    }
    EXPECT_EQ(Read("3\t4\t5"), 0);
    EXPECT_EQ(entries[0].window.dwRow, 5U);
}

TEST_F(GetQueue, NamesAreCutAt260Bytes) {
    for (const std::size_t length : {259U, 260U, 261U, 900U}) {
        const std::string name(length, 'n');
        EXPECT_EQ(Read("1\t" + name + "\t1\t2\n"), 1);
        EXPECT_EQ(entries[0].sequence.szSequence, name.substr(0, 260));
        EXPECT_EQ(entries[0].sequence.szSequence[260], '\0');
        EXPECT_EQ(entries[0].sequence.dwPlayParam, 2U);
    }
}

TEST_F(GetQueue, ModesComeAsTheReplyHasThem) {
    EXPECT_EQ(Read("1\tA\t13\t4294967295\n1\tA\t-1\t0\n"), 2);
    EXPECT_EQ(entries[0].sequence.ePlayMode, 13);
    EXPECT_EQ(entries[0].sequence.dwPlayParam, 4294967295U);
    EXPECT_EQ(entries[1].sequence.ePlayMode, -1);
}

}  // namespace
}  // namespace k4test
