#include <unistd.h>

#include "suite/sequence/Deflate.h"
#include "tests/suite/sequence/SequenceDamage.h"

using k4suite::SequenceFacts;
using k4suite::SequenceWriter;
using k4test::Bytes;
using k4test::SequenceDamage;

namespace {

TEST_F(SequenceDamage, ChunkOverTheEndEndsTheFrames) {
    for (const std::uint32_t size : {69U + 76, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        MakeGraphic(2);
        Patch(kFirstFrame + 4, 4, size);
        EXPECT_EQ(WordsOfFrame(1), "A chunk of " + std::to_string(size) +
                                       " bytes goes over the file's end. (at offset 2652)");
    }
}

TEST_F(SequenceDamage, EndInsideOfAChunksHeadIsTold) {
    MakeGraphic(2);
    // Five bytes of the second chunk.
    Patch(4, 4, kFirstFrame + 76 + 5 - 8);
    EXPECT_EQ(WordsOfFrame(2), "The file ends inside of a chunk's head. (at offset 2728)");
}

TEST_F(SequenceDamage, ChunkWithoutATypeEndsTheFrames) {
    MakeGraphic(2);
    Patch(kFirstFrame + 76, 4, 0);
    EXPECT_EQ(WordsOfFrame(2), "A chunk has no type. (at offset 2728)");
    EXPECT_NE(Opened()->Frame(1), nullptr);
}

TEST_F(SequenceDamage, FourGigabytesOfNothingAreNotLookedThrough) {
    MakeGraphic(1);
    ASSERT_EQ(truncate(Path().c_str(), std::int64_t{1} << 32), 0);
    std::fstream file(Path(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(4);
    file.write("\xF8\xFF\xFF\xFF", 4);
    file.seekp(2646);
    file.write("\2", 1);
    file.close();
    EXPECT_EQ(WordsOfFrame(2), "A chunk has no type. (at offset 2728)");
}

TEST_F(SequenceDamage, FileThatEndsBehindAFramesHeadWhileItIsReadGivesWords) {
    MakeGraphic(300);
    const auto file = Opened();
    ASSERT_NE(file->Frame(1), nullptr);
    // The head of a later frame's chunk is there still, and its dwell time isn't.
    const std::size_t last = kFirstFrame + 299 * 76;
    ASSERT_EQ(truncate(Path().c_str(), static_cast<off_t>(last + 8)), 0);
    EXPECT_EQ(file->Frame(300), nullptr);
    EXPECT_EQ(file->GetPtrToErrorString(),
              "The file is shorter than it was, or can't be read. (at offset " +
                  std::to_string(last + 8) + ")");
    EXPECT_EQ(file->CalcRunTime(), 299U * 100 + 298 * 299 / 2);
}

TEST_F(SequenceDamage, FrameShorterThanItsHeaderLeavesTheNextOneReadable) {
    Make(Facts(), [](SequenceWriter& writer) {
        ASSERT_TRUE(writer.AddChunk(k4cmn::kGraphicFrame, Bytes(51)));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 9, Bytes(16)));
    });
    EXPECT_EQ(WordsOfFrame(1),
              "A graphic frame of 51 bytes is too short for its header. (at offset 2660)");
    EXPECT_NE(Opened()->Frame(2), nullptr);
}

struct DataDamage {
    const char* name;
    std::uint32_t method;
    Bytes data;
    const char* words;
};

class DamagedData : public SequenceDamage, public testing::WithParamInterface<DataDamage> {};

TEST_P(DamagedData, IsRefusedWithWordsAndOffset) {
    Make(Facts(), [](SequenceWriter& writer) {
        Bytes content(52);
        content[48] = static_cast<std::uint8_t>(GetParam().method);
        content.insert(content.end(), GetParam().data.begin(), GetParam().data.end());
        ASSERT_TRUE(writer.AddChunk(k4cmn::kGraphicFrame, content));
    });
    EXPECT_EQ(WordsOfFrame(), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DamagedData,
    testing::Values(
        DataDamage{"TooShort", 0, Bytes(14),
                   "The bulb data has 14 bytes where the sign needs 16. (at offset 2660)"},
        DataDamage{"OnePlaneTooMany", 0, Bytes(32),
                   "The bulb data has 32 bytes where the sign needs 16. (at offset 2660)"},
        DataDamage{
            "None", 0, {}, "The bulb data has 0 bytes where the sign needs 16. (at offset 2660)"},
        DataDamage{"UnknownMethod", 3, Bytes(16),
                   "The frame's compression method isn't known. (at offset 2660)"},
        DataDamage{"RunsTooLong",
                   1,
                   {0x86, 0, 0, 0x86, 0, 0},
                   "The packed data holds more than the frame's bulb data. (at offset 2715)"},
        DataDamage{"RunsTooShort",
                   1,
                   {0x80, 0, 0},
                   "The packed data holds less than the frame's bulb data. (at offset 2715)"},
        DataDamage{"NoStream", 2, Bytes(10, 0xFF),
                   "The packed data isn't a sound zlib stream. (at offset 2714)"},
        DataDamage{"EmptyStream",
                   2,
                   {},
                   "The packed data of 0 bytes can't be bulb data of 16 bytes. (at offset 2660)"}),
    [](const auto& row) { return row.param.name; });

TEST_F(SequenceDamage, DeflateBombStopsAtTheFramesSize) {
    Make(Facts(), [](SequenceWriter& writer) {
        Bytes content(52);
        content[48] = 2;
        const Bytes bomb = k4suite::PackDeflate(Bytes(900000));
        ASSERT_LT(bomb.size(), 1000U);
        content.insert(content.end(), bomb.begin(), bomb.end());
        ASSERT_TRUE(writer.AddChunk(k4cmn::kGraphicFrame, content));
    });
    EXPECT_EQ(WordsOfFrame().rfind("The packed data holds more than the frame's bulb data.", 0),
              0U);
}

TEST_F(SequenceDamage, FrameOfTheLargestSignIsRefusedBeforeMemoryIsTaken) {
    SequenceFacts facts = Facts();
    facts.rows = 2048;
    facts.columns = 4096;
    facts.color = K4_SIGN_COLOR_RGB16M;
    Make(facts, [](SequenceWriter& writer) {
        Bytes content(52 + 100);
        content[48] = 2;
        ASSERT_TRUE(writer.AddChunk(k4cmn::kGraphicFrame, content));
    });
    const auto file = Opened();
    auto* frame = dynamic_cast<CK4GphFrame*>(file->Frame(1));
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->BulbData(), nullptr);
    EXPECT_STREQ(file->GetPtrToErrorString(),
                 "The packed data of 100 bytes can't be bulb data of 25165824 bytes. "
                 "(at offset 2660)");
}

struct IncludeDamage {
    const char* name;
    Bytes content;
    const char* words;
};

class DamagedInclude : public SequenceDamage, public testing::WithParamInterface<IncludeDamage> {};

TEST_P(DamagedInclude, IsRefusedWithWordsAndOffset) {
    Make(Facts(), [](SequenceWriter& writer) {
        ASSERT_TRUE(writer.AddChunk(k4cmn::kIncludeFrame, GetParam().content));
    });
    EXPECT_EQ(WordsOfFrame(), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DamagedInclude,
    testing::Values(
        IncludeDamage{
            "Empty", {}, "An include frame of 0 bytes is too short or too long. (at offset 2660)"},
        IncludeDamage{"TooLong", Bytes((1 << 20) + 1),
                      "An include frame of 1048577 bytes is too short or too long. "
                      "(at offset 2660)"},
        IncludeDamage{"CountLies",
                      {255, 255, 0, 0},
                      "The include frame ends inside of a field. (at offset 2664)"},
        IncludeDamage{"LengthLies",
                      {1, 0, 0, 0, 1, 0, 3, 0, 'a', 'b'},
                      "The include frame ends inside of a field. (at offset 2664)"},
        IncludeDamage{"BytesLeft",
                      {1, 0, 0, 0, 1, 0, 1, 0, 'a', 'b'},
                      "There are bytes behind the include frame's fields. (at offset 2669)"},
        IncludeDamage{"ZeroByte",
                      {1, 0, 0, 0, 1, 0, 2, 0, 'a', 0},
                      "A path of the include frame has a 0 byte. (at offset 2668)"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
