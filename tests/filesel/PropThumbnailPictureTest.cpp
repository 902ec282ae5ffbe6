#include "k4cmndlg/filesel/properties/FrameImage.h"
#include "k4cmndlg/filesel/properties/FramePicture.h"
#include "tests/filesel/PropFixture.h"

namespace k4test {
namespace {

/// The picture box of the page "Thumbnail": place, size, and what is painted in it.
class ThumbnailPicture : public Properties {
 protected:
    void Show(const std::string& path = "A:\\One.SQ4") {
        ASSERT_EQ(sheet.ShowFileProperties(path), 1);
        ShowThumbnail(sheet);
    }
    QRect BoxPlace() const { return Box(sheet).geometry(); }
    QWidget& Page() const { return *sheet.GetPage(kThumbnail); }
    /// The colour that the lamps of a frame of the file have, of which all are lit or dark.
    QColor ColorOfFrame(int number) {
        k4cmn::FramePicture picture;
        EXPECT_EQ(picture.Convert(*sheet.GetFilePtr(), number, true), k4cmn::FrameResult::Picture);
        return k4cmn::ImageOf(picture).pixelColor(0, 0);
    }
    /// How many pixels of the box have a colour.
    int Count(const QColor& color) const {
        const QImage image = Box(sheet).grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == color.rgb() ? 1 : 0;
        }
        return count;
    }

    CK4CmnDlgFileProp sheet{"Properties", &parent, kGeneral, kModeless};
};

struct SizeRow {
    const char* what;
    int rows;
    int columns;
    int width;
    int height;
};

class ThumbnailPictureSize : public ThumbnailPicture,
                             public testing::WithParamInterface<SizeRow> {};

TEST_P(ThumbnailPictureSize, IsTwiceTheSignWithinItsLimitsAndThreeMore) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = static_cast<std::uint16_t>(GetParam().rows);
    facts.columns = static_cast<std::uint16_t>(GetParam().columns);
    Make("A:\\One.SQ4", facts);
    Show();
    EXPECT_EQ(BoxPlace().size(), QSize(GetParam().width + 3, GetParam().height + 3));
    EXPECT_EQ(BoxPlace().top(), 70);
    EXPECT_NEAR(BoxPlace().center().x(), Page().rect().center().x(), 1);
    EXPECT_TRUE(Page().rect().contains(BoxPlace()));
}

INSTANTIATE_TEST_SUITE_P(Signs, ThumbnailPictureSize,
                         testing::Values(SizeRow{"Small", 7, 16, 32, 14},
                                         SizeRow{"Limit", 88, 160, 320, 176},
                                         SizeRow{"Wide", 16, 512, 320, 32},
                                         SizeRow{"High", 512, 16, 32, 176},
                                         SizeRow{"Large", 2048, 4096, 320, 176}),
                         [](const auto& row) { return row.param.what; });

TEST_F(ThumbnailPicture, StaysCentredWhenTheSheetIsResized) {
    Make("A:\\One.SQ4");
    Show();
    sheet.resize(sheet.size() + QSize(101, 60));
    QCoreApplication::sendPostedEvents();
    EXPECT_NEAR(BoxPlace().center().x(), Page().rect().center().x(), 1);
    EXPECT_EQ(BoxPlace().top(), 70);
}

TEST_F(ThumbnailPicture, IsStretchedIntoTheBoxInsideItsFrame) {
    Make("A:\\One.SQ4");
    Show();
    const QColor lit = ColorOfFrame(2);
    const QColor dark = ColorOfFrame(1);
    EXPECT_NE(lit, dark);
    const QRect inside = Box(sheet).rect().adjusted(1, 1, -1, -1);
    for (const QPoint corner : {inside.topLeft(), inside.topRight(), inside.bottomLeft(),
                                inside.bottomRight(), inside.center()})
        EXPECT_EQ(Painted(sheet, corner).rgb(), lit.rgb());
    EXPECT_EQ(Painted(sheet, {0, 0}).rgb(), Box(sheet).palette().color(QPalette::Mid).rgb());
    EXPECT_EQ(Count(lit), inside.width() * inside.height());
    TypeOver(sheet, kFrame, QStringLiteral("1"));
    EXPECT_EQ(Count(dark), inside.width() * inside.height());
}

TEST_F(ThumbnailPicture, OfHalfTheLampsLitFillsHalfOfTheBox) {
    k4suite::SequenceFacts facts = Facts();
    facts.thumbnailFrame = 3;
    Make("A:\\One.SQ4", facts);
    Show();
    const QColor lit = ColorOfFrame(2);
    const QColor dark = ColorOfFrame(1);
    EXPECT_EQ(Painted(sheet, {4, 8}).rgb(), lit.rgb());
    EXPECT_EQ(Painted(sheet, {14, 8}).rgb(), lit.rgb());
    EXPECT_EQ(Painted(sheet, {20, 8}).rgb(), dark.rgb());
    EXPECT_EQ(Painted(sheet, {30, 8}).rgb(), dark.rgb());
}

TEST_F(ThumbnailPicture, OfMoreLampsThanPixelsLosesNone) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 512;
    facts.columns = 1600;
    facts.thumbnailFrame = 1;
    Make("A:\\One.SQ4", facts, [&](k4suite::SequenceWriter& writer) {
        std::vector<std::uint8_t> bulbs(
            static_cast<std::size_t>(k4cmn::BytesOfFrame(512, 1600, 0)));
        for (std::size_t line = 0; line < 512; line += 16)
            bulbs[line * 200 + 1] = 0x80;
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, bulbs)) << writer.Problem();
    });
    Show();
    const QImage painted = Box(sheet).grab().toImage();
    const QRgb dark = painted.pixel(200, 90);
    int lit = 0;
    for (int y = 1; y < painted.height() - 1; ++y)
        lit += painted.pixel(1, y) != dark ? 1 : 0;
    EXPECT_GE(lit, 32);
}

