#include <gtest/gtest.h>

#include "k4cmndlg/filesel/ThumbnailBox.h"

namespace {

using k4cmn::BoxedThumbnail;
using k4cmn::ThumbnailBox;

class Box : public testing::Test {
 protected:
    QImage Grab() { return box.grab().toImage(); }

    /// The rectangle of everything that has another color.
    static QRect Outside(const QImage& image, const QColor& ground) {
        QRect found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) != ground)
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }
    QColor Ground() const { return box.palette().color(QPalette::Window); }
    static QImage Plain(int columns, int rows, const QColor& color) {
        QImage image(columns, rows, QImage::Format_RGB32);
        image.fill(color);
        return image;
    }

    const QString kWords = QStringLiteral("Non Graphic Frame");
    ThumbnailBox box;
};

TEST_F(Box, IsAsWideAsTheLargestThumbnailAndAsHighAsThisOne) {
    EXPECT_EQ(box.SetBoxedThumbnail(BoxedThumbnail(64, 192)), 85 - 256);
    EXPECT_EQ(box.size(), QSize(256, 85));
    EXPECT_EQ(box.SetBoxedThumbnail(BoxedThumbnail(192, 64)), 256 - 85);
    EXPECT_EQ(box.size(), QSize(256, 256));
    EXPECT_EQ(box.SetBoxedThumbnail(BoxedThumbnail(64, 64)), 0);
}

TEST_F(Box, AThumbnailStandsInItsMiddle) {
    box.SetBoxedThumbnail(BoxedThumbnail(192, 64));
    box.ShowPicture(Plain(64, 192, Qt::green));
    const QImage image = Grab();
    EXPECT_EQ(Outside(image, Ground()), QRect((256 - 85) / 2, 0, 85, 256));
    EXPECT_EQ(image.pixelColor(128, 128), QColor(Qt::green));
}

TEST_F(Box, AnImageIsScaledToAllOfTheThumbnail) {
    QImage image = Plain(2, 1, Qt::red);
    image.setPixelColor(1, 0, Qt::blue);
    box.SetBoxedThumbnail(BoxedThumbnail(1, 2));
    box.ShowPicture(image);
    const QImage shown = Grab();
    ASSERT_EQ(shown.size(), QSize(256, 128) * shown.devicePixelRatio());
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(127, 127), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(128, 0), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(255, 127), QColor(Qt::blue));
}

TEST_F(Box, ALargeImageKeepsTheLightOfAllItsLamps) {
    QImage lamps(2048, 2048, QImage::Format_RGB32);
    for (int y = 0; y < lamps.height(); ++y) {
        for (int x = 0; x < lamps.width(); ++x)
            lamps.setPixelColor(x, y, x % 2 ? Qt::white : Qt::black);
    }
    box.SetBoxedThumbnail(BoxedThumbnail(2048, 2048));
    box.ShowPicture(lamps);
    const int light = Grab().pixelColor(100, 100).red();
    EXPECT_GT(light, 100);
    EXPECT_LT(light, 155);
}

TEST_F(Box, AnImageInAPaletteKeepsItsColorsWhenItBecomesSmaller) {
    for (const auto format : {QImage::Format_Mono, QImage::Format_Indexed8}) {
        QImage lamps(4096, 64, format);
        lamps.setColorTable({qRgb(0, 0, 0), qRgb(255, 214, 150)});
        lamps.fill(1);
        box.SetBoxedThumbnail(BoxedThumbnail(64, 4096));
        box.ShowPicture(lamps);
        EXPECT_TRUE(Outside(Grab(), QColor(255, 214, 150)).isEmpty()) << format;
    }
}

TEST_F(Box, NonGraphicWordsStandWhereTheyAreTold) {
    box.SetBoxedThumbnail(BoxedThumbnail(64, 64));
    box.ShowWords(kWords, {60, 90});
    const QRect ink = Outside(Grab(), Qt::white);
    EXPECT_NEAR(ink.left(), 60, 3);
    EXPECT_GE(ink.top(), 90);
    EXPECT_LT(ink.bottom(), 90 + box.fontMetrics().height());
    EXPECT_NEAR(ink.width(), box.fontMetrics().horizontalAdvance(kWords), 6);
    EXPECT_EQ(box.accessibleDescription(), kWords);
}

TEST_F(Box, NonGraphicWordsMayStandOutsideOfIt) {
    box.SetBoxedThumbnail(BoxedThumbnail(7, 80));
    for (const QPoint place : {QPoint(300, 2), QPoint(10, 100), QPoint(-500, -500)}) {
        box.ShowWords(kWords, place);
        EXPECT_TRUE(Outside(Grab(), Qt::white).isEmpty());
    }
    box.ShowWords(kWords, {-20, -5});
    EXPECT_LE(Outside(Grab(), Qt::white).left(), 2) << "a part of them is seen";
}

TEST_F(Box, WordsOfAProblemAreWrappedInsideOfIt) {
    box.SetBoxedThumbnail(BoxedThumbnail(64, 64));
    box.ShowProblem(QStringLiteral(
        "The frame's packed data has a very long explanation of what is <b>wrong</b> "
        "with it, and where in the file that is."));
    const QRect ink = Outside(Grab(), Qt::white);
    EXPECT_GE(ink.left(), 4);
    EXPECT_LE(ink.right(), 252);
    EXPECT_GT(ink.height(), 2 * box.fontMetrics().height());
    EXPECT_TRUE(box.accessibleDescription().startsWith(QStringLiteral("The frame's packed")));
    EXPECT_TRUE(box.toolTip().contains(QStringLiteral("&lt;b&gt;")));
}

TEST_F(Box, WithNothingToShowIsWhite) {
    box.SetBoxedThumbnail(BoxedThumbnail(64, 192));
    box.ShowProblem(QStringLiteral("words"));
    box.Clear();
    EXPECT_TRUE(Outside(Grab(), Qt::white).isEmpty());
    EXPECT_EQ(box.toolTip(), QString());
    EXPECT_EQ(box.accessibleDescription(), QString());
}

TEST_F(Box, APictureReplacesWordsAndTheOtherWayAround) {
    box.SetBoxedThumbnail(BoxedThumbnail(64, 64));
    box.ShowProblem(QStringLiteral("words"));
    box.ShowPicture(Plain(1, 1, Qt::red));
    EXPECT_TRUE(Outside(Grab(), Qt::red).isEmpty());
    box.ShowPicture(Plain(1, 1, Qt::blue));
    EXPECT_TRUE(Outside(Grab(), Qt::blue).isEmpty()) << "not the one that was scaled before";
    box.Clear();
    EXPECT_TRUE(Outside(Grab(), Qt::white).isEmpty());
}

TEST_F(Box, OfASignWithoutLampsHasNoHeight) {
    box.SetBoxedThumbnail(BoxedThumbnail(0, 0));
    box.ShowPicture(Plain(1, 1, Qt::red));
    EXPECT_EQ(box.height(), 0);
    box.grab();
}

TEST_F(Box, WithAFrameIsThreeUnitsLargerThanTheThumbnail) {
    box.SetFramedThumbnail({320, 176});
    EXPECT_EQ(box.size(), QSize(323, 179));
    box.ShowPicture(Plain(1, 1, Qt::red));
    // As the screen has it: a palette's color may be finer than its 8 bits.
    const QColor line = QColor(box.palette().color(QPalette::Mid).rgb());
    EXPECT_EQ(Outside(Grab(), line), QRect(1, 1, 321, 177));
    box.ShowWords(kWords, {1, 1});
    EXPECT_EQ(Outside(Grab(), line), QRect(1, 1, 321, 177));
}

}  // namespace
