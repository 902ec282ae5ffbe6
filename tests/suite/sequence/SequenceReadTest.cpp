#include <stdexcept>

#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "suite/EmbeddedSuite.h"
#include "suite/sequence/SequenceCheck.h"
#include "tests/suite/sequence/SequenceFixture.h"

using k4suite::IncludeField;
using k4suite::SequenceFacts;
using k4suite::SequenceFile;
using k4suite::SequenceWriter;
using k4test::Bytes;
using k4test::NoiseBytes;
using k4test::SequenceFixture;

namespace {

struct RoundTrip {
    std::uint32_t color;
    tag_K4_COMPRESS_TYPE level;
};

class SequenceRoundTrip : public SequenceFixture, public testing::WithParamInterface<RoundTrip> {
 protected:
    std::size_t FrameBytes() const {
        return static_cast<std::size_t>(k4cmn::BytesOfFrame(9, 50, GetParam().color));
    }

    /// Noise, darkness, and something between.
    std::vector<Bytes> Frames() const {
        std::vector<Bytes> frames{NoiseBytes(FrameBytes(), 5), Bytes(FrameBytes()),
                                  NoiseBytes(FrameBytes(), 6)};
        for (std::size_t i = 0; i < frames[2].size(); i += 1 + i % 7)
            frames[2][i] = 0;
        return frames;
    }

    void SetUp() override {
        SequenceFacts facts = Facts();
        facts.rows = 9;
        facts.columns = 50;
        facts.color = static_cast<tag_K4_SIGN_COLOR>(GetParam().color);
        facts.level = GetParam().level;
        Make(facts, [this](SequenceWriter& writer) {
            for (const Bytes& frame : Frames())
                ASSERT_TRUE(writer.AddGraphic(k4cmn::kDataFrame, 40, frame)) << writer.Problem();
        });
    }
};

TEST_P(SequenceRoundTrip, BulbDataComesBack) {
    const auto file = Opened();
    ASSERT_EQ(file->FrameCount(), 3);
    int number = 0;
    for (const Bytes& frame : Frames()) {
        auto* graphic = dynamic_cast<CK4GphFrame*>(file->Frame(++number));
        ASSERT_NE(graphic, nullptr);
        EXPECT_EQ(graphic->Type(), k4cmn::kDataFrame);
        EXPECT_EQ(graphic->GphHdr()->dwell, 40U);
        const std::uint8_t* data = graphic->BulbData();
        ASSERT_NE(data, nullptr) << file->GetPtrToErrorString();
        EXPECT_EQ(Bytes(data, data + frame.size()), frame);
    }
}

TEST_P(SequenceRoundTrip, UnpacksBehindAChunkHead) {
    const auto file = Opened();
    int number = 0;
    for (const Bytes& frame : Frames()) {
        auto* graphic = dynamic_cast<CK4GphFrame*>(file->Frame(++number));
        ASSERT_NE(graphic, nullptr);
        Bytes buffer(FrameBytes() + 10, 0xEE);
        CK4BulbData* bulbs = graphic->GetBulbObj();
        bulbs->SetCompressMethod(
            static_cast<tag_K4_BULB_COMPRESS_TYPE>(graphic->GphHdr()->compressionType));
        ASSERT_EQ(bulbs->Unpack(buffer.data(), 0, 1), 1) << file->GetPtrToErrorString();
        EXPECT_EQ(std::memcmp(buffer.data(), "blb ", 4), 0);
        EXPECT_EQ(Bytes(buffer.begin() + 8, buffer.end() - 2), frame);
        EXPECT_EQ(buffer[buffer.size() - 1], 0xEE);
        EXPECT_EQ(buffer[buffer.size() - 2], 0xEE);
    }
}

TEST_P(SequenceRoundTrip, FileIsSound) {
    std::size_t unknownColors = GetParam().color > 14 ? 1 : 0;
    EXPECT_EQ(k4suite::CheckSequence(Path()).size(), unknownColors);
}

std::vector<RoundTrip> AllRoundTrips() {
    std::vector<RoundTrip> rows;
    for (std::uint32_t color = 0; color <= 16; ++color)
        for (const auto level : {K4_COMPRESS_NONE, K4_COMPRESS_LOW, K4_COMPRESS_MEDIUM})
            rows.push_back({color, level});
    return rows;
}

INSTANTIATE_TEST_SUITE_P(EveryTechnology, SequenceRoundTrip, testing::ValuesIn(AllRoundTrips()),
                         [](const auto& row) {
                             return "Color" + std::to_string(row.param.color) + "Level" +
                                    std::to_string(row.param.level);
                         });

class SequenceRead : public SequenceFixture {};

TEST_F(SequenceRead, FactsAndTextsComeBack) {
    SequenceFacts facts = Facts();
    facts.color = K4_SIGN_COLOR_RGB64;
    facts.level = K4_COMPRESS_LOW;
    facts.thumbnailFrame = 2;
    Make(facts, [](SequenceWriter& writer) {
        for (std::uint32_t i = 0; i < 3; ++i)
            ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1000, Bytes(96)));
    });
    const auto file = Opened();
    EXPECT_EQ(file->SosData()->rows, 7);
    EXPECT_EQ(file->SosData()->columns, 16);
    EXPECT_EQ(file->SosData()->color, 9U);
    EXPECT_EQ(file->SosData()->pixel, 3U);
    EXPECT_EQ(file->SosData()->runTime, 3000U);
    EXPECT_EQ(file->SosData()->thumbnailFrame, 2);
    EXPECT_EQ(file->SosData()->frameCount, 3);
    EXPECT_EQ(file->RiffHdr()->compressionLevel, 10U);
    EXPECT_STREQ(file->GetPtrToKeywords(), "summer; sale; ");
    EXPECT_STREQ(file->GetPtrToComments(), "Two lines\nof notes");
    EXPECT_EQ(file->IsPreviewOnly(), 0);
    EXPECT_EQ(file->CalcRunTime(), 3000U);
    EXPECT_STREQ(file->GetPtrToErrorString(), "");
}

