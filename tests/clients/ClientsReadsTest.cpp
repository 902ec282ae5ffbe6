#include "k4cmndlg/clients/ReplyFields.h"
#include "tests/clients/ClientTest.h"

namespace k4test {
namespace {

class ParseTabSepBuf : public ClientTest {
 protected:
    Texts Walk(const std::string& buffer) {
        Texts fields;
        std::string field;
        for (int more = m_client.ParseTabSepBuf(field, buffer); more;
             more = m_client.ParseTabSepBuf(field, ""))
            fields.push_back(field);
        return fields;
    }
};

TEST_F(ParseTabSepBuf, GivesTheFieldsBetweenTabs) {
    struct Row {
        const char* buffer;
        Texts fields;
    };
    const Row rows[] = {
        {"a\tb\tc", {"a", "b", "c"}},
        {"a", {"a"}},
        {"", {}},
        {"a\t\tb", {"a", "", "b"}},
        {"\ta", {"", "a"}},
        {"a\t", {"a"}},
        {"\t", {""}},
        {"\t\t", {"", ""}},
        {"a b\nc\td", {"a b\nc", "d"}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Walk(row.buffer), row.fields) << row.buffer;
}

TEST_F(ParseTabSepBuf, TheEndLeavesTheFieldAsItWas) {
    std::string field = "before";
    EXPECT_EQ(m_client.ParseTabSepBuf(field, ""), 0);
    EXPECT_EQ(field, "before");
}

TEST_F(ParseTabSepBuf, ANewBufferBeginsANewWalk) {
    std::string field;
    m_client.ParseTabSepBuf(field, "a\tb\tc");
    EXPECT_EQ(m_client.ParseTabSepBuf(field, "x\ty"), 1);
    EXPECT_EQ(field, "x");
    m_client.ParseTabSepBuf(field, "");
    EXPECT_EQ(field, "y");
    EXPECT_EQ(m_client.ParseTabSepBuf(field, ""), 0);
}

TEST_F(ParseTabSepBuf, ClearsTheWords) {
    m_rpc.results["k4ssStopSequence"] = 1;
    m_client.StopSequence("Main");
    std::string field;
    m_client.ParseTabSepBuf(field, "");
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST(DecimalFields, AreASignAndTheDigitsUpToAnyOtherByte) {
    struct Row {
        const char* field;
        std::int32_t number;
        std::uint32_t word;
    };
    constexpr Row rows[] = {
        {"", 0, 0},
        {"0", 0, 0},
        {"12", 12, 12},
        {"+12", 12, 12},
        {"-12", -12, 0},
        {"007", 7, 7},
        {"12x9", 12, 12},
        {"x12", 0, 0},
        {"-", 0, 0},
        {"+", 0, 0},
        {"--1", 0, 0},
        {"+-1", 0, 0},
        {"1.9", 1, 1},
        {"0x10", 0, 0},
        {" 12", 0, 0},
        {"12 ", 12, 12},
        {"2147483647", 2147483647, 2147483647U},
        {"2147483648", 2147483647, 2147483648U},
        {"4294967295", 2147483647, 4294967295U},
        {"4294967296", 2147483647, 4294967295U},
        {"-2147483648", -2147483647 - 1, 0},
        {"-2147483649", -2147483647 - 1, 0},
        {"18446744073709551617", 2147483647, 4294967295U},
        {"-18446744073709551617", -2147483647 - 1, 0},
        {"99999999999999999999999999999999999999999", 2147483647, 4294967295U},
        {"00000000000000000000000000000000000000012", 12, 12},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(k4cmn::DecimalNumber(row.field), row.number) << row.field;
        EXPECT_EQ(k4cmn::DecimalWord(row.field), row.word) << row.field;
    }
}

class GetSignStatus : public ClientTest {
 protected:
    int Read(const std::string& reply) {
        m_rpc.replies["k4ssGetStatus"].text = reply;
        return m_client.GetSignStatus("Main", &text1, &text2, &word1, &mode, &word2, &word3);
    }

    std::string text1 = "old1", text2 = "old2";
    std::uint32_t word1 = kUntouched, word2 = kUntouched, word3 = kUntouched;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_PLAY_CAL;
};

TEST_F(GetSignStatus, StoresItsSixFields) {
    EXPECT_EQ(Read("Playing\tA.SQ4\t3\t4\t5\t4294967295"), 1);
    EXPECT_EQ(text1, "Playing");
    EXPECT_EQ(text2, "A.SQ4");
    EXPECT_EQ(word1, 3U);
    EXPECT_EQ(mode, K4_PLAY_SEQ_NUM_TIMES);
    EXPECT_EQ(word2, 5U);
    EXPECT_EQ(word3, 4294967295U);
    EXPECT_EQ(m_rpc.lastCapacity, 1024U);
    EXPECT_EQ(m_rpc.lastLengthBefore, 0U);
}

TEST_F(GetSignStatus, AModeOutOf0To12Becomes1) {
    struct Row {
        const char* field;
        std::int32_t mode;
    };
    constexpr Row rows[] = {{"0", 0},           {"1", 1},  {"10", 10},         {"11", 11},
                            {"12", 12},         {"13", 1}, {"-1", 1},          {"", 0},
                            {"99999999999", 1}, {"x", 0},  {"-99999999999", 1}};
    for (const Row& row : rows) {
        EXPECT_EQ(Read(std::string("a\tb\t1\t") + row.field + "\t1\t1"), 1);
        EXPECT_EQ(mode, row.mode) << row.field;
    }
}

TEST_F(GetSignStatus, EmptyFieldsAreFields) {
    EXPECT_EQ(Read("\t\t\t\t\t6"), 1);
    EXPECT_EQ(text1, "");
    EXPECT_EQ(text2, "");
    EXPECT_EQ(word1, 0U);
    EXPECT_EQ(mode, K4_PLAY_SEQ_NONE);
    EXPECT_EQ(word2, 0U);
    EXPECT_EQ(word3, 6U);
}

TEST_F(GetSignStatus, AShortReplyLeavesTheRest) {
    EXPECT_EQ(Read("Playing\tA.SQ4\t3"), 1);
    EXPECT_EQ(text2, "A.SQ4");
    EXPECT_EQ(word1, 3U);
    EXPECT_EQ(mode, K4_PLAY_SEQ_PLAY_CAL);
    EXPECT_EQ(word2, kUntouched);
    EXPECT_EQ(word3, kUntouched);
}

TEST_F(GetSignStatus, AnEmptyReplyLeavesAllAlsoAfterALongOne) {
    EXPECT_EQ(Read("a\tb\t1\t2\t3\t4\tbeyond\tfurther"), 1);
    text1 = "old1";
    word1 = kUntouched;
    EXPECT_EQ(Read(""), 1);
    EXPECT_EQ(text1, "old1");
    EXPECT_EQ(word1, kUntouched);
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(GetSignStatus, UnwantedFieldsAreStillWalked) {
    m_rpc.replies["k4ssGetStatus"].text = "Playing\tA.SQ4\t3\t4\t5\t6";
    EXPECT_EQ(m_client.GetSignStatus("Main", nullptr, nullptr, nullptr, nullptr, nullptr, &word3),
              1);
    EXPECT_EQ(word3, 6U);
}

TEST_F(GetSignStatus, AFailureTouchesNoField) {
    m_rpc.results["k4ssGetStatus"] = 1;
    EXPECT_EQ(Read("Playing\tA.SQ4\t3\t4\t5\t6"), 0);
    EXPECT_EQ(text1, "old1");
    EXPECT_EQ(word3, kUntouched);
    EXPECT_EQ(m_client.GetLastError(), "Could not get sign status from service.");
}

TEST_F(GetSignStatus, TextsComeWhole) {
    const std::string longText(500, 'x');
    EXPECT_EQ(Read(longText + "\t" + longText + "y"), 1);
    EXPECT_EQ(text1, longText);
    EXPECT_EQ(text2, longText + "y");
}

class GetSignConfig : public ClientTest {
 protected:
    int Read(const std::string& reply) {
        m_rpc.replies["k4ssGetConfig"].text = reply;
        return m_client.GetSignConfig("Main", &rows, &columns, &color, &pixel, &dimMode, &level,
                                      &offset);
    }

    std::uint32_t rows = kUntouched, columns = kUntouched;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_RGB64;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_LED;
    tag_K4_SIGN_DIM_MODE dimMode = K4_SIGN_DIM_SCHEDULED;
    std::int32_t level = -7, offset = -7;
};

TEST_F(GetSignConfig, StoresSevenOfItsNineFields) {
    EXPECT_EQ(Read("48\t96\t11\t2\tdropped\t5\tdropped\t200\t-12"), 1);
    EXPECT_EQ(rows, 48U);
    EXPECT_EQ(columns, 96U);
    EXPECT_EQ(color, K4_SIGN_COLOR_RGB16M);
    EXPECT_EQ(pixel, K4_PIXEL_TECH_REFLECT);
    EXPECT_EQ(dimMode, K4_SIGN_DIM_MANUAL);
    EXPECT_EQ(level, 200);
    EXPECT_EQ(offset, -12);
    EXPECT_EQ(m_rpc.lastCapacity, 1024U);
    EXPECT_EQ(m_rpc.lastLengthBefore, 0U);
}

TEST_F(GetSignConfig, ReplacesOrClampsWhatIsOutOfBounds) {
    struct Row {
        const char* what;
        std::size_t field;
        const char* text;
        std::int32_t expected;
    };
    constexpr Row table[] = {
        {"color", 2, "16", 0},
        {"color", 2, "15", 15},
        {"color", 2, "0", 0},
        {"color", 2, "-1", 0},
        {"color", 2, "99999999999", 0},
        {"pixel", 3, "0", 1},
        {"pixel", 3, "4", 1},
        {"pixel", 3, "-1", 1},
        {"pixel", 3, "1", 1},
        {"pixel", 3, "2", 2},
        {"pixel", 3, "3", 3},
        {"pixel", 3, "", 1},
        {"dim mode", 5, "6", 0},
        {"dim mode", 5, "-1", 0},
        {"dim mode", 5, "0", 0},
        {"dim mode", 5, "1", 1},
        {"dim mode", 5, "5", 5},
        {"level", 7, "300", 255},
        {"level", 7, "256", 255},
        {"level", 7, "255", 255},
        {"level", 7, "0", 0},
        {"level", 7, "-5", 0},
        {"level", 7, "-99999999999", 0},
        {"level", 7, "99999999999", 255},
        {"offset", 8, "100", 64},
        {"offset", 8, "65", 64},
        {"offset", 8, "64", 64},
        {"offset", 8, "-64", -64},
        {"offset", 8, "-65", -64},
        {"offset", 8, "-100", -64},
        {"offset", 8, "", 0},
    };
    for (const Row& row : table) {
        Texts fields = {"1", "2", "3", "3", "0", "2", "0", "9", "9"};
        fields[row.field] = row.text;
        std::string reply;
        for (const std::string& field : fields)
            reply += field + "\t";
        // The empty text stands for a field that is there and empty.
        ASSERT_EQ(Read(reply), 1);
        const std::int32_t values[] = {0, 0, color, pixel, 0, dimMode, 0, level, offset};
        EXPECT_EQ(values[row.field], row.expected) << row.what << " of \"" << row.text << "\"";
    }
}

TEST_F(GetSignConfig, FillsLevelAndOffsetAlone) {
    m_rpc.replies["k4ssGetConfig"].text = "48\t96\t11\t2\t0\t5\t0\t200\t-12";
    EXPECT_EQ(m_client.GetSignConfig("Main", nullptr, nullptr, nullptr, nullptr, nullptr, &level,
                                     &offset),
              1);
    EXPECT_EQ(level, 200);
    EXPECT_EQ(offset, -12);
}

TEST_F(GetSignConfig, AShortReplyLeavesTheRest) {
    EXPECT_EQ(Read("48"), 1);
    EXPECT_EQ(rows, 48U);
    EXPECT_EQ(columns, kUntouched);
    EXPECT_EQ(color, K4_SIGN_COLOR_RGB64);
    EXPECT_EQ(pixel, K4_PIXEL_TECH_LED);
    EXPECT_EQ(dimMode, K4_SIGN_DIM_SCHEDULED);
    EXPECT_EQ(level, -7);
    EXPECT_EQ(offset, -7);
}

TEST_F(GetSignConfig, AFailureTouchesNoField) {
    m_rpc.results["k4ssGetConfig"] = 1;
    EXPECT_EQ(Read("48\t96\t11\t2\t0\t5\t0\t200\t-12"), 0);
    EXPECT_EQ(rows, kUntouched);
    EXPECT_EQ(offset, -7);
    EXPECT_EQ(m_client.GetLastError(), "Could not get sign configuration from service");
}

}  // namespace
}  // namespace k4test
