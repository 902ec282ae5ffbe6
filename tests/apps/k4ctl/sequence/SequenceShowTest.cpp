#include "suite/sequence/SequenceWriter.h"
#include "tests/apps/k4ctl/sequence/SequenceRuns.h"

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using testing::EndsWith;
using testing::HasSubstr;

/// Files of 7 by 16 lamps, whose bulb data has 16 bytes.
class SequenceShow : public k4test::SequenceRuns {
 protected:
    void Make(int frames, tag_K4_COMPRESS_TYPE level = K4_COMPRESS_LOW) const {
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        facts.pixel = K4_PIXEL_TECH_LED;
        facts.level = level;
        facts.maker = "test\x1b[2J";
        facts.keywords = "one; two; ";
        facts.notes = "Two\nlines";
        facts.thumbnailFrame = 1;
        k4suite::SequenceWriter writer(Path("x.SQ4"), facts);
        const std::vector<std::uint8_t> dark(16);
        for (int frame = 0; frame < frames; ++frame)
            ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 50, dark));
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }
    /// A file with a frame of each type, and an include frame of three fields.
    void MakeMixed() const {
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        facts.previewOnly = true;
        k4suite::SequenceWriter writer(Path("x.SQ4"), facts);
        const std::vector<std::uint8_t> dark(16);
        writer.AddGraphic(k4cmn::kGraphicFrame, 1000, dark);
        writer.AddGraphic(k4cmn::kDataFrame, 2000, dark);
        writer.AddGraphic(k4cmn::kTextFrame, 3, dark);
        const k4suite::IncludeField fields[] = {{1, "a.SQ4"}, {0, "b.SQ4"}, {7, "A:\\c.SQ4"}};
        writer.AddInclude(fields);
        writer.AddInclude({});
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }
};

TEST_F(SequenceShow, TellsFactsAndFrames) {
    Make(2);
    EXPECT_EQ(Good({"show", Path("x.SQ4")}).out,
              "File             " + Path("x.SQ4") +
                  "\n"
                  "Size             7x16\n"
                  "Color            Mono1\n"
                  "Pixel            LED\n"
                  "Level            low\n"
                  "Duration         0.10 s\n"
                  "Stored duration  0.10 s\n"
                  "Frames           2\n"
                  "Includes         0\n"
                  "Thumbnail        frame 1\n"
                  "Preview only     no\n"
                  "Maker            test\\x1b[2J\n"
                  "Keywords         one; two;\n"
                  "Notes            Two\\nlines\n"
                  "\n"
                  "FRAME  TYPE     DWELL  PACKED  BYTES  INCLUDES\n"
                  "    1  graphic     50  runs        3\n"
                  "    2  graphic     50  runs        3\n");
}

TEST_F(SequenceShow, TellsEveryTypeAndTheFieldsOfIncludes) {
    MakeMixed();
    const std::string out = Good({"show", Path("x.SQ4")}).out;
    EXPECT_THAT(out, HasSubstr("Thumbnail        none\nPreview only     yes\n"));
    EXPECT_THAT(out, EndsWith("\nFRAME  TYPE     DWELL  PACKED  BYTES  INCLUDES\n"
                              "    1  graphic   1000  none       16\n"
                              "    2  data      2000  none       16\n"
                              "    3  text         3  none       16\n"
                              "    4  include                    34  a.SQ4\n"
                              "                                      off: b.SQ4\n"
                              "                                      A:\\c.SQ4\n"
                              "    5  include                     4\n"));
}

