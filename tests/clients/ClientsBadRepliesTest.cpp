#include <algorithm>
#include <cstring>
#include <random>

#include "tests/clients/ClientTest.h"

namespace k4test {
namespace {

/// A reply as a broken or hostile service might send it, the same in every run.
class BadReplies {
 public:
    RecordingSSRpc::Reply Next() {
        RecordingSSRpc::Reply reply;
        reply.text = Text();
        reply.text2 = Text();
        reply.words = {static_cast<std::uint32_t>(m_random()),
                       static_cast<std::uint32_t>(m_random())};
        reply.mode = static_cast<std::int32_t>(m_random());
        reply.terminate = m_random() % 3 != 0;
        return reply;
    }

 private:
    std::string Text() {
        // Any length, with a liking for the ends of the capacities.
        static constexpr std::size_t lengths[] = {0,   1,   2,   260, 261,  262,  269,  270,  271,
                                                  511, 512, 513, 514, 1023, 1024, 1025, 1026, 4096};
        const std::size_t length =
            m_random() % 2 ? lengths[m_random() % std::size(lengths)] : m_random() % 1500;
        switch (m_random() % 4) {
            case 0:
                return Of(length, {});
            case 1:
                return Of(length, "\t\n");
            case 2:
                return Of(length, "\t\n0123456789+-");
            default:
                return Of(length, std::string_view("\t\n12a\0\xFF", 7));
        }
    }
    std::string Of(std::size_t length, std::string_view alphabet) {
        std::string text(length, '\0');
        for (char& byte : text) {
            byte = alphabet.empty() ? static_cast<char>(m_random() & 0xFF)
                                    : alphabet[m_random() % alphabet.size()];
        }
        return text;
    }

    std::minstd_rand m_random{4400};
};

class BadRepliesTest : public ClientTest {
 protected:
    static constexpr int kRounds = 3000;

    static bool IsToken(const std::string& text) {
        return !text.empty() && text.find_first_of("\t\n") == std::string::npos;
    }
    /// What of a reply can be seen: up to the first zero, within the capacity.
    static std::string Visible(const std::string& text, std::size_t capacity) {
        const std::string within = text.substr(0, capacity);
        return within.substr(0, within.find('\0'));
    }

