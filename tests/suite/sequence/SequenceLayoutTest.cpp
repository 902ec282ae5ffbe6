#include "tests/suite/sequence/SequenceFixture.h"

using k4suite::IncludeField;
using k4suite::SequenceFacts;
using k4suite::SequenceWriter;
using k4test::NumberAt;
using k4test::SequenceFixture;

namespace {

class SequenceLayout : public SequenceFixture {
 protected:
    void SetUp() override {
        SequenceFacts facts = Facts();
        facts.columns = 33;
        facts.color = K4_SIGN_COLOR_TRI3;
        facts.level = K4_COMPRESS_MEDIUM;
        facts.previewOnly = true;
        facts.thumbnailFrame = 2;
        Make(facts, [](SequenceWriter& writer) {
            const k4test::Bytes noise = k4test::NoiseBytes(96, 1);
            ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 0x01020304, noise));
            ASSERT_TRUE(writer.AddGraphic(k4cmn::kTextFrame, 70, k4test::Bytes(96)));
            const IncludeField fields[] = {{1, "Other.SQ4"}, {0, "B:\\x"}};
            ASSERT_TRUE(writer.AddInclude(fields));
        });
        m_content = Content();
    }

    std::uint32_t At(std::size_t offset, int width = 4) const {
        return NumberAt(m_content, offset, width);
    }
    std::string Text(std::size_t offset, std::size_t length) const {
        return m_content.substr(offset, length);
    }

    std::string m_content;
};

TEST_F(SequenceLayout, HeadChunksStandAtTheirPlaces) {
    EXPECT_EQ(Text(0, 4), "RIFF");
    EXPECT_EQ(At(4), m_content.size() - 8);
    EXPECT_EQ(Text(8, 4), "SQ4 ");
    EXPECT_EQ(Text(12, 4), "fil ");
    EXPECT_EQ(At(16), 520U);
    EXPECT_EQ(Text(540, 4), "key ");
    EXPECT_EQ(At(544), 1024U);
    EXPECT_EQ(Text(548, 15), std::string("summer; sale; \0", 15));
    EXPECT_EQ(Text(1572, 4), "not ");
    EXPECT_EQ(At(1576), 1024U);
    EXPECT_EQ(Text(1580, 18), "Two lines\nof notes");
    EXPECT_EQ(Text(2604, 4), "sos ");
    EXPECT_EQ(At(2608), 40U);
}

TEST_F(SequenceLayout, FileRecordHasTheLevelAt516) {
    EXPECT_EQ(At(20), 1U);
    EXPECT_EQ(Text(24, 5), std::string("test\0", 5));
    EXPECT_EQ(At(20 + 516), 30U);
}

TEST_F(SequenceLayout, StartRecordHasItsFieldsAtTheirOffsets) {
    constexpr std::size_t kStart = 2612;
    EXPECT_EQ(At(kStart), 1U);
    EXPECT_EQ(At(kStart + 16, 2), 7U);
    EXPECT_EQ(At(kStart + 18, 2), 33U);
    EXPECT_EQ(At(kStart + 20), 2U);
    EXPECT_EQ(At(kStart + 24), 3U);
    EXPECT_EQ(At(kStart + 28), 0x01020304U + 70);
    EXPECT_EQ(At(kStart + 32, 2), 2U);
    EXPECT_EQ(At(kStart + 34, 2), 3U);
    EXPECT_EQ(At(kStart + 36, 2), 1U);
}

TEST_F(SequenceLayout, GraphicFrameHasDwellMethodAndData) {
    // Noise doesn't get shorter: it stands as it is, whatever the level.
    EXPECT_EQ(Text(kFirstFrame, 4), "grp ");
    EXPECT_EQ(At(kFirstFrame + 4), 52U + 96);
    EXPECT_EQ(At(kFirstContent), 0x01020304U);
    EXPECT_EQ(At(kFirstContent + 48), 0U);
    const k4test::Bytes noise = k4test::NoiseBytes(96, 1);
    EXPECT_EQ(Text(kFirstContent + 52, 96), std::string(noise.begin(), noise.end()));
}

