#include "apps/preview/TimeLineReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/apps/preview/PreviewFixture.h"

namespace {

using k4suite::SequenceWriter;
using preview::milliseconds;
using preview::Moment;
using preview::MomentKind;
using preview::TimeLine;
using preview::TimeLineReader;
using testing::ElementsAre;
using testing::HasSubstr;

class TimeLineReaderTest : public k4test::PreviewFixture {
 protected:
    /// Reads a sequence whole.
    TimeLineReader& Read(const std::string& path) {
        reader = TimeLineReader(path);
        while (!reader.IsDone())
            reader.Read(1000);
        return reader;
    }

    /// "Goal.SQ4 2 100": file, frame, time; and what isn't a frame with its kind and words.
    std::vector<std::string> Moments() const {
        std::vector<std::string> texts;
        const TimeLine& line = reader.Line();
        for (std::size_t i = 0; i < line.Count(); ++i) {
            const Moment& moment = line.At(i);
            std::string text = line.Files()[moment.file].path + " " + std::to_string(moment.frame);
            if (moment.kind == MomentKind::Frame)
                text += " " + std::to_string(moment.dwell.count());
            else
                text += ": " + line.Words(moment.words);
            texts.push_back(text);
        }
        return texts;
    }

    std::string Missing(const std::string& name) const {
        return "Included: A:\\" + name + "\nCannot open \"" + Native(name) +
               "\": No such file or directory.";
    }

    TimeLineReader reader{std::string()};
};

TEST_F(TimeLineReaderTest, FramesInTheirOrderAndTimes) {
    Read(MakeFrames("Goal.SQ4", {100, 250, 40}));
    EXPECT_THAT(Moments(),
                ElementsAre("A:\\Goal.SQ4 1 100", "A:\\Goal.SQ4 2 250", "A:\\Goal.SQ4 3 40"));
    EXPECT_EQ(reader.Line().Duration(), milliseconds(390));
    EXPECT_EQ(reader.Problem(), "");
    EXPECT_EQ(reader.Notice(), "");
}

TEST_F(TimeLineReaderTest, NothingIsReadBeforeItIsAsked) {
    const TimeLineReader untouched(MakeFrames("Goal.SQ4", {100}));
    EXPECT_FALSE(untouched.IsDone());
    EXPECT_TRUE(untouched.Places().empty());
}

TEST_F(TimeLineReaderTest, ReadsNoMoreThanItIsAsked) {
    reader = TimeLineReader(MakeEqualFrames("Goal.SQ4", 100, 10));
    reader.Read(30);
    EXPECT_EQ(reader.Line().Count(), 30u);
    EXPECT_FALSE(reader.IsDone());
    reader.Read(70);
    EXPECT_EQ(reader.Line().Count(), 100u);
    reader.Read(2);
    EXPECT_TRUE(reader.IsDone());
    reader.Read(1000);
    EXPECT_EQ(reader.Line().Count(), 100u);
}

TEST_F(TimeLineReaderTest, FactsOfTheFile) {
    k4suite::SequenceFacts facts = Facts();
    facts.color = K4_SIGN_COLOR_RGB16M;
    facts.previewOnly = true;
    Read(Make(
        "Goal.SQ4", [](auto&) {}, facts));
    ASSERT_EQ(reader.Line().Files().size(), 1u);
    const preview::FileFacts& file = reader.Line().Files().front();
    EXPECT_EQ(file.path, "A:\\Goal.SQ4");
    EXPECT_EQ(file.rows, 7u);
    EXPECT_EQ(file.columns, 16u);
    EXPECT_EQ(file.color, static_cast<std::uint32_t>(K4_SIGN_COLOR_RGB16M));
    EXPECT_EQ(file.pixel, static_cast<std::uint32_t>(K4_PIXEL_TECH_LED));
    EXPECT_EQ(file.keywords, "summer; sale; ");
    EXPECT_TRUE(file.isPreviewOnly);
    EXPECT_TRUE(reader.Line().IsEmpty());
}

TEST_F(TimeLineReaderTest, EveryGraphicFrameIsPlayed) {
    Read(Make("Goal.SQ4", [](SequenceWriter& writer) {
        writer.AddGraphic(k4cmn::kDataFrame, 10, Lamps(1));
        writer.AddGraphic(k4cmn::kTextFrame, 20, Lamps(1));
        writer.AddChunk(k4cmn::FourCharacterCode("misc"), Bytes(5));
        writer.AddGraphic(k4cmn::kGraphicFrame, 30, Lamps(1));
    }));
    EXPECT_THAT(Moments(),
                ElementsAre("A:\\Goal.SQ4 1 10", "A:\\Goal.SQ4 2 20", "A:\\Goal.SQ4 3 30"));
}

TEST_F(TimeLineReaderTest, AFrameWithoutTimeIsPlayedForAMillisecond) {
    Read(MakeFrames("Goal.SQ4", {0, 5}));
    EXPECT_THAT(Moments(), ElementsAre("A:\\Goal.SQ4 1 1", "A:\\Goal.SQ4 2 5"));
}

TEST_F(TimeLineReaderTest, IncludedFramesStandWhereTheyAreIncluded) {
    MakeFrames("One.SQ4", {1, 2});
    MakeFrames("Two.SQ4", {3});
    Read(Make("Main.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 10);
        AddInclude(writer, {"One.SQ4", "Two.SQ4"});
        AddFrame(writer, 20);
        AddInclude(writer, {"One.SQ4"});
    }));
    EXPECT_THAT(Moments(), ElementsAre("A:\\Main.SQ4 1 10", "A:\\One.SQ4 1 1", "A:\\One.SQ4 2 2",
                                       "A:\\Two.SQ4 1 3", "A:\\Main.SQ4 3 20", "A:\\One.SQ4 1 1",
                                       "A:\\One.SQ4 2 2"));
    EXPECT_EQ(reader.Line().Files().size(), 3u);
}

