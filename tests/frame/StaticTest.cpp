#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "k4cmndlg/frame/CK4CmnStatic.h"
#include "k4cmndlg/frame/WindowMessages.h"

namespace {

class ProbeStatic : public CK4CmnStatic {
 public:
    using CK4CmnStatic::CK4CmnStatic;
    using CK4CmnStatic::OnChildNotify;
};

/// A device context to ask about.
struct Context {
    QImage image{8, 8, QImage::Format_RGB32};
    QPainter painter{&image};
    std::uintptr_t Parameter() { return reinterpret_cast<std::uintptr_t>(&painter); }
};

std::intptr_t BrushAddress() {
    return reinterpret_cast<std::intptr_t>(&CK4CmnStatic::m_brush);
}

QImage Picture(QWidget& control) {
    QImage image(control.size(), QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    control.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

bool HasColour(const QImage& image, QRgb colour) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xFFFFFF) == (colour & 0xFFFFFF))
                return true;
        }
    }
    return false;
}

}  // namespace

TEST(Static, BeginsInThePlatformsColours) {
    const CK4CmnStatic control;
    EXPECT_EQ(control.m_bWhiteBackground, 0);
}

TEST(Static, WithoutTheFlagTheBaseAnswers) {
    ProbeStatic control;
    Context context;
    context.painter.setPen(Qt::green);
    std::intptr_t result = 4711;
    EXPECT_EQ(control.OnChildNotify(k4cmn::WM_CTLCOLORSTATIC, context.Parameter(), 0, &result), 0);
    EXPECT_EQ(result, 4711);
    EXPECT_EQ(context.painter.pen().color(), QColor(Qt::green));
}

TEST(Static, WithTheFlagEveryMessageMakesBlackOnWhite) {
    ProbeStatic control;
    control.m_bWhiteBackground = 1;
    for (const std::uint32_t message :
         {k4cmn::WM_CTLCOLORSTATIC, 0u, k4cmn::WM_USER, 0xFFFFFFFFu}) {
        Context context;
        context.painter.setPen(Qt::green);
        std::intptr_t result = 0;
        EXPECT_EQ(control.OnChildNotify(message, context.Parameter(), 7, &result), 1) << message;
        EXPECT_EQ(context.painter.pen().color(), QColor(Qt::black));
        EXPECT_EQ(context.painter.background().color(), QColor(Qt::white));
        EXPECT_EQ(result, BrushAddress());
    }
}

TEST(Static, AnyFlagButZeroCounts) {
    ProbeStatic control;
    control.m_bWhiteBackground = -1;
    std::intptr_t result = 0;
    EXPECT_EQ(control.OnChildNotify(0, 0, 0, &result), 1);
    EXPECT_EQ(result, BrushAddress());
}

TEST(Static, ContextAndResultMayBeMissing) {
    ProbeStatic control;
    control.m_bWhiteBackground = 1;
    EXPECT_EQ(control.OnChildNotify(k4cmn::WM_CTLCOLORSTATIC, 0, 0, nullptr), 1);
}

TEST(Static, BrushIsSolidWhiteAndOneForAll) {
    EXPECT_EQ(CK4CmnStatic::m_brush.color(), QColor(Qt::white));
    EXPECT_EQ(CK4CmnStatic::m_brush.style(), Qt::SolidPattern);
}

TEST(Static, DynamicCreationGivesAControlWithoutAParent) {
    const auto control = CK4CmnStatic::CreateObject();
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->parent(), nullptr);
    EXPECT_EQ(control->m_bWhiteBackground, 0);
    EXPECT_STREQ(control->metaObject()->className(), "CK4CmnStatic");
}

TEST(Static, IsPaintedBlackOnWhite) {
    CK4CmnStatic control;
    control.setText(QStringLiteral("MMMM"));
    control.resize(120, 30);
    control.m_bWhiteBackground = 1;
    const QImage picture = Picture(control);
    EXPECT_EQ(picture.pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(picture.pixel(119, 29), qRgb(255, 255, 255));
    EXPECT_TRUE(HasColour(picture, qRgb(0, 0, 0)));
    EXPECT_FALSE(HasColour(picture, qRgb(255, 0, 0)));
}

TEST(Static, IsPaintedInThePlatformsColoursWithoutTheFlag) {
    CK4CmnStatic control;
    control.setText(QStringLiteral("MMMM"));
    control.resize(120, 30);
    const QImage picture = Picture(control);
    EXPECT_EQ(picture.pixel(0, 0), qRgb(255, 0, 0)) << "what is behind it shows";
}

TEST(Static, WhiteStandsBehindRichTextAndPicturesToo) {
    CK4CmnStatic rich;
    rich.setText(QStringLiteral("<b>bold</b>"));
    rich.resize(120, 30);
    rich.m_bWhiteBackground = 1;
    EXPECT_EQ(Picture(rich).pixel(119, 29), qRgb(255, 255, 255));

    QPixmap blue(4, 4);
    blue.fill(Qt::blue);
    CK4CmnStatic pictured;
    pictured.setPixmap(blue);
    pictured.resize(120, 30);
    pictured.m_bWhiteBackground = 1;
    const QImage picture = Picture(pictured);
    EXPECT_EQ(picture.pixel(119, 0), qRgb(255, 255, 255));
    EXPECT_TRUE(HasColour(picture, qRgb(0, 0, 255)));
}
