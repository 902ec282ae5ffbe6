#include "apps/preview/Player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include "tests/apps/preview/PreviewFixture.h"
#include "tests/support/DrivenClock.h"

namespace {

using k4suite::SequenceWriter;
using preview::milliseconds;
using preview::Player;
using testing::HasSubstr;

/// A player over a time that stands still until the test moves it.
class PlayerTest : public k4test::PreviewFixture {
 protected:
    void Open(const std::string& path, bool play = false) {
        player.Open(path, play);
        ASSERT_TRUE(QTest::qWaitFor([&] { return player.IsComplete(); }));
    }
    void Wait(int by) {
        time.Advance(milliseconds(by));
        player.Tick();
    }
    /// Waits until the words in the picture's place hold a text.
    bool ComeWords(const std::string& part) {
        return QTest::qWaitFor([&] { return player.Seen().words.find(part) != std::string::npos; });
    }

    k4test::DrivenClock time;
    k4cmn::ScopedProvider<k4cmn::Clock> useTime{time};
    Player player;
};

TEST_F(PlayerTest, WithoutASequenceItSaysWhatToDo) {
    EXPECT_EQ(player.Seen().words,
              "Nothing to preview yet.\n"
              "Choose a sequence in a list of files, and \"Preview\" in its menu.");
    EXPECT_FALSE(player.CanPlay());
    player.Play();
    player.Step(1);
    player.ToLast();
    player.Tick();
    EXPECT_FALSE(player.IsPlaying());
    EXPECT_TRUE(player.IsIdle());
}

TEST_F(PlayerTest, TheFirstFrameIsSeenAtOnce) {
    player.Open(MakeFrames("Goal.SQ4", {100, 200}), false);
    EXPECT_EQ(player.Seen().picture.size(), QSize(kColumns, kRows));
    EXPECT_EQ(player.Seen().words, "");
    EXPECT_EQ(player.Index(), 0u);
    EXPECT_FALSE(player.IsPlaying());
}

TEST_F(PlayerTest, PicturesAreThoseOfTheFrames) {
    Open(Make("Goal.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 100, 0x00);
        AddFrame(writer, 100, 0xFF);
    }));
    // Low bytes stand first: the number's lamps are columns 8 to 15 of the first row.
    EXPECT_NE(player.Seen().picture.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(player.Seen().picture.pixelColor(8, 0), QColor(Qt::black));
    player.Step(1);
    EXPECT_NE(player.Seen().picture.pixelColor(8, 0), QColor(Qt::black));
}

// Playing ----------------------------------------------------------------------------------------

TEST_F(PlayerTest, TheFrameFollowsFromTheTime) {
    Open(MakeFrames("Goal.SQ4", {100, 200, 300}), true);
    EXPECT_TRUE(player.IsPlaying());
    const struct {
        int by;
        std::size_t index;
    } rows[] = {{99, 0}, {1, 1}, {199, 1}, {1, 2}, {299, 2}, {1, 0}, {100, 1}};
    for (const auto& row : rows) {
        Wait(row.by);
        EXPECT_EQ(player.Index(), row.index);
    }
}

TEST_F(PlayerTest, LateFramesArePassedOver) {
    Open(MakeEqualFrames("Goal.SQ4", 1000, 10), true);
    QSignalSpy seen(&player, &Player::SeenChanged);
    Wait(5005);
    EXPECT_EQ(player.Index(), 500u);
    EXPECT_EQ(seen.count(), 1);
}

TEST_F(PlayerTest, WhenAFramesTimeEndsItTicksByItself) {
    Open(MakeFrames("Goal.SQ4", {20, 1'000'000}), true);
    time.Advance(milliseconds(20));
    EXPECT_TRUE(QTest::qWaitFor([&] { return player.Index() == 1; }));
}

TEST_F(PlayerTest, AFrameMayStandLongerThanAnyTimerWaits) {
    constexpr std::uint32_t kLongest = 0xFFFFFFFF;  // milliseconds, some seven weeks
    Open(MakeFrames("Goal.SQ4", {kLongest, 100}), true);
    for (const std::size_t speed : {std::size_t{0}, std::size_t{1}, preview::kOwnSpeed}) {
        player.SetSpeed(speed);
        EXPECT_FALSE(player.IsIdle()) << speed;
    }
    time.Advance(milliseconds(kLongest));
    player.Tick();
    EXPECT_EQ(player.Index(), 1u);
}

TEST_F(PlayerTest, RepeatingTakesNoTimeFromTheNextRound) {
    Open(MakeFrames("Goal.SQ4", {100, 100}), true);
    Wait(1'000'150);
    EXPECT_EQ(player.Index(), 1u);
    Wait(49);
    EXPECT_EQ(player.Index(), 1u);
    Wait(1);
    EXPECT_EQ(player.Index(), 0u);
}

TEST_F(PlayerTest, WithoutRepeatingItEndsAtTheLastFrame) {
    player.SetLooping(false);
    Open(MakeFrames("Goal.SQ4", {100, 100}), true);
    Wait(199);
    EXPECT_TRUE(player.IsPlaying());
    Wait(1);
    EXPECT_FALSE(player.IsPlaying());
    EXPECT_EQ(player.Index(), 1u);
    EXPECT_TRUE(player.IsIdle());
    player.Play();
    EXPECT_EQ(player.Index(), 0u);
    EXPECT_TRUE(player.IsPlaying());
    Wait(5000);
    EXPECT_EQ(player.Index(), 1u);
}

TEST_F(PlayerTest, EachSpeed) {
    Open(MakeEqualFrames("Goal.SQ4", 100, 10));
    const std::size_t after80[] = {2, 4, 8, 16, 32, 64};
    for (std::size_t speed = 0; speed < preview::kSpeeds.size(); ++speed) {
        player.ToFirst();
        player.SetSpeed(speed);
        player.Play();
        Wait(80);
        EXPECT_EQ(player.Index(), after80[speed]);
        player.Pause();
    }
}

TEST_F(PlayerTest, PausedItDoesNothing) {
    Open(MakeEqualFrames("Goal.SQ4", 100, 10), true);
    EXPECT_FALSE(player.IsIdle());
    Wait(55);
    player.Pause();
    EXPECT_TRUE(player.IsIdle());
    Wait(1000);
    EXPECT_EQ(player.Index(), 5u);
    player.Play();
    Wait(4);
    EXPECT_EQ(player.Index(), 5u);
    Wait(1);
    EXPECT_EQ(player.Index(), 6u);
}

TEST_F(PlayerTest, AStillThatRepeatsDoesNothingEither) {
    Open(MakeFrames("Goal.SQ4", {1}), true);
    EXPECT_TRUE(player.IsPlaying());
    EXPECT_TRUE(player.IsIdle());
    player.SetLooping(false);
    EXPECT_FALSE(player.IsIdle());
    Wait(1);
    EXPECT_FALSE(player.IsPlaying());
}

// Going about -----------------------------------------------------------------------------------

TEST_F(PlayerTest, StepsStandStill) {
    Open(MakeFrames("Goal.SQ4", {100, 100, 100}), true);
    player.Step(1);
    EXPECT_FALSE(player.IsPlaying());
    EXPECT_EQ(player.Index(), 1u);
    player.Step(1);
    player.Step(1);
    EXPECT_EQ(player.Index(), 2u);
    player.Step(-1);
    player.Step(-1);
    player.Step(-1);
    EXPECT_EQ(player.Index(), 0u);
}

TEST_F(PlayerTest, GoingToAFramePlaysOnFromThere) {
    Open(MakeFrames("Goal.SQ4", {100, 100, 100}), true);
    player.GoTo(1);
    Wait(99);
    EXPECT_EQ(player.Index(), 1u);
    Wait(1);
    EXPECT_EQ(player.Index(), 2u);
    player.ToFirst();
    EXPECT_EQ(player.Index(), 0u);
    EXPECT_TRUE(player.IsPlaying());
    player.GoTo(1000);
    EXPECT_EQ(player.Index(), 2u);
}

TEST_F(PlayerTest, AnotherSequenceBeginsAtItsFirstFrame) {
    Open(MakeFrames("One.SQ4", {100, 100}), true);
    Wait(150);
    Open(MakeFrames("Two.SQ4", {100, 100}), false);
    EXPECT_EQ(player.Index(), 0u);
    EXPECT_FALSE(player.IsPlaying());
    EXPECT_TRUE(player.IsIdle());
    Open("", true);
    EXPECT_THAT(player.Seen().words, HasSubstr("Nothing to preview yet."));
    EXPECT_TRUE(player.Line().IsEmpty());
}

TEST_F(PlayerTest, SixtyThousandFramesOpenAtOnce) {
    const std::string path = MakeEqualFrames("Long.SQ4", 60'000, 10);
    QElapsedTimer opening;
    opening.start();
    player.Open(path, false);
    EXPECT_LT(opening.elapsed(), 250);
    EXPECT_FALSE(player.Seen().picture.isNull());
    EXPECT_FALSE(player.IsComplete());
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.IsComplete(); }, 60'000));
    EXPECT_EQ(player.Line().Count(), 60'000u);
    EXPECT_EQ(player.Line().Duration(), milliseconds(600'000));
    player.ToLast();
    EXPECT_EQ(player.Index(), 59'999u);
    EXPECT_FALSE(player.Seen().picture.isNull());
    EXPECT_TRUE(player.IsIdle());
}

TEST_F(PlayerTest, PlayingWaitsForWhatIsNotReadYet) {
    player.Open(MakeEqualFrames("Long.SQ4", 5'000, 10), true);
    ASSERT_FALSE(player.IsComplete());
    const std::size_t known = player.Line().Count();
    Wait(10'000);
    EXPECT_EQ(player.Index(), known - 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.IsComplete(); }, 60'000));
    EXPECT_EQ(player.Index(), known);  // it stood at the end of what was known
    Wait(10);
    EXPECT_EQ(player.Index(), known + 1);
}

// What can't be played ---------------------------------------------------------------------------

TEST_F(PlayerTest, AnIncludeThatIsMissingIsSeenByStepping) {
    Open(Make("Main.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 100);
        AddInclude(writer, {"Missing.SQ4"});
        AddFrame(writer, 100);
    }));
    EXPECT_EQ(player.Notice(), "One place of the sequence can't be played: see frame 2.");
    player.Step(1);
    EXPECT_TRUE(player.Seen().picture.isNull());
    EXPECT_EQ(player.Seen().words, "Included: A:\\Missing.SQ4\nCannot open \"" +
                                       Native("Missing.SQ4") + "\": No such file or directory.");
    player.Play();
    EXPECT_EQ(player.Index(), 2u);
    player.ToFirst();
    Wait(100);
    EXPECT_EQ(player.Index(), 2u);
}

TEST_F(PlayerTest, OnlyWhatTakesNoTimeCannotBePlayed) {
    Open(Make("Main.SQ4",
              [](SequenceWriter& writer) {
                  AddInclude(writer, {"Main.SQ4", "Missing.SQ4"});
              }),
         true);
    EXPECT_FALSE(player.CanPlay());
    EXPECT_FALSE(player.IsPlaying());
    EXPECT_THAT(player.Seen().words, HasSubstr("inside of itself"));
    EXPECT_EQ(player.Notice(), "Places of the sequence can't be played; the first is frame 1.");
    player.Step(1);
    EXPECT_THAT(player.Seen().words, HasSubstr("No such file"));
}

TEST_F(PlayerTest, ADamagedFrameIsWordsForItsTime) {
    k4suite::SequenceFacts facts = Facts();
    facts.level = K4_COMPRESS_MEDIUM;
    Make(
        "Main.SQ4",
        [](SequenceWriter& writer) {
            AddFrame(writer, 100);
            Bytes content(52 + 3, '\x7F');  // a header, and data that doesn't unpack
            const std::uint8_t dwell[] = {50, 0, 0, 0};
            std::copy(std::begin(dwell), std::end(dwell), content.begin());
            content[48] = 2;
            content[49] = content[50] = content[51] = 0;
            writer.AddChunk(k4cmn::kGraphicFrame, content);
            AddFrame(writer, 100);
        },
        facts);
    Open(Path("Main.SQ4"), true);
    Wait(100);
    EXPECT_EQ(player.Index(), 1u);
    EXPECT_TRUE(player.Seen().picture.isNull());
    EXPECT_THAT(player.Seen().words, HasSubstr("Cannot show frame 2 of A:\\Main.SQ4:\n"));
    Wait(50);
    EXPECT_EQ(player.Index(), 2u);
    EXPECT_FALSE(player.Seen().picture.isNull());
}

TEST_F(PlayerTest, AFrameWhosePlaceIsUnknownIsWords) {
    Make("Main.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 100);
        writer.AddChunk(k4cmn::kGraphicFrame, Bytes(5));
    });
    Open(Path("Main.SQ4"));
    player.Step(1);
    EXPECT_THAT(player.Seen().words, HasSubstr("Cannot show frame 2 of A:\\Main.SQ4:\n"
                                               "A graphic frame of 5 bytes is too short"));
}

TEST_F(PlayerTest, FilesThatCannotBeShownAreWords) {
    folder.Write("home/drives/A/Bad.SQ4", "x");
    Make("Empty.SQ4", [](auto&) {});
    const struct {
        const char* path;
        const char* words;
    } rows[] = {
        {"A:\\Nowhere.SQ4", "Cannot show A:\\Nowhere.SQ4:\nCannot open \""},
        {"A:\\Nowhere.SQ4", "It will be shown as soon as it can be read."},
        {"A:\\Bad.SQ4", "Cannot show A:\\Bad.SQ4:\nThe file is too short for a sequence."},
        {"A:\\Empty.SQ4", "Cannot show A:\\Empty.SQ4:\nThe sequence has no frames."},
        {"nonsense", "Cannot show nonsense:\nThere is no place \"nonsense\"."},
    };
    for (const auto& row : rows) {
        Open(row.path, true);
        EXPECT_TRUE(ComeWords(row.words)) << player.Seen().words;
        EXPECT_FALSE(player.CanPlay());
    }
}

// Files that change ------------------------------------------------------------------------------

TEST_F(PlayerTest, AReplacedFileIsReadAnewAndPlayingGoesOn) {
    Open(MakeFrames("Goal.SQ4", {100, 100, 100}), true);
    Wait(150);
    MakeEqualFrames("Goal.SQ4", 30, 10);
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.Line().Count() == 30; }));
    EXPECT_TRUE(player.IsPlaying());
    EXPECT_EQ(player.Index(), 15u);
    Wait(10);
    EXPECT_EQ(player.Index(), 16u);
}

TEST_F(PlayerTest, AReplacedFileIsReadAnewWhilePaused) {
    Open(MakeFrames("Goal.SQ4", {100, 100, 100}));
    player.GoTo(1);
    Make("Goal.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 100, 0xFF);
        AddFrame(writer, 100, 0xFF);
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.Line().Count() == 2; }));
    EXPECT_FALSE(player.IsPlaying());
    EXPECT_EQ(player.Index(), 1u);
    EXPECT_NE(player.Seen().picture.pixelColor(8, 0), QColor(Qt::black));
    player.GoTo(1);
    MakeFrames("Goal.SQ4", {100});
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.Line().Count() == 1; }));
    EXPECT_EQ(player.Index(), 0u);
}