TEST_F(SequenceRead, LongestTextsComeBack) {
    SequenceFacts facts = Facts();
    facts.keywords = std::string(1023, 'k');
    facts.notes = std::string(1023, 'n');
    MakeGraphic(1, facts);
    const auto file = Opened();
    EXPECT_EQ(file->GetPtrToKeywords(), facts.keywords);
    EXPECT_EQ(file->GetPtrToComments(), facts.notes);
}

TEST_F(SequenceRead, PreviewOnlyIsTold) {
    SequenceFacts facts = Facts();
    facts.previewOnly = true;
    MakeGraphic(1, facts);
    EXPECT_NE(Opened()->IsPreviewOnly(), 0);
}

TEST_F(SequenceRead, IncludeFrameGivesItsFields) {
    Make(Facts(), [](SequenceWriter& writer) {
        const IncludeField fields[] = {
            {1, "Other.SQ4"}, {0, ""}, {7, "B:\\Gr\xC3\xBC\xC3\x9F.SQ4"}};
        ASSERT_TRUE(writer.AddInclude(fields));
    });
    const auto file = Opened();
    EXPECT_EQ(file->SosData()->includeCount, 1);
    auto* include = dynamic_cast<CK4IncFrame*>(file->Frame(1));
    ASSERT_NE(include, nullptr) << file->GetPtrToErrorString();
    EXPECT_EQ(include->Type(), k4cmn::kIncludeFrame);
    EXPECT_EQ(include->GetFieldCount(), 3);
    EXPECT_EQ(include->GetFieldStatus(0), 1);
    EXPECT_EQ(include->GetFieldStatus(1), 0);
    EXPECT_EQ(include->GetFieldStatus(2), 7);
    EXPECT_STREQ(include->GetPtrToFieldPath(0), "Other.SQ4");
    EXPECT_STREQ(include->GetPtrToFieldPath(1), "");
    EXPECT_STREQ(include->GetPtrToFieldPath(2), "B:\\Gr\xC3\xBC\xC3\x9F.SQ4");
    for (const int field : {-1, 3, 65536}) {
        EXPECT_EQ(include->GetFieldStatus(field), 0);
        EXPECT_EQ(include->GetPtrToFieldPath(field), nullptr);
    }
}

TEST_F(SequenceRead, IncludeFramesHaveNoTimeOfTheirOwn) {
    Make(Facts(), [](SequenceWriter& writer) {
        const IncludeField field[] = {{1, "Other.SQ4"}};
        ASSERT_TRUE(writer.AddInclude(field));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 250, Bytes(16)));
    });
    EXPECT_EQ(Opened()->CalcRunTime(), 250U);
}

