#include "suite/remoteservice/DownLoadEvents.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::DownLoadEvent;
using k4suite::DownLoadEventAt;
using k4suite::DownLoadEventOf;
using k4suite::DownLoadEvents;
using Events = std::vector<DownLoadEvent>;

const DownLoadEvent kMorning{"A:\\list.DL4", 2027, 1, 15, 8, 5};
const DownLoadEvent kNight{
    "\\\\STORE\\SIGNS\\Z\xC3\xBCrich, north = south;.DL4", 9999, 12, 31, 23, 59};

TEST(DownLoadEvent, IsPackedIntoTwoWords) {
    EXPECT_EQ(DownLoadEventOf("A:\\list.DL4", 8 << 6 | 5, (2027 << 4 | 1) << 5 | 15), kMorning);
    EXPECT_EQ(DownLoadEventOf("x", 0, (1 << 4 | 1) << 5 | 1), (DownLoadEvent{"x", 1, 1, 1, 0, 0}));
    EXPECT_FALSE(DownLoadEventOf("", 8 << 6, (2027 << 4 | 1) << 5 | 15));
    EXPECT_FALSE(DownLoadEventOf("x", 0, (10000 << 4 | 1) << 5 | 1));
}

TEST(DownLoadEvent, HasItsTimeAsAText) {
    EXPECT_EQ(WhenText(kMorning), "2027-01-15 08:05");
    EXPECT_EQ(DownLoadEventAt(kMorning.path, "2027-01-15 08:05"), kMorning);
    EXPECT_EQ(DownLoadEventAt(kNight.path, WhenText(kNight)), kNight);
    for (const char* when :
         {"", "2027-01-15", "2027-1-15 08:05", "2027-01-15 8:05", "2027-01-15 08:05 ",
          "2027-01-15 24:00", "2027-02-30 08:05", "-027-01-15 08:05", "2027-01-15  8:05",
          "20270-01-15 08:05", "99999999999999999999-01-15 08:05", "2027-01-15T08:05", "soon"})
        EXPECT_FALSE(DownLoadEventAt("x", when)) << when;
    EXPECT_FALSE(DownLoadEventAt("", "2027-01-15 08:05"));
}

class DownLoadEventsTest : public testing::Test {
 protected:
    fs::path File() const { return m_folder / "state" / "downloads.ini"; }

    k4test::TempFolder m_folder;
};

TEST_F(DownLoadEventsTest, AreNoneAndNoFileAtFirst) {
    const DownLoadEvents events(File());
    EXPECT_EQ(events.All(), Events());
    EXPECT_TRUE(events.Problems().empty());
    EXPECT_FALSE(fs::exists(File()));
}

TEST_F(DownLoadEventsTest, AreKeptInTheirOrderAlsoTheSameOneTwice) {
    DownLoadEvents events(File());
    EXPECT_TRUE(events.Add(kNight));
    EXPECT_TRUE(events.Add(kMorning));
    EXPECT_TRUE(events.Add(kNight));
    EXPECT_EQ(events.All(), (Events{kNight, kMorning, kNight}));
    EXPECT_EQ(DownLoadEvents(File()).All(), (Events{kNight, kMorning, kNight}));
}

TEST_F(DownLoadEventsTest, MoreThanTenStayInTheirOrder) {
    Events all;
    {
        DownLoadEvents events(File());
        for (int number = 0; number < 25; ++number) {
            all.push_back(kMorning);
            all.back().path += std::to_string(number);
            ASSERT_TRUE(events.Add(all.back()));
        }
    }
    EXPECT_EQ(DownLoadEvents(File()).All(), all);
}

TEST_F(DownLoadEventsTest, APathThatIsNoTextIsRefused) {
    DownLoadEvents events(File());
    DownLoadEvent event = kMorning;
    event.path = "A:\\\xFF.DL4";
    EXPECT_FALSE(events.Add(event));
    EXPECT_EQ(events.All(), Events());
}

TEST_F(DownLoadEventsTest, WhatCantBeUnderstoodIsToldAndStays) {
    m_folder.Write("state/downloads.ini",
                   "[DownLoad1]\nPath=one\nWhen=2027-01-15 08:05\n"
                   "[DownLoad2]\nPath=two\nWhen=tomorrow\n"
                   "[DownLoad3]\nWhen=2027-01-15 08:05\n"
                   "[DownLoad5]\nPath=five\nWhen=2027-01-15 08:05\n"
                   "[Further]\nPath=six\n");
    {
        DownLoadEvents events(File());
        ASSERT_EQ(events.All().size(), 2U);
        EXPECT_EQ(events.All()[1].path, "five");
        ASSERT_EQ(events.Problems().size(), 2U);
        EXPECT_EQ(events.Problems()[0],
                  "The download event 2 is left out: its path or its time is not possible.");
        EXPECT_TRUE(events.Add(kMorning));
    }
    const std::string text = m_folder.Read("state/downloads.ini");
    EXPECT_NE(text.find("tomorrow"), std::string::npos);
    EXPECT_NE(text.find("[DownLoad6]"), std::string::npos);
    EXPECT_EQ(DownLoadEvents(File()).All().size(), 3U);
}

TEST_F(DownLoadEventsTest, ADamagedFileIsSetAsideAndTold) {
    m_folder.Write("state/downloads.ini", "[DownLoad1\nPath");
    DownLoadEvents events(File());
    EXPECT_EQ(events.All(), Events());
    EXPECT_EQ(events.Problems().size(), 1U);
    EXPECT_TRUE(fs::exists(File().string() + ".damaged-1"));
    EXPECT_TRUE(events.Add(kMorning));
    EXPECT_EQ(DownLoadEvents(File()).All(), Events{kMorning});
}

TEST_F(DownLoadEventsTest, OneThatCantBeStoredIsntThere) {
    m_folder.Write("state", "a file in the folder's place");
    DownLoadEvents events(File());
    EXPECT_FALSE(events.Add(kMorning));
    EXPECT_EQ(events.All(), Events());
}

TEST_F(DownLoadEventsTest, BeyondTheMostTheyAreRefused) {
    m_folder.Write("state/downloads.ini", "[DownLoad" + std::to_string(DownLoadEvents::kMost) +
                                              "]\nPath=one\nWhen=2027-01-15 08:05\n");
    DownLoadEvents events(File());
    EXPECT_EQ(events.All().size(), 1U);
    EXPECT_FALSE(events.Add(kMorning));
    EXPECT_EQ(events.All().size(), 1U);
}

}  // namespace
