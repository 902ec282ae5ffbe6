#include <iterator>
#include <limits>

#include "tests/clients/ClientTest.h"

namespace k4test {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();

class ControlTest : public ClientTest {
 protected:
    void FailOnce() {
        m_rpc.results["k4ssClearQueue"] = 1;
        m_client.ClearQueue("Main");
        m_rpc.calls.clear();
    }
};

class PlayFile : public ControlTest {};
class PlayScript : public ControlTest {};
class SetDimming : public ControlTest {};

TEST(PlaySeqModeNames, StandAtTheirValuesAndEndWithNull) {
    constexpr const char* names[] = {"",           "Continuous", "Single Step", "Sel Frame",
                                     "Num Times",  "Play Stop",  "Play Blank",  "Play Video",
                                     "Play Frame", "Play Next",  "Play Cal"};
    for (std::size_t mode = 0; mode < std::size(names); ++mode)
        EXPECT_STREQ(K4PlaySeqModeNames[mode], names[mode]);
    EXPECT_EQ(K4PlaySeqModeNames[11], nullptr);
    EXPECT_STREQ(K4PlaySeqModeNames[K4_PLAY_SEQ_CONTINUOUS], "Continuous");
    EXPECT_STREQ(K4PlaySeqModeNames[K4_PLAY_SEQ_PLAY_CAL], "Play Cal");
}

struct FileRow {
    const char* file;
    const char* stub;  ///< null: refused; empty: no stub
};

constexpr FileRow kFiles[] = {
    {"A.SQ4", "k4ssPlaySequence(Main, A.SQ4, 4, 9)"},
    {"A.AVI", "k4ssPlaySequence(Main, A.AVI, 4, 9)"},
    {"A.SD4", "k4ssRunSchedule(Main, A.SD4, 0)"},
    {"A.SC4", ""},
    {"SQ4", "k4ssPlaySequence(Main, SQ4, 4, 9)"},
    {"noSD4", "k4ssRunSchedule(Main, noSD4, 0)"},
    {"A.sq4", nullptr},
    {"A.Sq4", nullptr},
    {"A.avi", nullptr},
    {"A.sd4", nullptr},
    {"A.sc4", nullptr},
    {"A.SQ4 ", nullptr},
    {"A.SQ", nullptr},
    {"Q4", nullptr},
    {"4", nullptr},
    {"", nullptr},
    {"A.SQ4.BAK", nullptr},
    {"A.SX4", nullptr},
};

TEST_F(PlayFile, GoesByTheLastThreeCharacters) {
    for (const FileRow& row : kFiles) {
        m_rpc.calls.clear();
        const int result = m_client.PlayFile("Main", row.file, K4_PLAY_SEQ_NUM_TIMES, 9);
        EXPECT_EQ(result, row.stub ? 1 : 0) << row.file;
        EXPECT_EQ(m_rpc.calls, row.stub && *row.stub ? Calls{row.stub} : Calls{}) << row.file;
    }
}

TEST_F(PlayFile, ServiceOverloadConnectsTwiceForAFileThatItKnowsAndOnceForAnother) {
    for (const FileRow& row : kFiles) {
        m_client.ConnectService("Alpha");
        m_rpc.calls.clear();
        const int result = m_client.PlayFile("Alpha", "Main", row.file, K4_PLAY_SEQ_NUM_TIMES, 9);
        Calls expected = {"k4ssIsServer(Alpha)", "k4ssPing()"};
        if (row.stub)
            expected.insert(expected.end(), {"k4ssIsServer(Alpha)", "k4ssPing()"});
        if (row.stub && *row.stub)
            expected.push_back(row.stub);
        EXPECT_EQ(result, row.stub ? 1 : 0) << row.file;
        EXPECT_EQ(m_rpc.calls, expected) << row.file;
    }
}

TEST_F(PlayFile, PlainRefusalKeepsTheWordsOfTheFailureBefore) {
    EXPECT_EQ(m_client.PlayFile("Main", "A.sq4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "");
    FailOnce();
    EXPECT_EQ(m_client.PlayFile("Main", "A.sq4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "Could not clear queue");
    EXPECT_TRUE(m_rpc.calls.empty());
}

TEST_F(PlayFile, ServiceRefusalEndsWithoutWords) {
    FailOnce();
    EXPECT_EQ(m_client.PlayFile("Alpha", "Main", "A.sq4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "");
    EXPECT_EQ(m_rpc.connectedTo, "Alpha");
}

TEST_F(PlayFile, ServiceRefusalOfAnUnreachableServiceIsUnavailable) {
    m_rpc.results["k4ssConnectSignAsUser"] = 1;
    EXPECT_EQ(m_client.PlayFile("Alpha", "Main", "A.sq4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "Sign service unavailable.");
}

TEST_F(PlayFile, FailsWithTheWordsOfItsTarget) {
    m_rpc.results["k4ssPlaySequence"] = 1;
    m_rpc.results["k4ssRunSchedule"] = 1;
    EXPECT_EQ(m_client.PlayFile("Main", "A.AVI", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "Could not play sequence");
    EXPECT_EQ(m_client.PlayFile("Main", "A.SD4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "Could not run schedule");
    EXPECT_EQ(m_client.PlayFile("Alpha", "Main", "A.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "Could not play sequence");
}

TEST_F(PlayFile, TheSecondConnectionMayFailOnItsOwn) {
    int connects = 0;
    m_rpc.results["k4ssPing"] = 1;
    m_rpc.onCall = [&](const std::string& stub) {
        if (stub == "k4ssConnectSignAsUser" && ++connects == 2)
            m_rpc.results[stub] = 1;
    };
    EXPECT_EQ(m_client.PlayFile("Alpha", "Main", "A.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), "Sign service unavailable.");
    EXPECT_EQ(m_rpc.Count("k4ssPlaySequence"), 0U);
}

TEST_F(PlayScript, OfAnUnreachableServiceIsUnavailable) {
    m_rpc.results["k4ssConnectSignAsUser"] = 1;
    EXPECT_EQ(m_client.PlayScript("Alpha", "Main", "A.SC4"), 0);
    EXPECT_EQ(m_client.GetLastError(), "Sign service unavailable.");
    EXPECT_EQ(m_client.EndScript("Alpha", "Main"), 0);
    EXPECT_EQ(m_client.GetLastError(), "Sign service unavailable.");
}

TEST_F(SetDimming, LimitsTheValueByTheMode) {
    struct Row {
        std::int32_t mode, value, sent;
    };
    constexpr Row rows[] = {
        {5, 300, 255},  {5, 256, 255}, {5, 255, 255},      {5, 0, 0},     {5, -1, 0},
        {5, kLeast, 0}, {5, 128, 128}, {2, 65, 64},        {2, 64, 64},   {2, -65, -64},
        {2, -64, -64},  {2, 0, 0},     {2, kGreatest, 64}, {3, 300, 300}, {3, -300, -300},
        {4, 300, 300},  {0, 300, 300}, {1, -300, -300},    {6, 300, 300}, {-1, kLeast, kLeast},
    };
    for (const Row& row : rows) {
        m_rpc.calls.clear();
        const auto mode = static_cast<tag_K4_SIGN_DIM_MODE>(row.mode);
        EXPECT_EQ(m_client.SetDimming("Main", mode, row.value), 1);
        EXPECT_EQ(m_rpc.calls, Calls{"k4ssSetDimming(Main, " + std::to_string(row.mode) + ", " +
                                     std::to_string(row.sent) + ")"});
    }
}

// A window's state is set in two ways that differ in stubs and words alone.
struct WindowWay {
    const char* name;
    int (*set)(CK4CmnSS&, std::uint32_t window, std::int32_t open, std::int32_t row,
               std::int32_t column);
    int (*setOver)(CK4CmnSS&, std::uint32_t window, std::int32_t open, std::int32_t row,
                   std::int32_t column);
    const char* enable;
    const char* move;
    const char* openWords;
    const char* closeWords;
    const char* moveWords;
};

const WindowWay kWindowWays[] = {
    {"AtOnce",
     [](CK4CmnSS& client, auto... place) {
         return client.SetWindowState("Main", place..., "Small");
     },
     [](CK4CmnSS& client, auto... place) {
         return client.SetWindowState("Alpha", "Main", place..., "Small");
     },
     "k4ssWindowEnable", "k4ssWindowMove", "Could not open window", "Could not close window",
     "Could not move window"},
    {"ByQueue",
     [](CK4CmnSS& client, auto... place) {
         return client.QueueWindowState("Main", place..., "Small");
     },
     [](CK4CmnSS& client, auto... place) {
         return client.QueueWindowState("Alpha", "Main", place..., "Small");
     },
     "k4ssQueueWindowEnable", "k4ssQueueWindowMove", "Could not queue open window",
     "Could not queue close window", "Could not queue window move"},
};

class SettingAWindow : public ControlTest, public ::testing::WithParamInterface<WindowWay> {
 protected:
    std::string Enable(const std::string& arguments) const {
        return std::string(GetParam().enable) + "(Main, " + arguments + ")";
    }
    std::string Move(const std::string& arguments) const {
        return std::string(GetParam().move) + "(Main, " + arguments + ")";
    }
};

TEST_P(SettingAWindow, MovesByPlacesThatCountFromZero) {
    struct Row {
        std::int32_t row, column;
        const char* moved;  ///< null: not at all
    };
    constexpr Row rows[] = {
        {3, 4, "1, 2, 3"},
        {1, 1, "1, 0, 0"},
        {0, 4, nullptr},
        {3, 0, nullptr},
        {0, 0, nullptr},
        {-1, -5, "1, -2, -6"},
        {kGreatest, 1, "1, 2147483646, 0"},
        {kLeast, 1, "1, -2147483648, 0"},
    };
    for (const Row& row : rows) {
        m_rpc.calls.clear();
        EXPECT_EQ(GetParam().set(m_client, 1, 1, row.row, row.column), 1);
        Calls expected = {Enable("1, 1")};
        if (row.moved)
            expected.push_back(Move(row.moved));
        EXPECT_EQ(m_rpc.calls, expected) << row.row << ", " << row.column;
    }
}

TEST_P(SettingAWindow, PassesWindowAndOpenFlagAsTheyAre) {
    EXPECT_EQ(GetParam().set(m_client, 0, 0, 0, 0), 1);
    EXPECT_EQ(GetParam().set(m_client, 17, 5, 0, 0), 1);
    EXPECT_EQ(m_rpc.calls, (Calls{Enable("0, 0"), Enable("17, 5")}));
}

TEST_P(SettingAWindow, AFailedEnableSaysWhichAndDoesntMove) {
    m_rpc.results[GetParam().enable] = 1;
    EXPECT_EQ(GetParam().set(m_client, 1, 1, 3, 4), 0);
    EXPECT_EQ(m_client.GetLastError(), GetParam().openWords);
    EXPECT_EQ(GetParam().set(m_client, 1, 7, 3, 4), 0);
    EXPECT_EQ(m_client.GetLastError(), GetParam().openWords);
    EXPECT_EQ(GetParam().set(m_client, 1, 0, 3, 4), 0);
    EXPECT_EQ(m_client.GetLastError(), GetParam().closeWords);
    EXPECT_EQ(m_rpc.Count(GetParam().move), 0U);
}

TEST_P(SettingAWindow, AFailedMoveLeavesTheEnableDone) {
    m_rpc.results[GetParam().move] = 1;
    EXPECT_EQ(GetParam().set(m_client, 1, 1, 3, 4), 0);
    EXPECT_EQ(m_client.GetLastError(), GetParam().moveWords);
    EXPECT_EQ(m_rpc.calls, (Calls{Enable("1, 1"), Move("1, 2, 3")}));
}

TEST_P(SettingAWindow, ServiceOverloadFailsWithTheSameWords) {
    m_rpc.results[GetParam().move] = 1;
    EXPECT_EQ(GetParam().setOver(m_client, 1, 0, 3, 4), 0);
    EXPECT_EQ(m_client.GetLastError(), GetParam().moveWords);
    m_rpc.results[GetParam().enable] = 1;
    EXPECT_EQ(GetParam().setOver(m_client, 1, 0, 3, 4), 0);
    EXPECT_EQ(m_client.GetLastError(), GetParam().closeWords);
}

INSTANTIATE_TEST_SUITE_P(Client, SettingAWindow, ::testing::ValuesIn(kWindowWays),
                         [](const auto& way) { return std::string(way.param.name); });

TEST_F(ControlTest, NextItemsWordsHoldQuoteMarks) {
    m_rpc.results["k4ssNextItem"] = 1;
    EXPECT_EQ(m_client.NextItem("Main"), 0);
    EXPECT_EQ(m_client.GetLastError(), "Could not execute \"Next\" command");
}

TEST_F(ControlTest, NumbersPassAtTheirEnds) {
    m_client.SingleStep("Main", kLeast);
    m_client.SingleStep("Main", kGreatest);
    m_client.SelectFrame("Main", 0xFFFFFFFF);
    m_client.PlaySequence("Main", "A.SQ4", static_cast<tag_K4_PLAY_SEQ_MODE>(-1), 0xFFFFFFFF);
    EXPECT_EQ(m_rpc.calls,
              (Calls{"k4ssSingleStepFrame(Main, -2147483648)",
                     "k4ssSingleStepFrame(Main, 2147483647)", "k4ssSelectFrame(Main, 4294967295)",
                     "k4ssPlaySequence(Main, A.SQ4, -1, 4294967295)"}));
}

}  // namespace
}  // namespace k4test