TEST_F(SequenceShow, TellsMachinesEverything) {
    MakeMixed();
    const QJsonObject json = Facts(Path("x.SQ4"));
    EXPECT_EQ(json.value(QLatin1String("rows")).toInt(), 7);
    EXPECT_EQ(json.value(QLatin1String("columns")).toInt(), 16);
    EXPECT_EQ(json.value(QLatin1String("color")),
              (QJsonObject{{QStringLiteral("value"), 0},
                           {QStringLiteral("name"), QStringLiteral("Mono1")}}));
    EXPECT_EQ(json.value(QLatin1String("level")),
              (QJsonObject{{QStringLiteral("value"), 0},
                           {QStringLiteral("name"), QStringLiteral("none")}}));
    EXPECT_EQ(json.value(QLatin1String("runTime")).toInt(), 3003);
    EXPECT_EQ(json.value(QLatin1String("storedRunTime")).toInt(), 3003);
    EXPECT_EQ(json.value(QLatin1String("frameCount")).toInt(), 5);
    EXPECT_EQ(json.value(QLatin1String("includeCount")).toInt(), 2);
    EXPECT_EQ(json.value(QLatin1String("thumbnailFrame")).toInt(-1), 0);
    EXPECT_EQ(json.value(QLatin1String("previewOnly")), true);
    for (const char* text : {"maker", "keywords", "notes"})
        EXPECT_TRUE(json.value(QLatin1String(text)).isString()) << text;
    const QJsonArray frames = json.value(QLatin1String("frames")).toArray();
    ASSERT_EQ(frames.size(), 5);
    EXPECT_EQ(frames[1].toObject(),
              (QJsonObject{{QStringLiteral("frame"), 2},
                           {QStringLiteral("type"), QStringLiteral("data")},
                           {QStringLiteral("offset"), 2652 + 8 + 68 + 8},
                           {QStringLiteral("dwell"), 2000},
                           {QStringLiteral("packed"),
                            QJsonObject{{QStringLiteral("value"), 0},
                                        {QStringLiteral("name"), QStringLiteral("none")}}},
                           {QStringLiteral("bytes"), 16}}));
    const QJsonArray fields = frames[3][QLatin1String("fields")].toArray();
    ASSERT_EQ(fields.size(), 3);
    EXPECT_EQ(fields[1].toObject(),
              (QJsonObject{{QStringLiteral("status"), 0},
                           {QStringLiteral("path"), QStringLiteral("b.SQ4")}}));
}

TEST_F(SequenceShow, ListsTheFirstFramesOfALongSequenceAndSaysHowManyFollow) {
    Make(21);
    const std::string out = Good({"show", Path("x.SQ4")}).out;
    EXPECT_THAT(out, HasSubstr("\n   20  graphic"));
    EXPECT_THAT(out, EndsWith("\nand 1 more; --frames all lists them all, --frames 21-40 some\n"));
    EXPECT_EQ(out.find("\n   21  "), std::string::npos);
    EXPECT_EQ(Facts(Path("x.SQ4")).value(QLatin1String("frames")).toArray().size(), 21);
}

TEST_F(SequenceShow, ListsTheFramesThatAreAskedFor) {
    Make(30);
    const auto rows = [&](const char* which) {
        const std::string out = Good({"show", Path("x.SQ4"), "--frames", which}).out;
        EXPECT_EQ(out.find("more;"), std::string::npos);
        return std::count(out.begin(), out.end(), '\n') - 14;
    };
    EXPECT_EQ(rows("all"), 2 + 30);
    EXPECT_EQ(rows("NONE"), 0);
    EXPECT_EQ(rows("7"), 2 + 1);
    EXPECT_EQ(rows("25-99"), 2 + 6);
    EXPECT_EQ(rows("31"), 0);
    const CommandRun some = Good({"show", Path("x.SQ4"), "--frames", "3-4", "--json"});
    EXPECT_EQ(some.Json().value(QLatin1String("frames")).toArray().size(), 2);
    for (const char* wrong : {"0", "9-5", "some", "", "-5", "1-2-3", "65536"}) {
        const CommandRun run = Call({"show", Path("x.SQ4"), std::string("--frames=") + wrong});
        EXPECT_EQ(run.code, ExitCode::Usage) << wrong;
    }
}

TEST_F(SequenceShow, AFullSequenceIsShownAtOnce) {
    Make(65535);
    const std::string out = Good({"show", Path("x.SQ4")}).out;
    EXPECT_THAT(out, HasSubstr("Duration         3276.75 s\n"));
    EXPECT_LT(out.size(), 3000u);
}