TEST_F(TimeLineReaderTest, APathBeginsAtTheFileThatIncludes) {
    MakeFrames("Sub/Deep/Leaf.SQ4", {7});
    Make("Sub/Middle.SQ4", [](auto& writer) {
        AddInclude(writer, {"Deep\\Leaf.SQ4", "..\\Top.SQ4"});
    });
    MakeFrames("Top.SQ4", {8});
    Read(Make("Main.SQ4", [](auto& writer) {
        AddInclude(writer, {"Sub\\Middle.SQ4", "Top.SQ4"});
    }));
    EXPECT_THAT(Moments(),
                ElementsAre("A:\\Sub\\Deep\\Leaf.SQ4 1 7", "A:\\Top.SQ4 1 8", "A:\\Top.SQ4 1 8"));
}

TEST_F(TimeLineReaderTest, FieldsThatAreSwitchedOffAreNotPlayed) {
    MakeFrames("One.SQ4", {1});
    Read(Make("Main.SQ4", [](SequenceWriter& writer) {
        const std::vector<k4suite::IncludeField> fields{{0, "Missing.SQ4"}, {2, "One.SQ4"}};
        writer.AddInclude(fields);
        writer.AddInclude({});
    }));
    EXPECT_THAT(Moments(), ElementsAre("A:\\One.SQ4 1 1"));
}

TEST_F(TimeLineReaderTest, AnIncludeThatIsMissingTakesNoTimeAndHasItsWords) {
    Read(Make("Main.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 10);
        AddInclude(writer, {"Missing.SQ4"});
        AddFrame(writer, 20);
    }));
    EXPECT_THAT(Moments(),
                ElementsAre("A:\\Main.SQ4 1 10", "A:\\Main.SQ4 2: " + Missing("Missing.SQ4"),
                            "A:\\Main.SQ4 3 20"));
    EXPECT_EQ(reader.Line().Duration(), milliseconds(30));
    EXPECT_EQ(reader.Line().ProblemCount(), 1u);
}

TEST_F(TimeLineReaderTest, RingsArePassedOver) {
    Make("B.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 2);
        AddInclude(writer, {"a.sq4"});  // case doesn't count
        AddFrame(writer, 3);
    });
    Read(Make("A.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 1);
        AddInclude(writer, {"A.SQ4", "B.SQ4"});
    }));
    const std::string words = "\nIt is passed over, since it would play inside of itself.";
    EXPECT_THAT(Moments(), ElementsAre("A:\\A.SQ4 1 1", "A:\\A.SQ4 2: Included: A:\\A.SQ4" + words,
                                       "A:\\B.SQ4 1 2", "A:\\B.SQ4 2: Included: A:\\a.sq4" + words,
                                       "A:\\B.SQ4 3 3"));
}

TEST_F(TimeLineReaderTest, IncludesAreFollowedToADepthOfEight) {
    for (int depth = 0; depth < 10; ++depth) {
        Make(std::to_string(depth) + ".SQ4", [&](SequenceWriter& writer) {
            AddFrame(writer, static_cast<std::uint32_t>(depth + 1));
            AddInclude(writer, {std::to_string(depth + 1) + ".SQ4"});
        });
    }
    Read(Path("0.SQ4"));
    const TimeLine& line = reader.Line();
    ASSERT_EQ(line.Count(), 10u);
    EXPECT_EQ(line.Duration(), milliseconds(45));
    EXPECT_EQ(Moments()[8], "A:\\8.SQ4 1 9");
    EXPECT_EQ(Moments()[9],
              "A:\\8.SQ4 2: Included: A:\\9.SQ4\n"
              "It is passed over, since it is included 9 levels deep.");
}

