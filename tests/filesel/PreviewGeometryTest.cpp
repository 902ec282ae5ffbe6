#include "tests/filesel/PreviewFixture.h"

namespace k4test {
namespace {

/// What holds for the window's size, at any scale of the screen.
class PreviewGeometry : public Preview {
 protected:
    QRect Place(int id) const {
        const QWidget* control = At<QWidget>(id);
        return {control->mapTo(&pane, QPoint(0, 0)), control->size()};
    }
    /// OK stands 5 units from the lower right corner.
    void ExpectOkInItsCorner() const {
        EXPECT_EQ(pane.width() - (Place(IDOK).right() + 1), 5);
        EXPECT_EQ(pane.height() - (Place(IDOK).bottom() + 1), 5);
    }
    std::string MakeSign(std::uint16_t rows, std::uint16_t columns) {
        const std::string path =
            "A:\\" + std::to_string(rows) + "x" + std::to_string(columns) + ".SQ4";
        MakeColored(path, 1, Facts(rows, columns, K4_SIGN_COLOR_MONO1));
        return path;
    }
};

struct SignRow {
    std::uint16_t rows;
    std::uint16_t columns;
    int width;
    int height;
};

constexpr SignRow kSigns[] = {{64, 192, 256, 85}, {192, 64, 85, 256},   {64, 64, 256, 256},
                              {7, 16, 256, 112},  {7, 80, 256, 22},     {8, 16384, 256, 1},
                              {2048, 16, 2, 256}, {16, 256, 256, 16},   {1, 1, 256, 256},
                              {1, 2, 256, 128},   {255, 256, 256, 255}, {256, 255, 255, 256}};

TEST_F(PreviewGeometry, BoxAndWindowTakeTheHeightOfTheThumbnail) {
    Show();
    int box = Place(Pane::kThumbnail).height();
    for (const SignRow& sign : kSigns) {
        SCOPED_TRACE(std::to_string(sign.rows) + " x " + std::to_string(sign.columns));
        const QSize before = pane.size();
        pane.UpdateSelection(MakeSign(sign.rows, sign.columns));
        EXPECT_EQ(Place(Pane::kThumbnail).size(), QSize(256, sign.height));
        EXPECT_EQ(pane.height() - before.height(), sign.height - box);
        EXPECT_EQ(pane.width(), before.width());
        ExpectOkInItsCorner();
        QCoreApplication::processEvents();
        EXPECT_EQ(pane.height() - before.height(), sign.height - box) << "and stays so";
        ExpectOkInItsCorner();
        box = sign.height;

        // The lit lamps fill the thumbnail, which stands in the middle of its box.
        const QImage image = Box();
        const qreal scale = image.devicePixelRatio();
        const auto lit = [&](double x, double y) {
            return image.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale)) ==
                   QColor(255, 214, 150);
        };
        const int left = (256 - sign.width) / 2;
        EXPECT_TRUE(lit(left, 0));
        EXPECT_TRUE(lit(left + sign.width - 0.5, sign.height - 0.5));
        if (left > 0) {
            EXPECT_FALSE(lit(left - 0.5, 0));
            EXPECT_FALSE(lit(left + sign.width, 0));
        }
    }
    pane.close();
}

TEST_F(PreviewGeometry, AWindowThatWasMadeLargerKeepsWhatItHasMore) {
    Show(MakeSign(64, 64));
    pane.resize(pane.width() + 200, pane.height() + 50);
    const QSize before = pane.size();
    pane.UpdateSelection(MakeSign(64, 192));
    EXPECT_EQ(pane.size(), before + QSize(0, 85 - 256));
    ExpectOkInItsCorner();
    pane.UpdateSelection(MakeSign(192, 64));
    EXPECT_EQ(pane.size(), before);
    ExpectOkInItsCorner();
    pane.close();
}

TEST_F(PreviewGeometry, WithoutAnotherThumbnailTheSizeStays) {
    Show(MakeSign(64, 192));
    const QSize before = pane.size();
    pane.UpdateSelection("");
    EXPECT_EQ(pane.size(), before);
    messages.Expect(CannotOpen("A:\\Absent.SQ4"));
    pane.UpdateSelection("A:\\Absent.SQ4");
    EXPECT_EQ(pane.size(), before);
    pane.close();
}

TEST_F(PreviewGeometry, ChoosingAnotherFrameLeavesTheWindowAlone) {
    MakeColored("A:\\One.SQ4", 3);
    Show("A:\\One.SQ4");
    const QSize before = pane.size();
    Type(Pane::kThumbnailFrame, "2");
    EXPECT_EQ(pane.size(), before);
    pane.close();
}

TEST_F(PreviewGeometry, AMaximizedWindowKeepsItsHeight) {
    Show(MakeSign(64, 64));
    pane.showMaximized();
    QCoreApplication::processEvents();
    const int before = pane.height();
    pane.UpdateSelection(MakeSign(64, 192));
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.height(), before);
    EXPECT_EQ(Place(Pane::kThumbnail).size(), QSize(256, 85));
    ExpectOkInItsCorner();
    pane.close();
}

TEST_F(PreviewGeometry, AChildGrowsAndShrinksLikeAWindow) {
    QWidget window;
    window.resize(700, 600);
    window.show();
    ASSERT_EQ(pane.Create(Pane::kTemplate, &window), 1);
    EXPECT_FALSE(pane.isWindow());
    EXPECT_EQ(pane.parentWidget(), &window);
    pane.move(20, 10);
    pane.show();
    pane.UpdateSelection(MakeSign(64, 64));
    const QSize before = pane.size();
    pane.UpdateSelection(MakeSign(64, 192));
    EXPECT_EQ(pane.size(), before + QSize(0, 85 - 256));
    EXPECT_EQ(pane.pos(), QPoint(20, 10));
    ExpectOkInItsCorner();
    EXPECT_EQ(window.size(), QSize(700, 600));
    window.close();
    pane.setParent(nullptr);
}

TEST_F(PreviewGeometry, FitsAScreenOf800By600WithTheHighestThumbnail) {
    Show(MakeSign(64, 64));
    EXPECT_LE(pane.width(), 800);
    EXPECT_LE(pane.height(), 600);
    pane.close();
}

}  // namespace
}  // namespace k4test