TEST_F(PlayerTest, BehindAChangeWhilePausedItPlaysOnFromTheFrameThatIsSeen) {
    Open(MakeFrames("Goal.SQ4", {100, 100, 100}));
    player.GoTo(2);
    MakeFrames("Goal.SQ4", {1000, 1000, 1000, 1000});
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.Line().Count() == 4; }));
    EXPECT_EQ(player.Index(), 2u);
    player.Play();
    EXPECT_EQ(player.Index(), 2u);
    Wait(1000);
    EXPECT_EQ(player.Index(), 3u);
}

TEST_F(PlayerTest, BehindAChangeAtTheEndItPlaysFromTheBeginning) {
    player.SetLooping(false);
    Open(MakeFrames("Goal.SQ4", {100, 100}), true);
    Wait(200);
    ASSERT_FALSE(player.IsPlaying());
    MakeFrames("Goal.SQ4", {1000, 1000, 1000});
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.Line().Count() == 3; }));
    EXPECT_EQ(player.Index(), 1u);
    player.Play();
    EXPECT_EQ(player.Index(), 0u);
}

TEST_F(PlayerTest, AFileThatIsWrittenInPlaceIsReadAnew) {
    Open(MakeFrames("Goal.SQ4", {100, 100}));
    const std::string other = MakeFrames("Other.SQ4", {70});
    const std::string content = folder.Read("home/drives/A/Other.SQ4");
    folder.Write("home/drives/A/Goal.SQ4", content);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return player.Line().Count() == 1 && player.Line().Duration() == milliseconds(70);
    }));
}