TEST_F(TimeLineReaderTest, BranchingWithoutEndStopsWithWords) {
    for (int depth = 0; depth < 8; ++depth) {
        Make(std::to_string(depth) + ".SQ4", [&](SequenceWriter& writer) {
            const std::string next = std::to_string(depth + 1) + ".SQ4";
            AddInclude(writer, std::vector<std::string>(12, next));
        });
    }
    MakeFrames("8.SQ4", {5});
    Read(Path("0.SQ4"));
    EXPECT_GT(reader.Line().Count(), 100'000u);
    EXPECT_LT(reader.Line().Count(), TimeLineReader::kMostSteps);
    EXPECT_EQ(reader.Notice(),
              "Only the first " + std::to_string(reader.Line().Count()) + " frames are shown.");
}

TEST_F(TimeLineReaderTest, PlacesAreTheFilesThatWereLookedFor) {
    MakeFrames("One.SQ4", {1});
    Read(Make("Main.SQ4", [](auto& writer) { AddInclude(writer, {"One.SQ4", "Missing.SQ4"}); }));
    ASSERT_EQ(reader.Places().size(), 3u);
    EXPECT_TRUE(reader.Places().at("A:\\Main.SQ4").Exists());
    EXPECT_TRUE(reader.Places().at("A:\\One.SQ4").Exists());
    EXPECT_FALSE(reader.Places().at("A:\\Missing.SQ4").Exists());
}

// Bad input --------------------------------------------------------------------------------------

TEST_F(TimeLineReaderTest, AFileThatIsNotThere) {
    Read(Path("Nowhere.SQ4"));
    EXPECT_EQ(reader.Problem(),
              "Cannot open \"" + Native("Nowhere.SQ4") + "\": No such file or directory.");
    EXPECT_TRUE(reader.Line().Files().empty());
    EXPECT_FALSE(reader.Places().at("A:\\Nowhere.SQ4").Exists());
}

TEST_F(TimeLineReaderTest, APathThatIsNone) {
    for (const char* path : {"", "relative.SQ4"}) {
        Read(path);
        EXPECT_EQ(reader.Problem(), "There is no place \"" + std::string(path) + "\".");
    }
}

TEST_F(TimeLineReaderTest, AFileThatIsNoSequence) {
    folder.Write("home/drives/A/Bad.SQ4", std::string(3000, 'x'));
    EXPECT_NE(Read(Path("Bad.SQ4")).Problem(), "");
    folder.Write("home/drives/A/Bad.SQ4", "RIFF");
    EXPECT_THAT(Read(Path("Bad.SQ4")).Problem(), HasSubstr("too short for a sequence"));
    std::filesystem::create_directories(Native("Folder.SQ4"));
    EXPECT_THAT(Read(Path("Folder.SQ4")).Problem(), HasSubstr("is not a file"));
}

TEST_F(TimeLineReaderTest, ADamagedFrameLeavesThoseBehindIt) {
    Make("Main.SQ4", [](SequenceWriter& writer) {
        AddFrame(writer, 10);
        writer.AddChunk(k4cmn::kGraphicFrame, Bytes(5));
        writer.AddChunk(k4cmn::kIncludeFrame, Bytes(2));
        AddFrame(writer, 20);
    });
    Read(Path("Main.SQ4"));
    ASSERT_EQ(reader.Line().Count(), 4u);
    EXPECT_THAT(Moments()[1], HasSubstr("A:\\Main.SQ4 2: A graphic frame of 5 bytes is too short"));
    EXPECT_THAT(Moments()[2], HasSubstr("A:\\Main.SQ4 3: An include frame of 2 bytes"));
    EXPECT_EQ(Moments()[3], "A:\\Main.SQ4 4 20");
    EXPECT_EQ(reader.Line().ProblemCount(), 2u);
}

TEST_F(TimeLineReaderTest, AFileCutShortEndsWithOneMomentOfWords) {
    MakeEqualFrames("Main.SQ4", 60000, 10);
    CutTo("Main.SQ4", kFirstContent - 8 + 2 * kFrameBytes + 20);
    Read(Path("Main.SQ4"));
    ASSERT_EQ(reader.Line().Count(), 3u);
    EXPECT_EQ(reader.Line().At(2).kind, MomentKind::Unreadable);
    EXPECT_EQ(reader.Line().Duration(), milliseconds(20));
}

TEST_F(TimeLineReaderTest, AFrameCountThatLiesIsTold) {
    MakeFrames("Main.SQ4", {10, 20});
    Patch("Main.SQ4", 2612 + 34, 9);
    Read(Path("Main.SQ4"));
    ASSERT_EQ(reader.Line().Count(), 3u);
    EXPECT_THAT(Moments()[2], HasSubstr("The file ends after 2 frames."));
}

TEST_F(TimeLineReaderTest, DamageInsideOfAnIncludeIsToldThere) {
    folder.Write("home/drives/A/Bad.SQ4", "x");
    Read(Make("Main.SQ4", [](SequenceWriter& writer) {
        AddInclude(writer, {"Bad.SQ4"});
        AddFrame(writer, 10);
    }));
    ASSERT_EQ(reader.Line().Count(), 2u);
    EXPECT_THAT(Moments()[0], HasSubstr("Included: A:\\Bad.SQ4\nThe file is too short"));
}

TEST_F(TimeLineReaderTest, WithoutASequenceLibraryThereAreItsWords) {
    k4cmn::SequenceLibrary* installed = k4cmn::Provided<k4cmn::SequenceLibrary>::Install(nullptr);
    Read(Path("Main.SQ4"));
    k4cmn::Provided<k4cmn::SequenceLibrary>::Install(installed);
    EXPECT_EQ(reader.Problem(), "Sequence files are not available.");
}

}  // namespace