TEST_F(SequenceRead, RunTimeStopsAtTheLargestNumber) {
    Make(Facts(), [](SequenceWriter& writer) {
        for (int i = 0; i < 2; ++i)
            ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 0xF0000000, Bytes(16)));
    });
    EXPECT_EQ(Opened()->CalcRunTime(), 0xFFFFFFFFU);
    EXPECT_EQ(Opened()->SosData()->runTime, 0xFFFFFFFFU);
}

TEST_F(SequenceRead, UnknownChunksArePassedOver) {
    Make(Facts(), [](SequenceWriter& writer) {
        const Bytes odd(5, 'x');
        ASSERT_TRUE(writer.AddChunk(k4cmn::FourCharacterCode("odd "), odd));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16, 1)));
        ASSERT_TRUE(writer.AddChunk(k4cmn::FourCharacterCode("nil "), {}));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kTextFrame, 2, Bytes(16, 2)));
    });
    const auto file = Opened();
    EXPECT_EQ(file->FrameCount(), 2);
    ASSERT_NE(file->Frame(1), nullptr);
    EXPECT_EQ(file->Frame(1)->Type(), k4cmn::kGraphicFrame);
    ASSERT_NE(file->Frame(2), nullptr);
    EXPECT_EQ(file->Frame(2)->Type(), k4cmn::kTextFrame);
    EXPECT_TRUE(k4suite::CheckSequence(Path()).empty());
}

TEST_F(SequenceRead, FramesCountFromOneToTheirCount) {
    MakeGraphic(2);
    const auto file = Opened();
    for (const int number : {-1, 0, 3, 65536})
        EXPECT_EQ(file->Frame(number), nullptr) << number;
    EXPECT_STREQ(file->GetPtrToErrorString(), "");
    EXPECT_NE(file->Frame(2), nullptr);
    EXPECT_NE(file->Frame(1), nullptr);
}

TEST_F(SequenceRead, FramesAreFoundInAnyOrder) {
    MakeGraphic(500);
    const auto file = Opened();
    for (const int number : {500, 1, 250, 499, 2}) {
        auto* frame = dynamic_cast<CK4GphFrame*>(file->Frame(number));
        ASSERT_NE(frame, nullptr);
        EXPECT_EQ(frame->GphHdr()->dwell, 99U + static_cast<std::uint32_t>(number));
    }
}

TEST_F(SequenceRead, ClosedFileHasNothing) {
    MakeGraphic(1);
    const auto file = Opened();
    file->Close();
    EXPECT_EQ(file->SosData(), nullptr);
    EXPECT_EQ(file->RiffHdr(), nullptr);
    EXPECT_EQ(file->FrameCount(), 0);
    EXPECT_EQ(file->Frame(1), nullptr);
    EXPECT_EQ(file->CalcRunTime(), 0U);
    EXPECT_EQ(file->IsPreviewOnly(), 0);
    EXPECT_STREQ(file->GetPtrToKeywords(), "");
    EXPECT_EQ(file->SetKeywordsString("a"), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "No file is open.");
    EXPECT_EQ(file->Open(Path(), K4_OPEN_READ), 1);
}

TEST_F(SequenceRead, FailedOpeningLeavesNothingOfTheFileBefore) {
    MakeGraphic(1);
    const auto file = Opened();
    ASSERT_EQ(file->Open(Path() + ".none", K4_OPEN_READ), 0);
    EXPECT_EQ(file->SosData(), nullptr);
    EXPECT_EQ(file->RiffHdr(), nullptr);
    EXPECT_EQ(file->FrameCount(), 0);
    EXPECT_EQ(file->Frame(1), nullptr);
    EXPECT_STREQ(file->GetPtrToKeywords(), "");
    EXPECT_STREQ(file->GetPtrToComments(), "");
    EXPECT_EQ(file->Save(), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "No file is open.");
    ASSERT_EQ(file->Open(Path(), K4_OPEN_READ), 1);
    EXPECT_STREQ(file->GetPtrToErrorString(), "");
}

TEST_F(SequenceRead, PathThatHasAZeroByteIsNoPath) {
    MakeGraphic(1);
    SequenceFile file;
    EXPECT_EQ(file.Open(Path() + std::string("\0.SQ4", 5), K4_OPEN_READ), 0);
    EXPECT_STREQ(file.GetPtrToErrorString(), "A path can't have a 0 byte.");
}

