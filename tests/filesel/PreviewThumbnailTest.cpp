#include "tests/filesel/PreviewFixture.h"

namespace k4test {
namespace {

constexpr char kOne[] = "A:\\One.SQ4";
constexpr char kTwo[] = "A:\\Two.SQ4";

TEST_F(Preview, DrawsTheFilesThumbnailFrame) {
    auto facts = Facts();
    facts.thumbnailFrame = 3;
    MakeColored(kOne, 3, facts);
    Show(kOne);
    EXPECT_EQ(Middle(), QColor(Qt::blue));
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "3");
    pane.close();
}

TEST_F(Preview, WithoutAThumbnailFrameDrawsAndShowsTheFirst) {
    MakeColored(kOne, 3);
    Show(kOne);
    EXPECT_EQ(Middle(), QColor(Qt::red));
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "1");
    pane.close();
}

TEST_F(Preview, DrawsTheFrameThatIsTyped) {
    MakeColored(kOne, 3);
    Show(kOne);
    Type(Pane::kThumbnailFrame, "2");
    EXPECT_EQ(Middle(), QColor(Qt::green));
    Type(Pane::kThumbnailFrame, "3");
    EXPECT_EQ(Middle(), QColor(Qt::blue));
    pane.close();
}

TEST_F(Preview, DrawsTheFrameThatTheSpinLeadsTo) {
    MakeColored(kOne, 3);
    Show(kOne);
    At<QWidget>(Pane::kThumbnailFrame)->setFocus();
    PressKey(pane, Qt::Key_Up);
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "2");
    EXPECT_EQ(Middle(), QColor(Qt::green));
    PressKey(pane, Qt::Key_Up);
    PressKey(pane, Qt::Key_Up);
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "3") << "there are no more";
    for (int i = 0; i < 5; ++i)
        PressKey(pane, Qt::Key_Down);
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "1");
    EXPECT_EQ(Middle(), QColor(Qt::red));
    pane.close();
    EXPECT_EQ(Stored(kOne)->SosData()->thumbnailFrame, 1);
}

TEST_F(Preview, TheSpinReachesTheLastOfVeryManyFrames) {
    const auto facts = Facts(7, 16, K4_SIGN_COLOR_MONO1);
    MakeColored(kOne, 40000, facts);
    Show(kOne);
    Type(Pane::kThumbnailFrame, "39999");
    PressKey(pane, Qt::Key_Up);
    PressKey(pane, Qt::Key_Up);
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "40000");
    EXPECT_EQ(Text(Pane::kFrameCount), "40000");
    pane.close();
    EXPECT_EQ(Stored(kOne)->SosData()->thumbnailFrame, 40000);
}

struct TypedRow {
    const char* what;
    const char* typed;
    const Qt::GlobalColor drawn;
    int stored;
};

class PreviewTyped : public Preview, public testing::WithParamInterface<TypedRow> {};

TEST_P(PreviewTyped, FrameIsDrawnAndStored) {
    auto facts = Facts();
    facts.thumbnailFrame = 2;
    MakeColored(kOne, 3, facts);
    Show(kOne);
    Type(Pane::kThumbnailFrame, GetParam().typed);
    EXPECT_EQ(Middle(), QColor(GetParam().drawn));
    pane.close();
    EXPECT_EQ(Stored(kOne)->SosData()->thumbnailFrame, GetParam().stored);
}

// The picture is green at first. What a key doesn't give, as a letter, stays out of the field: the
// number that was there has been marked, and stays.
INSTANTIATE_TEST_SUITE_P(Fields, PreviewTyped,
                         testing::Values(TypedRow{"First", "1", Qt::red, 1},
                                         TypedRow{"Last", "3", Qt::blue, 3},
                                         TypedRow{"LeadingZeros", "003", Qt::blue, 3},
                                         TypedRow{"Zero", "0", Qt::red, 0},
                                         TypedRow{"Nothing", "", Qt::red, 0},
                                         TypedRow{"BeyondTheCount", "4", Qt::green, 3},
                                         TypedRow{"TooWideFor16Bits", "70000", Qt::green, 3},
                                         TypedRow{"TooManyDigits", "9999999", Qt::green, 3},
                                         TypedRow{"Letters", "abc", Qt::green, 2},
                                         TypedRow{"Negative", "-3", Qt::blue, 3}),
                         [](const auto& row) { return row.param.what; });

TEST_F(Preview, TextThatAProgramPutsIntoTheFieldDoesNoHarm) {
    MakeColored(kOne, 3);
    Show(kOne);
    auto* field = At<QLineEdit>(Pane::kThumbnailFrame);
    for (const char* text : {"-1", "x", "2x", "99999", "\u0662"})
        field->setText(QString::fromUtf8(text));
    field->setText(QStringLiteral("-1"));
    pane.close();
    EXPECT_EQ(Stored(kOne)->SosData()->thumbnailFrame, 0);
}

