#include "k4cmndlg/filesel/properties/FramePicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "suite/bulbcv/PlaneBulbCv.h"
#include "suite/sequence/SequenceFile.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/support/TempFolder.h"

namespace {

using k4cmn::FramePicture;
using k4cmn::FrameResult;

class Frame2DIB : public testing::Test {
 protected:
    std::string Path() const { return (folder.Path() / "Test.SQ4").string(); }

    /// A file whose first frame has a lamp lit in the left upper corner.
    void Make(std::uint32_t type = k4cmn::kGraphicFrame,
              tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1,
              tag_K4_COMPRESS_TYPE level = K4_COMPRESS_NONE) {
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        facts.color = color;
        facts.level = level;
        k4suite::SequenceWriter writer(Path(), facts);
        std::vector<std::uint8_t> bulbs(k4cmn::BytesOfFrame(7, 16, color));
        if (!bulbs.empty())
            bulbs[1] = 0x80;
        ASSERT_TRUE(writer.AddGraphic(type, 100, bulbs)) << writer.Problem();
        ASSERT_TRUE(writer.AddInclude({}));
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }

    FrameResult Convert(int number = 1, bool textIsGraphic = false) {
        file = std::make_unique<k4suite::SequenceFile>();
        EXPECT_EQ(file->Open(Path(), K4_OPEN_READ), 1) << file->GetPtrToErrorString();
        return picture.Convert(*file, number, textIsGraphic);
    }

    void ExpectCleared() const {
        EXPECT_FALSE(picture.IsValid());
        EXPECT_TRUE(picture.pixels.empty());
    }

    k4test::TempFolder folder;
    k4suite::PlaneBulbCv bulbCv;
    k4cmn::ScopedProvider<K4BulbCv> useBulbCv{bulbCv};
    std::unique_ptr<k4suite::SequenceFile> file;
    FramePicture picture;
};

TEST_F(Frame2DIB, OfAMonochromeSignHasOneBitAPixel) {
    Make();
    ASSERT_EQ(Convert(), FrameResult::Picture);
    EXPECT_TRUE(picture.IsValid());
    EXPECT_EQ(picture.header.bmiHeader.biBitCount, 1);
    EXPECT_EQ(picture.header.bmiHeader.biWidth, 16);
    EXPECT_EQ(picture.header.bmiHeader.biHeight, -7);
    EXPECT_EQ(picture.pixels.size(), 7u * 16 * 4);
    EXPECT_EQ(picture.pixels[0], 0x80);
    EXPECT_EQ(picture.pixels[4], 0);
}

struct ColorRow {
    tag_K4_SIGN_COLOR color;
    int bits;
};

class Frame2DIBOfColors : public Frame2DIB, public testing::WithParamInterface<ColorRow> {};

TEST_P(Frame2DIBOfColors, AsksForADepthOf8) {
    for (const auto level : {K4_COMPRESS_NONE, K4_COMPRESS_LOW, K4_COMPRESS_MEDIUM}) {
        Make(k4cmn::kGraphicFrame, GetParam().color, level);
        ASSERT_EQ(Convert(), FrameResult::Picture) << picture.words;
        EXPECT_EQ(picture.header.bmiHeader.biBitCount, GetParam().bits);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Colors, Frame2DIBOfColors,
    testing::Values(ColorRow{K4_SIGN_COLOR_QUAD16, 8}, ColorRow{K4_SIGN_COLOR_TRI3, 8},
                    ColorRow{K4_SIGN_COLOR_TRI256, 8}, ColorRow{K4_SIGN_COLOR_MONO64, 8},
                    ColorRow{K4_SIGN_COLOR_QUAD64K, 32}, ColorRow{K4_SIGN_COLOR_RGB4K, 32},
                    ColorRow{K4_SIGN_COLOR_RGB16M, 32}, ColorRow{K4_SIGN_COLOR_RGB32KB, 32},
                    ColorRow{K4_SIGN_COLOR_RGB16MB, 32}, ColorRow{tag_K4_SIGN_COLOR(15), 8},
                    ColorRow{tag_K4_SIGN_COLOR(16), 8}, ColorRow{tag_K4_SIGN_COLOR(999), 8}));

TEST_F(Frame2DIB, UnpackedOrNotGivesTheSamePicture) {
    Make(k4cmn::kGraphicFrame, K4_SIGN_COLOR_RGB16M);
    ASSERT_EQ(Convert(), FrameResult::Picture);
    const std::vector<std::uint8_t> plain = picture.pixels;
    Make(k4cmn::kGraphicFrame, K4_SIGN_COLOR_RGB16M, K4_COMPRESS_MEDIUM);
    ASSERT_EQ(Convert(), FrameResult::Picture);
    EXPECT_EQ(picture.pixels, plain);
}

TEST_F(Frame2DIB, DataFramesHavePictures) {
    Make(k4cmn::kDataFrame);
    EXPECT_EQ(Convert(), FrameResult::Picture);
}

TEST_F(Frame2DIB, TextFramesHavePicturesForThoseWhoSaySo) {
    Make(k4cmn::kTextFrame);
    EXPECT_EQ(Convert(1, true), FrameResult::Picture);
    EXPECT_EQ(Convert(1, false), FrameResult::NonGraphic);
    ExpectCleared();
}

TEST_F(Frame2DIB, IncludeFramesHaveNone) {
    Make();
    ASSERT_EQ(Convert(1), FrameResult::Picture);
    EXPECT_EQ(Convert(2, true), FrameResult::NonGraphic);
    ExpectCleared();
}

TEST_F(Frame2DIB, OfAFrameThatIsNotThereChangesNothing) {
    Make();
    ASSERT_EQ(Convert(1), FrameResult::Picture);
    const std::vector<std::uint8_t> before = picture.pixels;
    for (const int number : {0, -1, 3, 9999}) {
        EXPECT_EQ(Convert(number), FrameResult::NoFrame);
        EXPECT_TRUE(picture.IsValid());
        EXPECT_EQ(picture.pixels, before);
    }
}

TEST_F(Frame2DIB, OfADamagedFrameSaysWhatIsWrong) {
    Make(k4cmn::kGraphicFrame, K4_SIGN_COLOR_RGB16M, K4_COMPRESS_MEDIUM);
    std::string content = folder.Read("Test.SQ4");
    content[2652 + 8 + 52 + 3] ^= 0x55;
    folder.Write("Test.SQ4", content);
    EXPECT_EQ(Convert(), FrameResult::Unreadable);
    ExpectCleared();
    EXPECT_THAT(picture.words, testing::HasSubstr("offset"));
}

TEST_F(Frame2DIB, WithoutAConversionIsUnreadable) {
    Make();
    class NoBulbCv final : public K4BulbCv {
        int Bulb2DIB(const void*, std::uint64_t, std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR,
                     K4ImageHeader*, void*, std::size_t, int) override {
            return 0;
        }
    } none;
    const k4cmn::ScopedProvider<K4BulbCv> useNone(none);
    EXPECT_EQ(Convert(), FrameResult::Unreadable);
    ExpectCleared();
    EXPECT_EQ(picture.words, "The frame can't be made a picture.");
}

}  // namespace