TEST_F(SequenceLayout, PackedFrameSaysItsMethodAndIsPaddedToEven) {
    const std::size_t second = kFirstContent + 52 + 96;
    EXPECT_EQ(Text(second, 4), "txt ");
    EXPECT_EQ(At(second + 8 + 48), 2U);
    const std::size_t size = At(second + 4);
    EXPECT_LT(size, 52U + 96);
    EXPECT_EQ(Text(second + 8 + size + size % 2, 4), "inc ");
}

TEST_F(SequenceLayout, IncludeFrameHasStatusLengthAndPathOfEachField) {
    const std::size_t size = 4 + 4 + 9 + 4 + 4;
    const std::size_t content = m_content.size() - size - size % 2;
    EXPECT_EQ(Text(content - 8, 4), "inc ");
    EXPECT_EQ(At(content - 4), size);
    EXPECT_EQ(At(content, 2), 2U);
    EXPECT_EQ(At(content + 4, 2), 1U);
    EXPECT_EQ(At(content + 6, 2), 9U);
    EXPECT_EQ(Text(content + 8, 9), "Other.SQ4");
    EXPECT_EQ(At(content + 17, 2), 0U);
    EXPECT_EQ(At(content + 19, 2), 4U);
    EXPECT_EQ(Text(content + 21, 4), "B:\\x");
    EXPECT_EQ(m_content.back(), '\0');
}

struct PlanesRow {
    std::uint32_t color;
    std::uint32_t planes;
};

class PlanesOfColor : public testing::TestWithParam<PlanesRow> {};

TEST_P(PlanesOfColor, FollowsTheTable) {
    EXPECT_EQ(k4cmn::PlanesOfColor(GetParam().color), GetParam().planes);
    EXPECT_EQ(k4cmn::BytesOfFrame(7, 16, GetParam().color), 16U * GetParam().planes);
}

INSTANTIATE_TEST_SUITE_P(Colors, PlanesOfColor,
                         testing::Values(PlanesRow{0, 1}, PlanesRow{1, 1}, PlanesRow{2, 2},
                                         PlanesRow{3, 2}, PlanesRow{4, 2}, PlanesRow{5, 4},
                                         PlanesRow{6, 4}, PlanesRow{7, 8}, PlanesRow{8, 6},
                                         PlanesRow{9, 6}, PlanesRow{10, 12}, PlanesRow{11, 24},
                                         PlanesRow{12, 6}, PlanesRow{13, 16}, PlanesRow{14, 24},
                                         PlanesRow{15, 0}, PlanesRow{16, 1},
                                         PlanesRow{0xFFFFFFFF, 1}));

TEST(BytesOfFrame, RoundsColumnsToWordsAndRowsToEven) {
    EXPECT_EQ(k4cmn::BytesOfFrame(7, 16, 0), 16U);
    EXPECT_EQ(k4cmn::BytesOfFrame(8, 17, 0), 32U);
    EXPECT_EQ(k4cmn::BytesOfFrame(16, 80, 11), 3840U);
    EXPECT_EQ(k4cmn::BytesOfFrame(0, 0, 0), 0U);
    EXPECT_EQ(k4cmn::BytesOfFrame(65535, 65535, 11), 12884901888U);
}

TEST(FourCharacterCode, HasItsFirstCharacterLowest) {
    EXPECT_EQ(k4cmn::kGraphicFrame, 0x20707267U);
    EXPECT_EQ(k4cmn::kDataFrame, 0x20746164U);
    EXPECT_EQ(k4cmn::kTextFrame, 0x20747874U);
    EXPECT_EQ(k4cmn::kIncludeFrame, 0x20636E69U);
}

}  // namespace