struct TypeRow {
    const char* what;
    std::uint32_t type;
};

class ThumbnailPictureType : public ThumbnailPicture,
                             public testing::WithParamInterface<TypeRow> {};

TEST_P(ThumbnailPictureType, IsGraphic) {
    for (const auto level : {K4_COMPRESS_NONE, K4_COMPRESS_LOW, K4_COMPRESS_MEDIUM}) {
        k4suite::SequenceFacts facts = Facts();
        facts.level = level;
        facts.thumbnailFrame = 1;
        Make("A:\\One.SQ4", facts, [](k4suite::SequenceWriter& writer) {
            const std::vector<std::uint8_t> lit(16, 0xFF);
            ASSERT_TRUE(writer.AddGraphic(GetParam().type, 1, lit));
        });
        Show();
        EXPECT_TRUE(Box(sheet).HasPicture());
        sheet.DestroyWindow();
    }
}

INSTANTIATE_TEST_SUITE_P(Types, ThumbnailPictureType,
                         testing::Values(TypeRow{"Graphic", k4cmn::kGraphicFrame},
                                         TypeRow{"Data", k4cmn::kDataFrame},
                                         TypeRow{"Text", k4cmn::kTextFrame}),
                         [](const auto& row) { return row.param.what; });

TEST_F(ThumbnailPicture, OfAFrameWithoutOneIsWhiteWithWords) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 64;
    facts.columns = 128;
    facts.thumbnailFrame = 1;
    Make("A:\\One.SQ4", facts,
         [](k4suite::SequenceWriter& writer) { ASSERT_TRUE(writer.AddInclude({})); });
    Show();
    EXPECT_FALSE(Box(sheet).HasPicture());
    EXPECT_EQ(Box(sheet).accessibleDescription().toStdString(), "Non Graphic Frame");
    const QRect words(
        1, 1, Box(sheet).fontMetrics().horizontalAdvance(Box(sheet).accessibleDescription()),
        Box(sheet).fontMetrics().height());
    const QImage image = Box(sheet).grab().toImage();
    QRect inked;
    for (int y = 1; y < image.height() - 1; ++y) {
        for (int x = 1; x < image.width() - 1; ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white))
                inked |= QRect(x, y, 1, 1);
        }
    }
    EXPECT_FALSE(inked.isEmpty());
    EXPECT_TRUE(words.adjusted(-1, -1, 1, 1).contains(inked));
}

TEST_F(ThumbnailPicture, OfAnUnreadableFrameIsWhiteWithTheReadersWords) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 64;
    facts.columns = 128;
    facts.level = K4_COMPRESS_MEDIUM;
    facts.thumbnailFrame = 1;
    Make("A:\\One.SQ4", facts);
    std::string content = home.Read("drives/A/One.SQ4");
    content[2652 + 8 + 52 + 3] ^= 0x55;
    home.Write("drives/A/One.SQ4", content);
    Show();
    EXPECT_FALSE(Box(sheet).HasPicture());
    EXPECT_THAT(Box(sheet).accessibleDescription().toStdString(),
                testing::HasSubstr("(at offset "));
    const QImage image = Box(sheet).grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() - 2, image.height() - 2), QColor(Qt::white));
    int inkedLines = 0;
    const int high = Box(sheet).fontMetrics().height();
    for (int y = 1 + high; y < image.height() - 1; ++y) {
        for (int x = 1; x < image.width() - 1; ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white)) {
                ++inkedLines;
                break;
            }
        }
    }
    EXPECT_GT(inkedLines, 0) << "wrapped to a second line";
}

TEST_F(ThumbnailPicture, OfAFrameThatTheFileCantGiveSaysWhy) {
    Make("A:\\One.SQ4");
    std::string content = home.Read("drives/A/One.SQ4");
    // Behind the first chunk of 76 bytes, the second says that it is longer than the file.
    for (std::size_t byte = 0; byte < 3; ++byte)
        content[2652 + 76 + 4 + byte] = '\x7F';
    home.Write("drives/A/One.SQ4", content);
    Show();
    EXPECT_FALSE(Box(sheet).HasPicture());
    EXPECT_THAT(Box(sheet).accessibleDescription().toStdString(),
                testing::HasSubstr("(at offset "));
    TypeOver(sheet, kFrame, QStringLiteral("1"));
    EXPECT_TRUE(Box(sheet).HasPicture());
    EXPECT_EQ(Box(sheet).toolTip(), QString());
}

TEST_F(ThumbnailPicture, WithoutAConversionSaysSo) {
    class NoBulbCv final : public K4BulbCv {
        int Bulb2DIB(const void*, std::uint64_t, std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR,
                     K4ImageHeader*, void*, std::size_t, int) override {
            return 0;
        }
    } none;
    const k4cmn::ScopedProvider<K4BulbCv> useNone(none);
    Make("A:\\One.SQ4");
    Show();
    EXPECT_EQ(Box(sheet).accessibleDescription().toStdString(),
              "The frame can't be made a picture.");
}

}  // namespace
}  // namespace k4test