TEST_F(Preview, ANonGraphicFrameIsWordsOnWhiteAtAPlaceOfTheSign) {
    Make(kOne, Facts(64, 192), [&](k4suite::SequenceWriter& writer) {
        ASSERT_TRUE(writer.AddInclude({}));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Lit(Facts(64, 192), 1)));
    });
    Show(kOne);
    const QImage box = Box();
    EXPECT_EQ(box.pixelColor(2, 2), QColor(Qt::white));
    ASSERT_TRUE(HasInk(box));
    // Words from 192 / 2 - 20 = 76 and 64 / 2 - 8 = 24 on.
    const auto part = [&](int left, int top, int right, int bottom) {
        const qreal scale = box.devicePixelRatio();
        return box.copy(
            QRectF(left * scale, top * scale, (right - left) * scale, (bottom - top) * scale)
                .toRect());
    };
    EXPECT_FALSE(HasInk(part(0, 0, 75, 85)));
    EXPECT_FALSE(HasInk(part(0, 0, 256, 24)));
    EXPECT_TRUE(HasInk(part(76, 24, 90, 24 + pane.fontMetrics().height())));
    EXPECT_FALSE(HasInk(part(0, 25 + pane.fontMetrics().height(), 256, 85)));

    Type(Pane::kThumbnailFrame, "2");
    EXPECT_EQ(Middle(), QColor(Qt::green));
    Type(Pane::kThumbnailFrame, "1");
    EXPECT_EQ(BoxColor(2, 2), QColor(Qt::white));
    pane.close();
    EXPECT_EQ(Stored(kOne)->SosData()->thumbnailFrame, 1) << "it serves as thumbnail all the same";
}

TEST_F(Preview, OfASmallSignTheWordsBeginOutsideOfTheBox) {
    Make(kOne, Facts(7, 16),
         [&](k4suite::SequenceWriter& writer) { ASSERT_TRUE(writer.AddInclude({})); });
    Show(kOne);
    // At 16 / 2 - 20 = -12 and 7 / 2 - 8 = -5: the upper left corner of the box has a part of them.
    const QImage box = Box();
    const int textEnd = static_cast<int>(pane.fontMetrics().height() * box.devicePixelRatio());
    EXPECT_TRUE(HasInk(box.copy(0, 0, box.width() / 2, textEnd)));
    EXPECT_FALSE(HasInk(box.copy(0, textEnd, box.width(), box.height() - textEnd)));
    pane.close();
}

TEST_F(Preview, ATextFrameIsNoGraphicFrameHere) {
    Make(kOne, Facts(), [&](k4suite::SequenceWriter& writer) {
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kTextFrame, 1, Lit(Facts(), 0)));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kDataFrame, 1, Lit(Facts(), 1)));
    });
    Show(kOne);
    EXPECT_EQ(BoxColor(0, 0), QColor(Qt::white));
    Type(Pane::kThumbnailFrame, "2");
    EXPECT_EQ(BoxColor(0, 0), QColor(Qt::green));
    pane.close();
}

TEST_F(Preview, OfANewFileWithoutTheFrameThereIsNoPictureOfTheOldOne) {
    MakeColored(kOne, 3);
    auto facts = Facts();
    facts.thumbnailFrame = 9;
    MakeColored(kTwo, 3, facts);
    Show(kOne);
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "9");
    EXPECT_EQ(BoxColor(0, 0), QColor(Qt::white));
    pane.close();
    EXPECT_EQ(Stored(kTwo)->SosData()->thumbnailFrame, 9) << "nothing was changed";
}

TEST_F(Preview, ASequenceWithoutFramesHasNoPicture) {
    MakeColored(kOne, 0);
    Show(kOne);
    EXPECT_EQ(BoxColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(Text(Pane::kFrames), " 0");
    EXPECT_EQ(Text(Pane::kFrameCount), "0");
    At<QWidget>(Pane::kThumbnailFrame)->setFocus();
    PressKey(pane, Qt::Key_Up);
    PressKey(pane, Qt::Key_Down);
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "1");
    pane.close();
}

struct ColorRow {
    tag_K4_SIGN_COLOR color;
    QColor lit;
};

class PreviewColor : public Preview, public testing::WithParamInterface<ColorRow> {};

TEST_P(PreviewColor, OfLitLampsIsThatOfThePicturesPalette) {
    for (const auto level : {K4_COMPRESS_NONE, K4_COMPRESS_LOW, K4_COMPRESS_MEDIUM}) {
        auto facts = Facts(16, 64, GetParam().color);
        facts.level = level;
        MakeColored(kOne, 1, facts);
        if (level == K4_COMPRESS_NONE)
            Show(kOne);
        else
            pane.UpdateSelection(kOne);
        EXPECT_EQ(Middle(), GetParam().lit) << level;
    }
    pane.close();
}

// Lamps of one color are drawn as those of incandescent bulbs, whose light is (255, 214, 150).
INSTANTIATE_TEST_SUITE_P(Technologies, PreviewColor,
                         testing::Values(ColorRow{K4_SIGN_COLOR_MONO1, QColor(255, 214, 150)},
                                         ColorRow{K4_SIGN_COLOR_MONO64, QColor(255, 214, 150)},
                                         ColorRow{K4_SIGN_COLOR_TRI3, QColor(255, 255, 0)},
                                         ColorRow{K4_SIGN_COLOR_QUAD16, QColor(Qt::white)},
                                         ColorRow{K4_SIGN_COLOR_RGB4K, QColor(Qt::white)},
                                         ColorRow{K4_SIGN_COLOR_RGB16MB, QColor(Qt::white)},
                                         ColorRow{tag_K4_SIGN_COLOR(16), QColor(255, 214, 150)},
                                         ColorRow{tag_K4_SIGN_COLOR(15), QColor(Qt::black)}));

TEST_F(Preview, ThePaletteIsThatOfTheFileAndNotOfTheOneBefore) {
    MakeColored(kOne, 2, Facts(16, 64, K4_SIGN_COLOR_TRI3));
    MakeColored(kTwo, 2, Facts(16, 64, K4_SIGN_COLOR_MONO64));
    Show(kOne);
    EXPECT_EQ(Middle(), QColor(255, 255, 0));
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Middle(), QColor(255, 214, 150));
    Type(Pane::kThumbnailFrame, "2");
    EXPECT_EQ(Middle(), QColor(255, 214, 150));
    pane.close();
}

}  // namespace
}  // namespace k4test