TEST_F(PlayerTest, AFileThatVanishesAndComesBackPlaysOn) {
    Open(MakeFrames("Goal.SQ4", {100, 100, 100}), true);
    Wait(150);
    std::filesystem::remove(Native("Goal.SQ4"));
    ASSERT_TRUE(ComeWords("Cannot show A:\\Goal.SQ4:"));
    EXPECT_FALSE(player.IsPlaying());
    EXPECT_TRUE(player.IsIdle());
    time.Advance(milliseconds(60'000));
    MakeFrames("Goal.SQ4", {100, 100, 100});
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.IsPlaying(); }));
    EXPECT_EQ(player.Index(), 1u);
    Wait(50);
    EXPECT_EQ(player.Index(), 2u);
}

TEST_F(PlayerTest, AFileThatIsDamagedWhilePlayingIsWordsUntilItIsWhole) {
    Open(MakeFrames("Goal.SQ4", {100, 100, 100}), true);
    CutTo("Goal.SQ4", 100);
    ASSERT_TRUE(ComeWords("The file is too short for a sequence."));
    MakeFrames("Goal.SQ4", {100, 100});
    EXPECT_TRUE(QTest::qWaitFor([&] { return player.IsPlaying(); }));
}

TEST_F(PlayerTest, AnIncludedFileThatComesIsPlayed) {
    Open(Make("Main.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 100);
        AddInclude(writer, {"Later.SQ4"});
    }));
    ASSERT_EQ(player.Line().Count(), 2u);
    MakeFrames("Later.SQ4", {10, 20});
    EXPECT_TRUE(QTest::qWaitFor([&] { return player.Line().Count() == 3; }));
    EXPECT_EQ(player.Notice(), "");
}

TEST_F(PlayerTest, AFileThatIsWaitedForPlaysWhenItComes) {
    Open(Path("Later.SQ4"), true);
    EXPECT_TRUE(ComeWords("No such file"));
    MakeFrames("Later.SQ4", {100, 100});
    EXPECT_TRUE(QTest::qWaitFor([&] { return player.IsPlaying(); }));
}

TEST_F(PlayerTest, PauseWhileAFileIsGoneIsKept) {
    Open(MakeFrames("Goal.SQ4", {100, 100}), true);
    std::filesystem::remove(Native("Goal.SQ4"));
    ASSERT_TRUE(ComeWords("No such file"));
    player.Pause();
    MakeFrames("Goal.SQ4", {100, 100});
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.CanPlay(); }));
    EXPECT_FALSE(player.IsPlaying());
}

}  // namespace
