#include "suite/remoteservice/PhoneLinks.h"

#include <gtest/gtest.h>

namespace {

using k4suite::DialState;
using k4suite::LineFault;
using k4suite::PhoneLink;
using k4suite::PhoneLinks;
using std::chrono::milliseconds;
using Phase = DialState::Phase;
using Links = std::vector<PhoneLink>;

constexpr milliseconds kTime{3000};

class PhoneLinksTest : public testing::Test {
 protected:
    std::uint32_t Dial(const char* entry) { return m_links.Dial(entry, m_now, kTime); }
    void Advance(milliseconds time) {
        m_now += time;
        m_links.AdvanceTo(m_now);
    }
    DialState State(std::uint32_t handle) { return m_links.StateOf(handle); }

    k4cmn::Clock::TimePoint m_now{milliseconds(1'800'000'000'000)};
    PhoneLinks m_links{{"Harbor", "Airport", "Tower"}};
};

TEST_F(PhoneLinksTest, NoneIsUpAtFirst) {
    EXPECT_EQ(m_links.Up(), Links());
    EXPECT_FALSE(m_links.NextDue());
    EXPECT_EQ(m_links.Changes(), 0U);
}

TEST_F(PhoneLinksTest, DiallingTakesItsTimeAndEndsWithTheLinkUp) {
    const std::uint32_t handle = Dial("Airport");
    ASSERT_NE(handle, 0U);
    EXPECT_EQ(State(handle), DialState{Phase::Dialing});
    EXPECT_EQ(m_links.NextDue(), m_now + kTime);
    Advance(kTime - milliseconds(1));
    EXPECT_EQ(State(handle).phase, Phase::Dialing);
    EXPECT_EQ(m_links.Changes(), 0U);
    Advance(milliseconds(1));
    EXPECT_EQ(State(handle), DialState{Phase::Up});
    EXPECT_EQ(m_links.Up(), (Links{{handle, "Airport"}}));
    EXPECT_EQ(m_links.Changes(), 1U);
    EXPECT_FALSE(m_links.NextDue());
}

TEST_F(PhoneLinksTest, AnEntryIsFoundWithoutRegardToCase) {
    EXPECT_NE(Dial("hARBOR"), 0U);
    for (const char* entry : {"", "Harbo", "Harbor ", "No such entry"})
        EXPECT_EQ(Dial(entry), 0U) << entry;
    Advance(kTime);
    EXPECT_EQ(m_links.Up().at(0).entry, "Harbor") << "in the spelling of the phone book";
}

TEST_F(PhoneLinksTest, DiallingWhatIsDialledOrUpGivesTheSameLink) {
    const std::uint32_t handle = Dial("Harbor");
    Advance(milliseconds(2000));
    EXPECT_EQ(Dial("Harbor"), handle);
    Advance(milliseconds(1000));
    EXPECT_EQ(State(handle).phase, Phase::Up) << "dialling didn't begin anew";
    EXPECT_EQ(Dial("Harbor"), handle);
    EXPECT_EQ(State(handle).phase, Phase::Up);
    EXPECT_EQ(m_links.Changes(), 1U);
}

TEST_F(PhoneLinksTest, LinksAreListedInTheOrderOfThePhoneBook) {
    const std::uint32_t tower = Dial("Tower");
    const std::uint32_t harbor = Dial("Harbor");
    const std::uint32_t airport = Dial("Airport");
    Advance(kTime);
    EXPECT_EQ(m_links.Up(), (Links{{harbor, "Harbor"}, {airport, "Airport"}, {tower, "Tower"}}));
    EXPECT_EQ(m_links.Changes(), 3U);
}

TEST_F(PhoneLinksTest, TheNextThatIsDueIsTheEarliest) {
    const auto first = m_now + kTime;
    Dial("Tower");
    Advance(milliseconds(1000));
    Dial("Harbor");
    EXPECT_EQ(m_links.NextDue(), first);
    Advance(milliseconds(2000));
    EXPECT_EQ(m_links.NextDue(), first + milliseconds(1000));
}

TEST_F(PhoneLinksTest, HangingUpEndsALinkAndItsHandle) {
    const std::uint32_t handle = Dial("Harbor");
    Advance(kTime);
    EXPECT_TRUE(m_links.HangUp(handle));
    EXPECT_EQ(m_links.Changes(), 2U);
    EXPECT_EQ(m_links.Up(), Links());
    EXPECT_EQ(State(handle).phase, Phase::Unknown);
    EXPECT_FALSE(m_links.HangUp(handle));
    const std::uint32_t again = Dial("Harbor");
    EXPECT_NE(again, handle);
    EXPECT_FALSE(m_links.HangUp(handle)) << "of the former link";
}

TEST_F(PhoneLinksTest, HangingUpWhileDiallingIsNoChange) {
    const std::uint32_t handle = Dial("Harbor");
    EXPECT_TRUE(m_links.HangUp(handle));
    Advance(kTime);
    EXPECT_EQ(m_links.Up(), Links());
    EXPECT_EQ(m_links.Changes(), 0U);
}

TEST_F(PhoneLinksTest, HandlesThatNobodyGaveArentHungUp) {
    EXPECT_FALSE(m_links.HangUp(0));
    EXPECT_FALSE(m_links.HangUp(1));
    EXPECT_FALSE(m_links.HangUp(0xFFFFFFFF));
    EXPECT_EQ(State(0).phase, Phase::Unknown);
}

TEST_F(PhoneLinksTest, AFailingLineEndsDiallingWithItsFault) {
    for (const LineFault fault : {LineFault::NoDialTone, LineFault::Busy, LineFault::NoAnswer}) {
        ASSERT_TRUE(m_links.SetFault("HARBOR", fault));
        const std::uint32_t handle = Dial("Harbor");
        EXPECT_EQ(State(handle).phase, Phase::Dialing);
        Advance(kTime);
        EXPECT_EQ(State(handle), (DialState{Phase::Failed, fault}));
        EXPECT_EQ(m_links.Changes(), 0U);
        EXPECT_NE(Dial("Harbor"), handle) << "dialled anew";
        Advance(kTime);
    }
    m_links.SetFault("Harbor", LineFault::None);
    const std::uint32_t handle = Dial("Harbor");
    Advance(kTime);
    EXPECT_EQ(State(handle).phase, Phase::Up);
}

TEST_F(PhoneLinksTest, AFailedOneIsLetGoOfByHangingUp) {
    m_links.SetFault("Harbor", LineFault::Busy);
    const std::uint32_t handle = Dial("Harbor");
    Advance(kTime);
    EXPECT_TRUE(m_links.HangUp(handle));
    EXPECT_EQ(m_links.Changes(), 0U);
    EXPECT_EQ(State(handle).phase, Phase::Unknown);
}

TEST_F(PhoneLinksTest, ALinkGoesDownWhenItsLineFails) {
    const std::uint32_t handle = Dial("Harbor");
    const std::uint32_t other = Dial("Tower");
    Advance(kTime);
    EXPECT_TRUE(m_links.SetFault("Harbor", LineFault::NoDialTone));
    EXPECT_EQ(State(handle), (DialState{Phase::Failed, LineFault::NoDialTone}));
    EXPECT_EQ(m_links.Up(), (Links{{other, "Tower"}}));
    EXPECT_EQ(m_links.Changes(), 3U);
    EXPECT_TRUE(m_links.SetFault("Tower", LineFault::None));
    EXPECT_EQ(m_links.Changes(), 3U) << "a whole line stays as it is";
    EXPECT_FALSE(m_links.SetFault("No such entry", LineFault::Busy));
}

TEST_F(PhoneLinksTest, AClockThatIsSetBackEndsDiallingInsteadOfDrawingItOut) {
    const std::uint32_t handle = Dial("Harbor");
    Advance(milliseconds(-3'600'000));
    EXPECT_EQ(State(handle).phase, Phase::Up);
}

}  // namespace