    BadReplies m_bad;
};

TEST_F(BadRepliesTest, SignListGivesTokensOfTheReplyAlone) {
    for (int round = 0; round < kRounds; ++round) {
        const auto reply = m_rpc.replies["k4ssListSigns"] = m_bad.Next();
        std::vector<std::string> names;
        ASSERT_EQ(m_client.GetSignList(names), 1);
        const std::string visible = Visible(reply.text, 512);
        std::size_t at = 0;
        for (const std::string& name : names) {
            ASSERT_TRUE(IsToken(name));
            at = visible.find(name, at);
            ASSERT_NE(at, std::string::npos) << "made up in round " << round;
            at += name.size();
        }
        const auto separators = std::count_if(
            visible.begin(), visible.end(), [](char byte) { return byte == '\t' || byte == '\n'; });
        std::size_t kept = static_cast<std::size_t>(separators);
        for (const std::string& name : names)
            kept += name.size();
        ASSERT_EQ(kept, visible.size()) << "lost something in round " << round;
    }
}

TEST_F(BadRepliesTest, StatusKeepsTheModeInBounds) {
    for (int round = 0; round < kRounds; ++round) {
        const auto reply = m_rpc.replies["k4ssGetStatus"] = m_bad.Next();
        std::string text1 = "old", text2 = "old";
        std::uint32_t word1 = 0, word2 = 0, word3 = 0;
        tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
        ASSERT_EQ(m_client.GetSignStatus("Main", &text1, &text2, &word1, &mode, &word2, &word3), 1);
        ASSERT_GE(mode, 0);
        ASSERT_LE(mode, 12);
        const std::string visible = Visible(reply.text, 1024);
        ASSERT_EQ(text1, visible.empty() ? "old" : visible.substr(0, visible.find('\t')));
        ASSERT_LE(text2.size(), 1024U);
    }
}

TEST_F(BadRepliesTest, ConfigurationKeepsAllInBounds) {
    for (int round = 0; round < kRounds; ++round) {
        m_rpc.replies["k4ssGetConfig"] = m_bad.Next();
        std::uint32_t rows = 0, columns = 0;
        tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
        tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;
        tag_K4_SIGN_DIM_MODE dimMode = K4_SIGN_DIM_MANUAL_0;
        std::int32_t level = 0, offset = 0;
        ASSERT_EQ(m_client.GetSignConfig("Main", &rows, &columns, &color, &pixel, &dimMode, &level,
                                         &offset),
                  1);
        ASSERT_TRUE(color >= 0 && color <= 15) << color;
        ASSERT_TRUE(pixel >= 1 && pixel <= 3) << pixel;
        ASSERT_TRUE(dimMode >= 0 && dimMode <= 5) << dimMode;
        ASSERT_TRUE(level >= 0 && level <= 255) << level;
        ASSERT_TRUE(offset >= -64 && offset <= 64) << offset;
    }
}

TEST_F(BadRepliesTest, WindowStateGivesATokenOrLeavesTheName) {
    for (int round = 0; round < kRounds; ++round) {
        const auto reply = m_rpc.replies["k4ssListWindows"] = m_bad.Next();
        std::int32_t open = 0, row = 0, column = 0;
        std::string name;
        const auto window = static_cast<std::uint32_t>(round % 19);
        const int result = m_client.GetWindowState("Main", window, &open, &row, &column, &name);
        ASSERT_TRUE(result == 0 || IsToken(name));
        ASSERT_NE(Visible(reply.text, 1024).find(name), std::string::npos);
        if (window == 0 || window > 16) {
            ASSERT_EQ(result, 0) << window;
        }
        ASSERT_EQ(m_client.GetLastError(), "");
    }
}

TEST_F(BadRepliesTest, QueueFillsItsRoomAndNoMore) {
    for (int round = 0; round < kRounds; ++round) {
        m_rpc.replies["k4ssGetQueue"] = m_bad.Next();
        const auto capacity = static_cast<std::uint32_t>(round % 8);
        std::vector<K4_DISPLAY_QUEUE> entries(9);
        std::memset(entries.data(), 0x5A, entries.size() * sizeof entries[0]);
        const int count = m_client.GetQueue("Main", entries.data(), capacity);
        ASSERT_GE(count, 0);
        ASSERT_LE(static_cast<std::uint32_t>(count), capacity);
        for (int at = 0; at < count; ++at) {
            const K4_DISPLAY_QUEUE& entry = entries[static_cast<std::size_t>(at)];
            if (entry.dwType == K4_QUEUE_SEQUENCE) {
                ASSERT_TRUE(IsToken(entry.sequence.szSequence));
                ASSERT_EQ(entry.sequence.szSequence[260], '\0');
            } else if (entry.dwType == K4_QUEUE_WINDOW_ENABLE) {
                ASSERT_TRUE(entry.window.bOpen == 0 || entry.window.bOpen == 1);
            } else {
                ASSERT_TRUE(entry.dwType == K4_QUEUE_WINDOW_MOVE || entry.dwType == 0x5A5A5A5A);
            }
        }
        for (std::size_t beyond = capacity; beyond < entries.size(); ++beyond)
            ASSERT_EQ(entries[beyond].dwType, 0x5A5A5A5AU);
    }
}

TEST_F(BadRepliesTest, CallersTextsEndAtTheFirstZeroOrTheCapacity) {
    // A text that differs from every reply, so that nothing that is written looks unwritten.
    const std::string old(2000, '\x7F');
    const auto expected = [&](const RecordingSSRpc::Reply& reply, const std::string& text,
                              std::size_t capacity) {
        std::string image = old.substr(0, capacity);
        const std::size_t count = std::min(text.size(), capacity);
        image.replace(0, count, text, 0, count);
        if (reply.terminate && count < capacity)
            image[count] = '\0';
        return image == old.substr(0, capacity) ? old : image.substr(0, image.find('\0'));
    };
    for (int round = 0; round < kRounds; ++round) {
        const auto reply = m_bad.Next();
        for (const char* stub :
             {"k4ssGetSchedSeqStatus", "k4ssGetFrameStatus", "k4ssGetDefaultSequence"})
            m_rpc.replies[stub] = reply;
        std::string schedule = old, sequence = old, frame = old, standard = old;
        std::uint32_t word = 0;
        ASSERT_EQ(m_client.GetSignSchedSeq("Main", &schedule, &sequence, &word), 1);
        ASSERT_EQ(m_client.GetFrameStatus("Main", &frame, &word, &word, nullptr, nullptr, nullptr,
                                          nullptr),
                  1);
        ASSERT_EQ(m_client.GetDefaultSequence("Main", &standard, nullptr, &word), 1);
        ASSERT_EQ(schedule, expected(reply, reply.text, 261)) << round;
        ASSERT_EQ(sequence, expected(reply, reply.text2, 261)) << round;
        ASSERT_EQ(frame, expected(reply, reply.text, 1024)) << round;
        ASSERT_EQ(standard, expected(reply, reply.text, 270)) << round;
    }
}

TEST_F(BadRepliesTest, AFullBufferWithoutATerminatorEndsAtItsCapacity) {
    for (const char* stub : {"k4ssListSigns", "k4ssGetStatus", "k4ssListWindows", "k4ssGetQueue"}) {
        m_rpc.replies[stub].text.assign(5000, 'x');
        m_rpc.replies[stub].terminate = false;
    }
    std::vector<std::string> names;
    EXPECT_EQ(m_client.GetSignList(names), 1);
    EXPECT_EQ(names, std::vector<std::string>{std::string(512, 'x')});
    std::string text, name;
    EXPECT_EQ(m_client.GetSignStatus("Main", &text, nullptr, nullptr, nullptr, nullptr, nullptr),
              1);
    EXPECT_EQ(text, std::string(1024, 'x'));
    EXPECT_EQ(m_client.GetWindowState("Main", 1, nullptr, nullptr, nullptr, &name), 1);
    EXPECT_EQ(name, std::string(1024, 'x'));
}

TEST_F(BadRepliesTest, TenThousandFieldsAreWalkedToTheEnd) {
    std::string buffer;
    for (int number = 0; number < 10000; ++number)
        buffer += std::to_string(number) + "\t";
    std::string field;
    int count = 0;
    for (int more = m_client.ParseTabSepBuf(field, buffer); more;
         more = m_client.ParseTabSepBuf(field, "")) {
        ASSERT_EQ(field, std::to_string(count));
        ++count;
    }
    EXPECT_EQ(count, 10000);
}

TEST_F(BadRepliesTest, RepliesOfTenThousandFieldsAreReadAsFarAsTheBufferGoes) {
    std::string tokens, lines;
    for (int number = 0; number < 10000; ++number) {
        tokens += "9\t";
        lines += "\n\t";
    }
    for (const char* stub :
         {"k4ssListSigns", "k4ssGetStatus", "k4ssGetConfig", "k4ssListWindows", "k4ssGetQueue"})
        m_rpc.replies[stub].text = tokens;
    std::vector<std::string> names;
    EXPECT_EQ(m_client.GetSignList(names), 1);
    EXPECT_EQ(names.size(), 256U);
    std::vector<K4_DISPLAY_QUEUE> entries(10000);
    EXPECT_EQ(m_client.GetQueue("Main", entries.data(), 10000), 512);
    std::uint32_t word = 0;
    EXPECT_EQ(m_client.GetSignStatus("Main", nullptr, nullptr, nullptr, nullptr, nullptr, &word),
              1);
    EXPECT_EQ(word, 9U);
    std::int32_t offset = 0;
    EXPECT_EQ(m_client.GetSignConfig("Main", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                     &offset),
              1);
    EXPECT_EQ(offset, 9);
    m_rpc.replies["k4ssListWindows"].text = lines;
    std::string name = "old";
    EXPECT_EQ(m_client.GetWindowState("Main", 16, nullptr, nullptr, nullptr, &name), 0);
    EXPECT_EQ(name, "old");
}

TEST_F(BadRepliesTest, ZerosInTheMiddleEndTheReply) {
    m_rpc.replies["k4ssListSigns"].text = std::string("One\nTw\0o\nThree\n", 15);
    std::vector<std::string> names;
    EXPECT_EQ(m_client.GetSignList(names), 1);
    EXPECT_EQ(names, (std::vector<std::string>{"One", "Tw"}));
}

}  // namespace
}  // namespace k4test
