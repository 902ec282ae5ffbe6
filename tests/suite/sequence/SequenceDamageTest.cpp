#include <sys/stat.h>
#include <unistd.h>

#include "suite/sequence/MemoryBytes.h"
#include "tests/suite/sequence/SequenceDamage.h"

using k4suite::CheckSequence;
using k4suite::SequenceFacts;
using k4suite::SequenceFile;
using k4suite::SequenceWriter;
using k4test::Bytes;
using k4test::NoiseBytes;
using k4test::ReadAll;
using k4test::SequenceDamage;

namespace {

TEST_F(SequenceDamage, TruncatedAtEveryByteOfTheHeadItDoesntOpen) {
    MakeGraphic(2);
    for (std::size_t length = kFirstFrame; length-- > 0;) {
        ASSERT_EQ(truncate(Path().c_str(), static_cast<off_t>(length)), 0);
        ASSERT_EQ(OpenFailure(), "The file is too short for a sequence. (at offset " +
                                     std::to_string(length) + ")");
    }
}

TEST_F(SequenceDamage, TruncatedAtEveryByteBehindTheHeadTheRestIsRead) {
    SequenceFacts facts = Facts();
    facts.level = K4_COMPRESS_LOW;
    Make(facts, [](SequenceWriter& writer) {
        const k4suite::IncludeField fields[] = {{1, "Other.SQ4"}, {1, "x"}};
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16, 1)));
        ASSERT_TRUE(writer.AddInclude(fields));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 2, NoiseBytes(16, 2)));
    });
    const std::string content = Content();
    int former = 0;
    for (std::size_t length = kFirstFrame; length < content.size(); ++length) {
        SetContent(content.substr(0, length));
        const auto file = Opened();
        const int sound = ReadAll(*file);
        ASSERT_GE(sound, former);
        ASSERT_LT(sound, 3);
        former = sound;
        const auto defects = CheckSequence(Path());
        ASSERT_FALSE(defects.empty());
        ASSERT_EQ(DefectText(defects[0]), "The file is cut short: it should end at offset " +
                                              std::to_string(content.size()) + ". (at offset " +
                                              std::to_string(length) + ")");
    }
    EXPECT_EQ(former, 2);
}

TEST_F(SequenceDamage, RandomBytesAreNoSequence) {
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        const Bytes noise = NoiseBytes(4000, seed);
        SetContent(std::string(noise.begin(), noise.end()));
        ASSERT_EQ(OpenFailure(), "The file isn't a RIFF file. (at offset 0)");
    }
}

TEST_F(SequenceDamage, RandomlyChangedFilesAreReadOrRefused) {
    SequenceFacts facts = Facts();
    facts.level = K4_COMPRESS_MEDIUM;
    facts.color = K4_SIGN_COLOR_RGB4K;
    Make(facts, [](SequenceWriter& writer) {
        const k4suite::IncludeField field[] = {{1, "Other.SQ4"}};
        for (int i = 0; i < 3; ++i)
            ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(192, 3)));
        ASSERT_TRUE(writer.AddInclude(field));
    });
    const std::string content = Content();
    std::uint32_t opened = 0;
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        std::string changed = content;
        const Bytes places = NoiseBytes(12, seed);
        for (std::size_t i = 0; i < places.size(); i += 3) {
            // Mostly behind the head, where what isn't a fact is parsed.
            const std::size_t at = seed % 4 == 0
                                       ? (places[i] * 256U + places[i + 1]) % content.size()
                                       : 2600 + places[i] % (content.size() - 2600);
            changed[at] = static_cast<char>(places[i + 2]);
        }
        const Bytes bytes(changed.begin(), changed.end());
        k4suite::MemoryBytes memory(bytes);
        CheckSequence(memory);
        // Files take their time: most of the changes are looked at in memory alone.
        if (seed % 7 != 0)
            continue;
        SetContent(changed);
        SequenceFile file;
        if (file.Open(Path(), K4_OPEN_READ)) {
            ++opened;
            ReadAll(file);
        }
    }
    EXPECT_GT(opened, 100U);
}

struct HeadDamage {
    const char* name;
    std::size_t offset;
    int width;
    std::uint32_t number;
    const char* words;
};

class DamagedHead : public SequenceDamage, public testing::WithParamInterface<HeadDamage> {};

