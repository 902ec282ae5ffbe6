#include "apps/parts/SignView.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

namespace {

using parts::SignView;

constexpr QRgb kFace = 0xFF101113;
constexpr QRgb kOff = 0xFF1E1F22;

/// 4 columns and 2 rows: red, green, blue and off above, all off below.
QImage FourLamps() {
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(Qt::black);
    image.setPixel(0, 0, 0xFFFF0000);
    image.setPixel(1, 0, 0xFF00FF00);
    image.setPixel(2, 0, 0xFF0000FF);
    return image;
}

QImage Shot(SignView& view) {
    return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QRgb At(const QImage& shot, const QPointF& point) {
    return shot.pixel(point.toPoint());
}

TEST(SignView, LampsAreAsLargeAsThereIsRoomForWholePixels) {
    SignView view;
    view.SetPicture(FourLamps());
    view.resize(4 * 10 + 45, 200);  // the wall and the case take 40
    EXPECT_EQ(view.LampSize(), 11);
    view.resize(4 * 10 + 43, 200);
    EXPECT_EQ(view.LampSize(), 10);
    view.resize(400, 2 * 7 + 41);
    EXPECT_EQ(view.LampSize(), 7);
}

TEST(SignView, LampsAreRoundOnTheBlackFace) {
    SignView view;
    view.resize(240, 140);
    view.SetPicture(FourLamps());
    const QImage shot = Shot(view);
    EXPECT_EQ(At(shot, view.PointOf({0.5, 0.5})), 0xFFFF0000);
    EXPECT_EQ(At(shot, view.PointOf({1.5, 0.5})), 0xFF00FF00);
    EXPECT_EQ(At(shot, view.PointOf({2.5, 0.5})), 0xFF0000FF);
    EXPECT_EQ(At(shot, view.PointOf({3.5, 0.5})), kOff);
    EXPECT_EQ(At(shot, view.PointOf({1, 1})), kFace);
    EXPECT_EQ(At(shot, view.PointOf({0, 0}) - QPointF(3, 3)), kFace);
    EXPECT_EQ(QColor(At(shot, {1, 1})), SignView::AroundColor());
}

TEST(SignView, SmallLampsAreSquares) {
    SignView view;
    view.SetZoom(3);
    view.SetPicture(FourLamps());
    view.resize(view.sizeHint());
    const QImage shot = Shot(view);
    for (const QPointF& corner : {QPointF(0, 0), QPointF(2, 2), QPointF(0, 2), QPointF(2, 0)})
        EXPECT_EQ(At(shot, view.PointOf({0, 0}) + corner), 0xFFFF0000);
    EXPECT_EQ(At(shot, view.PointOf({3, 0})), 0xFF000000);
}

TEST(SignView, PicturesOfFewColorsAreDrawnToo) {
    QImage image(2, 1, QImage::Format_Mono);
    image.setColorTable({0xFF000000, 0xFFFFB000});
    image.fill(0);
    image.setPixel(1, 0, 1);
    SignView view;
    view.resize(240, 140);
    view.SetPicture(image);
    const QImage shot = Shot(view);
    EXPECT_EQ(At(shot, view.PointOf({0.5, 0.5})), kOff);
    EXPECT_EQ(At(shot, view.PointOf({1.5, 0.5})), 0xFFFFB000);
}

TEST(SignView, APictureOfMoreLampsThanPixelsIsDrawnSmaller) {
    QImage image(2000, 1000, QImage::Format_RGB32);
    image.fill(Qt::red);
    SignView view;
    view.resize(240, 140);
    view.SetPicture(image);
    EXPECT_LT(view.LampSize(), 1);
    EXPECT_EQ(At(Shot(view), {120, 70}), 0xFFFF0000);
}

TEST(SignView, FixedLampsAskForTheirRoom) {
    SignView view;
    view.SetPicture(FourLamps());
    view.SetZoom(16);
    EXPECT_EQ(view.sizeHint(), QSize(4 * 16 + 40, 2 * 16 + 40));
    view.resize(1000, 1000);
    EXPECT_EQ(view.LampSize(), 16);
    EXPECT_EQ(view.PointOf({2, 1}), QPointF(500, 500));
    view.SetZoom(0);
    EXPECT_EQ(view.sizeHint(), QSize(720, 320));
}

TEST(SignView, PointsAndLampsBelongTogether) {
    SignView view;
    view.SetPicture(FourLamps());
    for (const int zoom : {0, 1, 8}) {
        view.SetZoom(zoom);
        view.resize(333, 222);
        for (const QPointF& point : {QPointF(0, 0), QPointF(17, 101), QPointF(166.5, 111)})
            EXPECT_LT((view.PointOf(view.LampAt(point)) - point).manhattanLength(), 1e-9);
    }
}

TEST(SignView, OnlyWhatIsSeenIsPainted) {
    QImage image(4096, 2048, QImage::Format_RGB32);
    image.fill(Qt::green);
    SignView view;
    view.SetPicture(image);
    view.SetZoom(32);
    view.resize(view.sizeHint());
    ASSERT_EQ(view.width(), 4096 * 32 + 40);
    QImage part(300, 200, QImage::Format_RGB32);
    view.render(&part, {}, QRegion(60'000, 30'000, 300, 200));  // the first one makes the lamps
    QElapsedTimer time;
    time.start();
    view.render(&part, {}, QRegion(60'000, 30'000, 300, 200));
    EXPECT_LT(time.elapsed(), 100);
    // Lamps begin at 20 in the widget, so one has its middle at (60036, 30020).
    EXPECT_EQ(part.pixel(36, 20), 0xFF00FF00);
    EXPECT_EQ(part.pixel(20, 4), kFace);
}

TEST(SignView, WordsStandInThePlaceOfThePicture) {
    SignView view;
    EXPECT_TRUE(view.IsEmpty());
    view.resize(240, 140);
    view.SetPicture(FourLamps());
    view.SetWords(QStringLiteral("Cannot show it"));
    EXPECT_TRUE(view.Picture().isNull());
    EXPECT_EQ(view.LampSize(), 0);
    EXPECT_EQ(view.accessibleDescription(), QStringLiteral("Cannot show it"));
    const QImage shot = Shot(view);
    bool isWritten = false;
    for (int x = 0; x < shot.width(); ++x)
        isWritten |= QColor(shot.pixel(x, 70)) != SignView::AroundColor();
    EXPECT_TRUE(isWritten);
    view.SetPicture(FourLamps());
    EXPECT_EQ(view.Words(), QString());
    EXPECT_EQ(view.accessibleDescription(), QString());
}

TEST(SignView, ALongPathIsBrokenToFit) {
    SignView view;
    view.resize(200, 200);
    view.SetWords(QString(400, QLatin1Char('M')));
    const QImage shot = Shot(view);
    for (int y = 0; y < shot.height(); ++y) {
        EXPECT_EQ(QColor(shot.pixel(2, y)), SignView::AroundColor());
        EXPECT_EQ(QColor(shot.pixel(197, y)), SignView::AroundColor());
    }
}

TEST(SignView, HasAName) {
    EXPECT_EQ(SignView().accessibleName(), QStringLiteral("Picture of the sign"));
}

}  // namespace