TEST_F(SequenceShow, WhatIsNoSequenceIsRefused) {
    m_folder.Write("text.SQ4", std::string(3000, 'x'));
    m_folder.Write("short.SQ4", "RIFF");
    Refused({"show", Path("none.SQ4")},
            "Cannot open \"" + Path("none.SQ4") + "\": No such file or directory.");
    Refused({"show", Path("text.SQ4")}, "The file isn't a RIFF file. (at offset 0)");
    Refused({"show", Path("short.SQ4")}, "The file is too short for a sequence. (at offset 4)");
    Refused({"show", m_folder.Path().string()},
            "\"" + m_folder.Path().string() + "\" is not a file.");
    Refused({"show", ""}, "There is no place \"\".");
}

TEST_F(SequenceShow, AFrameThatCannotBeReadIsToldAndTheRestIsShown) {
    MakeMixed();
    std::string content = m_folder.Read("x.SQ4");
    content[content.find("a.SQ4") - 2] = '\xFF';  // a field that is longer than its frame
    m_folder.Write("x.SQ4", content);
    const CommandRun run = Call({"show", Path("x.SQ4")});
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_THAT(run.err, testing::MatchesRegex(
                             "k4ctl: Frame 4 can't be read: The include frame ends inside of a "
                             "field. \\(at offset [0-9]+\\)\n"));
    EXPECT_THAT(run.out, HasSubstr("\n    4  include\n    5  include"));
}

TEST_F(SequenceShow, FramesThatAreNotThereAreTold) {
    Make(3);
    const std::string content = m_folder.Read("x.SQ4");
    m_folder.Write("x.SQ4", content.substr(0, content.size() - 10));
    const CommandRun run = Call({"show", Path("x.SQ4"), "--json"});
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_THAT(run.err, testing::StartsWith("k4ctl: Frame 3 can't be read: "));
    EXPECT_EQ(run.Json().value(QLatin1String("frames")).toArray().size(), 2);
    EXPECT_FALSE(run.Json().value(QLatin1String("error")).toString().isEmpty());
}

// Check -------------------------------------------------------------------------------------------

using SequenceCheckRun = SequenceShow;

TEST_F(SequenceCheckRun, ASoundFileIsSound) {
    MakeMixed();
    EXPECT_EQ(Good({"check", Path("x.SQ4")}).out, Path("x.SQ4") + ": sound\n");
    const QJsonObject json = Good({"check", Path("x.SQ4"), "--json"}).Json();
    EXPECT_EQ(json.value(QLatin1String("sound")), true);
    EXPECT_TRUE(json.value(QLatin1String("defects")).toArray().isEmpty());
}

TEST_F(SequenceCheckRun, EveryDefectIsListedWithItsOffset) {
    Make(2);
    std::string content = m_folder.Read("x.SQ4");
    content[2612 + 20] = 99;  // color technology
    content[2612 + 28] = 1;   // run time
    content[20 + 516] = 11;   // level
    m_folder.Write("x.SQ4", content);
    const CommandRun run = Call({"check", Path("x.SQ4")});
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.out,
              "OFFSET  DEFECT\n"
              "   536  The compression level 11 isn't known.\n"
              "  2632  The color technology 99 isn't known.\n"
              "  2640  The start record says 1 milliseconds, and there are 100.\n");
    EXPECT_EQ(run.err, "k4ctl: \"" + Path("x.SQ4") + "\" has 3 defects.\n");
    const CommandRun machine = Call({"check", Path("x.SQ4"), "--json"});
    EXPECT_EQ(machine.code, ExitCode::Refused);
    const QJsonObject json = machine.Json();
    EXPECT_EQ(json.value(QLatin1String("sound")), false);
    EXPECT_EQ(json.value(QLatin1String("defects")).toArray()[1].toObject(),
              (QJsonObject{{QStringLiteral("offset"), 2632},
                           {QStringLiteral("words"),
                            QStringLiteral("The color technology 99 isn't known.")}}));
}

TEST_F(SequenceCheckRun, AFileThatCannotBeOpenedIsRefused) {
    Refused({"check", Path("none.SQ4")},
            "Cannot open \"" + Path("none.SQ4") + "\": No such file or directory.");
    Refused({"check", "\\\\."}, "There is no place \"\\\\.\".");
}

}  // namespace