TEST_F(SequenceRead, FailureOfFindingAPlaceIsAFailureOfOpening) {
    SequenceFile file([](const std::string&) -> std::string {
        throw std::runtime_error("The drive is asleep.");
    });
    EXPECT_EQ(file.Open(Path(), K4_OPEN_READ), 0);
    EXPECT_STREQ(file.GetPtrToErrorString(), "The drive is asleep.");
    EXPECT_EQ(file.SosData(), nullptr);
}

TEST_F(SequenceRead, LongestRunsOfAnyPackerAreRead) {
    // Each word alone behind a control byte: nothing is longer, and the format allows it.
    SequenceFacts facts = Facts();
    facts.rows = 128;
    facts.columns = 512;
    const Bytes data = NoiseBytes(8192, 4);
    Make(facts, [&](SequenceWriter& writer) {
        Bytes content(52);
        content[48] = 1;
        for (std::size_t word = 0; word < data.size(); word += 2) {
            content.push_back(0);
            content.insert(content.end(), {data[word], data[word + 1]});
        }
        ASSERT_TRUE(writer.AddChunk(k4cmn::kGraphicFrame, content));
    });
    const auto file = Opened();
    auto* frame = dynamic_cast<CK4GphFrame*>(file->Frame(1));
    ASSERT_NE(frame, nullptr);
    const std::uint8_t* bulbs = frame->BulbData();
    ASSERT_NE(bulbs, nullptr) << file->GetPtrToErrorString();
    EXPECT_EQ(Bytes(bulbs, bulbs + data.size()), data);
}

TEST_F(SequenceRead, LastChunkWithoutItsPaddingIsRead) {
    Make(Facts(), [](SequenceWriter& writer) {
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16)));
        const IncludeField field[] = {{1, "odd"}};
        ASSERT_TRUE(writer.AddInclude(field));
    });
    const std::string content = Content();
    SetContent(content.substr(0, content.size() - 1));
    Patch(4, 4, static_cast<std::uint32_t>(content.size() - 9));
    EXPECT_NE(Opened()->Frame(2), nullptr);
    EXPECT_TRUE(k4suite::CheckSequence(Path()).empty());
}

TEST_F(SequenceRead, UnpackTakesItsArgumentsAsGiven) {
    MakeGraphic(1);
    const auto file = Opened();
    auto* frame = dynamic_cast<CK4GphFrame*>(file->Frame(1));
    ASSERT_NE(frame, nullptr);
    Bytes buffer(26);
    EXPECT_EQ(frame->GetBulbObj()->Unpack(nullptr, 0, 1), 0);
    EXPECT_EQ(frame->GetBulbObj()->Unpack(buffer.data(), 1, 1), 0);
    EXPECT_EQ(frame->GetBulbObj()->Unpack(buffer.data(), 0, 0), 0);
    EXPECT_EQ(frame->GetBulbObj()->Unpack(buffer.data(), 0, 1), 1);
}

TEST(SequenceLibrary, AbsentOneMakesObjectsThatFailWithWords) {
    const auto file = k4cmn::Provided<k4cmn::SequenceLibrary>::Current().Create();
    ASSERT_NE(file, nullptr);
    EXPECT_STREQ(file->GetPtrToErrorString(), "");
    EXPECT_EQ(file->Open("A:\\x.SQ4", K4_OPEN_READ), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "Sequence files are not available.");
    EXPECT_EQ(file->SosData(), nullptr);
    EXPECT_EQ(file->Frame(1), nullptr);
    EXPECT_EQ(file->Save(), 0);
}

TEST(SequenceLibrary, EmbeddedSuiteOpensPathsOfTheStore) {
    const k4test::TempFolder folder;
    const k4suite::DataHome home(folder.Path());
    const k4suite::EmbeddedSuite suite(home, "test");
    std::filesystem::create_directories(folder / "drives/A");
    SequenceFacts facts;
    facts.rows = 7;
    facts.columns = 16;
    SequenceWriter writer((folder / "drives/A/One.SQ4").string(), facts);
    ASSERT_TRUE(writer.Finish()) << writer.Problem();
    const auto file = k4cmn::Provided<k4cmn::SequenceLibrary>::Current().Create();
    EXPECT_EQ(file->Open("A:\\One.SQ4", K4_OPEN_READ), 1) << file->GetPtrToErrorString();
    EXPECT_EQ(file->Open("", K4_OPEN_READ), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "There is no place \"\".");
}

}  // namespace
