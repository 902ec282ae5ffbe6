#include <algorithm>
#include <random>

#include "tests/clients/RemoteClientTest.h"

namespace k4test {
namespace {

class RemoteBadReplies : public RemoteClientTest,
                         public ::testing::WithParamInterface<RemoteListRow> {
 protected:
    int List(Texts& list) { return (m_client.*GetParam().list)(list); }
    RecordingRSRpc::Reply& Reply() { return m_rpc.replies[GetParam().stub]; }
};

TEST_P(RemoteBadReplies, AFullBufferWithoutATerminatorEndsAtItsCapacity) {
    Reply() = {std::string(5000, 'x'), 0, false};
    Texts list;
    EXPECT_EQ(List(list), 1);
    EXPECT_EQ(list, Texts{std::string(261, 'x')});
}

TEST_P(RemoteBadReplies, AShortReplyWithoutATerminatorEndsWhereItEnds) {
    Reply() = {"One\nTwo", 0, false};
    Texts list;
    EXPECT_EQ(List(list), 1);
    EXPECT_EQ(list, (Texts{"One", "Two"}));
}

TEST_P(RemoteBadReplies, ALengthThatLiesIsntBelieved) {
    // The length that is told is that of the text, far beyond the capacity.
    Reply().text.assign(100000, '\t');
    Texts list;
    EXPECT_EQ(List(list), 1);
    EXPECT_TRUE(list.empty());
}

TEST_P(RemoteBadReplies, ZerosInTheMiddleEndTheReply) {
    Reply().text = std::string("One\nTw\0o\nThree\n", 15);
    Texts list;
    EXPECT_EQ(List(list), 1);
    EXPECT_EQ(list, (Texts{"One", "Tw"}));
}

TEST_P(RemoteBadReplies, ThousandsOfTokensAreReadAsFarAsTheBufferGoes) {
    for (int number = 0; number < 10000; ++number)
        Reply().text += "9\t";
    Texts list;
    EXPECT_EQ(List(list), 1);
    EXPECT_EQ(list, Texts(131, "9"));
}

TEST_P(RemoteBadReplies, GiveTokensOfTheReplyAloneAndAllOfThem) {
    constexpr std::size_t lengths[] = {0, 1, 2, 259, 260, 261, 262, 263, 1000};
    constexpr std::string_view alphabets[] = {std::string_view("\t\n12a\0\xFF", 7),
                                              std::string_view("\t\n")};
    std::minstd_rand random{4400};
    for (int round = 0; round < 3000; ++round) {
        RecordingRSRpc::Reply& reply = Reply();
        reply.terminate = random() % 3 != 0;
        reply.text.assign(random() % 2 ? lengths[random() % std::size(lengths)] : random() % 400,
                          '\0');
        const std::string_view alphabet = alphabets[random() % 2];
        const bool isBinary = random() % 2;
        for (char& byte : reply.text)
            byte = isBinary ? static_cast<char>(random() & 0xFF)
                            : alphabet[random() % alphabet.size()];
        Texts list;
        ASSERT_EQ(List(list), 1);

        std::string visible = reply.text.substr(0, 261);
        visible.resize(std::min(visible.find('\0'), visible.size()));
        std::string joined;
        for (const std::string& token : list) {
            ASSERT_FALSE(token.empty());
            ASSERT_EQ(token.find_first_of("\t\n"), std::string::npos);
            joined += token;
        }
        std::erase_if(visible, [](char byte) { return byte == '\t' || byte == '\n'; });
        ASSERT_EQ(joined, visible) << "in round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Remote, RemoteBadReplies, ::testing::ValuesIn(kRemoteLists),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace k4test