TEST_P(DamagedHead, IsRefusedWithWordsAndOffset) {
    EXPECT_EQ(WordsOfPatched(GetParam().offset, GetParam().width, GetParam().number),
              GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DamagedHead,
    testing::Values(
        HeadDamage{"Form", 0, 4, 0x58464952, "The file isn't a RIFF file. (at offset 0)"},
        HeadDamage{"FormSize", 4, 4, 2643, "The form is too short for a sequence. (at offset 4)"},
        HeadDamage{"FormSizeZero", 4, 4, 0, "The form is too short for a sequence. (at offset 4)"},
        HeadDamage{"FormType", 8, 4, 0x45564157, "The file isn't a sequence. (at offset 8)"},
        HeadDamage{"FileChunk", 12, 1, 'F',
                   "The chunk \"fil \" isn't at its place. (at offset 12)"},
        HeadDamage{"FileSize", 16, 4, 521, "The chunk \"fil \" has a wrong size. (at offset 16)"},
        HeadDamage{"Version", 20, 4, 2, "Version 2 of the format isn't known. (at offset 20)"},
        HeadDamage{"Keywords", 540, 1, 0, "The chunk \"key \" isn't at its place. (at offset 540)"},
        HeadDamage{"KeywordsSize", 544, 4, 0xFFFFFFFF,
                   "The chunk \"key \" has a wrong size. (at offset 544)"},
        HeadDamage{"Notes", 1572, 1, 0, "The chunk \"not \" isn't at its place. (at offset 1572)"},
        HeadDamage{"NotesSize", 1576, 4, 0,
                   "The chunk \"not \" has a wrong size. (at offset 1576)"},
        HeadDamage{"Start", 2604, 1, 0, "The chunk \"sos \" isn't at its place. (at offset 2604)"},
        HeadDamage{"StartSize", 2608, 4, 38,
                   "The chunk \"sos \" has a wrong size. (at offset 2608)"},
        HeadDamage{"NoRows", 2628, 2, 0,
                   "A sign of 0 rows and 16 columns has no lamps. (at offset 2628)"},
        HeadDamage{"NoColumns", 2630, 2, 0,
                   "A sign of 7 rows and 0 columns has no lamps. (at offset 2628)"},
        HeadDamage{"Largest", 2628, 4, 0xFFFFFFFF,
                   "A sign of 65535 rows and 65535 columns is too large. (at offset 2628)"}),
    [](const auto& row) { return row.param.name; });

TEST_F(SequenceDamage, MostRowsOrColumnsAloneOpenAndTheirDataIsRefused) {
    for (const std::size_t offset : {2628U, 2630U}) {
        MakeGraphic(1);
        Patch(offset, 2, 65535);
        const std::string needed = offset == 2628 ? "131072" : "65536";
        EXPECT_EQ(WordsOfFrame(), "The bulb data has 16 bytes where the sign needs " + needed +
                                      ". (at offset 2660)");
    }
}

TEST_F(SequenceDamage, ZeroFramesAreNoFailureOfReading) {
    MakeGraphic(0);
    const auto file = Opened();
    EXPECT_EQ(file->FrameCount(), 0);
    EXPECT_EQ(file->Frame(1), nullptr);
    EXPECT_EQ(file->CalcRunTime(), 0U);
    const auto defects = CheckSequence(Path());
    ASSERT_EQ(defects.size(), 1U);
    EXPECT_EQ(DefectText(defects[0]), "The sequence has no frames. (at offset 2646)");
}

TEST_F(SequenceDamage, CountThatSaysTooMuchGivesTheFramesThatAreThere) {
    MakeGraphic(2);
    Patch(2646, 2, 65535);
    const auto file = Opened();
    EXPECT_EQ(file->FrameCount(), 65535);
    EXPECT_NE(file->Frame(2), nullptr);
    EXPECT_EQ(file->Frame(3), nullptr);
    EXPECT_STREQ(file->GetPtrToErrorString(), "The file ends after 2 frames. (at offset 2804)");
    EXPECT_EQ(file->CalcRunTime(), 201U);
    const auto defects = CheckSequence(Path());
    ASSERT_EQ(defects.size(), 1U);
    EXPECT_EQ(DefectText(defects[0]),
              "The start record says 65535 frames, and there are 2. (at offset 2646)");
}

TEST_F(SequenceDamage, CountThatSaysTooLittleIsBelieved) {
    MakeGraphic(3);
    Patch(2646, 2, 1);
    const auto file = Opened();
    EXPECT_NE(file->Frame(1), nullptr);
    EXPECT_EQ(file->Frame(2), nullptr);
    EXPECT_EQ(file->CalcRunTime(), 100U);
    EXPECT_EQ(CheckSequence(Path()).size(), 1U);
}

TEST_F(SequenceDamage, OtherRecordsThatLieAreFound) {
    MakeGraphic(2);
    Patch(2640, 4, 5);
    Patch(2644, 2, 3);
    Patch(2648, 2, 4);
    Patch(536, 4, 20);
    Patch(2632, 4, 99);
    Patch(2636, 4, 0);
    Patch(548 + 1023, 1, 'x');
    Patch(1580 + 1023, 1, 'x');
    std::vector<std::string> words;
    for (const auto& defect : CheckSequence(Path()))
        words.push_back(DefectText(defect));
    const std::vector<std::string> expected = {
        "The compression level 20 isn't known. (at offset 536)",
        "The keywords have no end. (at offset 548)",
        "The notes have no end. (at offset 1580)",
        "The color technology 99 isn't known. (at offset 2632)",
        "The pixel technology 0 isn't known. (at offset 2636)",
        "The thumbnail frame 3 isn't one of the 2 frames. (at offset 2644)",
        "The start record says 4 include frames, and there are 0. (at offset 2648)",
        "The start record says 5 milliseconds, and there are 201. (at offset 2640)"};
    EXPECT_EQ(words, expected);
}

TEST_F(SequenceDamage, BytesBehindTheEndArePassedOver) {
    MakeGraphic(2);
    SetContent(Content() + "grp behind the end");
    const auto file = Opened();
    EXPECT_EQ(ReadAll(*file), 2);
    const auto defects = CheckSequence(Path());
    ASSERT_EQ(defects.size(), 1U);
    EXPECT_EQ(DefectText(defects[0]), "There are 18 bytes behind the form's end. (at offset 2804)");
}

TEST_F(SequenceDamage, FormBeyondFourGigabytesIsReadToTheFilesEnd) {
    MakeGraphic(2);
    Patch(4, 4, 0xFFFFFFFF);
    const auto file = Opened();
    EXPECT_EQ(ReadAll(*file), 2);
    EXPECT_EQ(CheckSequence(Path()).size(), 1U);
}

TEST_F(SequenceDamage, FileLongerThanFourGigabytesIsReadToTheFormsEnd) {
    MakeGraphic(2);
    ASSERT_EQ(truncate(Path().c_str(), (std::int64_t{5} << 30)), 0);
    const auto file = Opened();
    EXPECT_EQ(ReadAll(*file), 2);
    const auto defects = CheckSequence(Path());
    ASSERT_EQ(defects.size(), 1U);
    EXPECT_EQ(defects[0].offset, 2804U);
}

TEST_F(SequenceDamage, ChunkOfFourGigabytesOfNothingTakesNoMemory) {
    Make(Facts(), [](SequenceWriter& writer) {
        ASSERT_TRUE(writer.AddChunk(k4cmn::kGraphicFrame, Bytes(52)));
    });
    ASSERT_EQ(truncate(Path().c_str(), std::int64_t{1} << 32), 0);
    std::fstream file(Path(), std::ios::in | std::ios::out | std::ios::binary);
    const auto put = [&](std::streamoff offset, std::uint32_t number) {
        std::string bytes(4, '\0');
        k4test::PutNumber(bytes, 0, 4, number);
        file.seekp(offset);
        file.write(bytes.data(), 4);
    };
    put(4, 0xFFFFFFF8);
    put(kFirstFrame + 4, 0xFFFFFFFF - 2660);
    put(kFirstContent + 48, 1);
    file.close();
    const auto opened = Opened();
    auto* frame = dynamic_cast<CK4GphFrame*>(opened->Frame(1));
    ASSERT_NE(frame, nullptr) << opened->GetPtrToErrorString();
    EXPECT_EQ(frame->BulbData(), nullptr);
    EXPECT_EQ(std::string(opened->GetPtrToErrorString()).rfind("The packed data of 42949", 0), 0U);
}

TEST_F(SequenceDamage, FileCutShortWhileOpenGivesWords) {
    MakeGraphic(200);
    const auto file = Opened();
    ASSERT_NE(file->Frame(1), nullptr);
    ASSERT_EQ(truncate(Path().c_str(), kFirstFrame + 100), 0);
    EXPECT_EQ(file->Frame(200), nullptr);
    EXPECT_EQ(std::string(file->GetPtrToErrorString())
                  .rfind("The file is shorter than it was, or can't be read. (at offset ", 0),
              0U);
}

TEST_F(SequenceDamage, FileThatVanishesWhileOpenIsReadOn) {
    MakeGraphic(200);
    const auto file = Opened();
    std::filesystem::remove(Path());
    EXPECT_EQ(ReadAll(*file), 200);
}

TEST_F(SequenceDamage, PlacesThatAreNoFilesAreTold) {
    EXPECT_EQ(OpenFailure(), "Cannot open \"" + Path() + "\": No such file or directory.");
    std::filesystem::create_directory(Path());
    EXPECT_EQ(OpenFailure(), "\"" + Path() + "\" is not a file.");
    EXPECT_EQ(OpenFailure(K4_OPEN_READWRITE), "Cannot open \"" + Path() + "\": Is a directory.");
    std::filesystem::remove(Path());
    ASSERT_EQ(mkfifo(Path().c_str(), 0600), 0);
    EXPECT_EQ(OpenFailure(), "\"" + Path() + "\" is not a file.");
}

TEST_F(SequenceDamage, UnknownFlagsDontOpen) {
    MakeGraphic(1);
    for (const std::uint32_t flags : {0U, 3U, 4U})
        EXPECT_EQ(OpenFailure(static_cast<K4OpenFlags>(flags)),
                  "A file is opened for reading, or for reading and writing.");
}

}  // namespace
