#include "k4cmndlg/filelist/FilePictures.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <array>

namespace k4cmn {

namespace {

constexpr QRgb kInk = 0xff4a5560;
constexpr QRgb kPaper = 0xffffffff;
constexpr QRgb kShade = 0xffc3cad1;
constexpr QRgb kBlue = 0xff2f6fc4;
constexpr QRgb kAmber = 0xfff5a300;
constexpr QRgb kRed = 0xffd23b3b;
constexpr QRgb kGreen = 0xff2f9a4b;
constexpr QRgb kBoard = 0xff262b31;
constexpr QRgb kUnlit = 0xff6b6040;
constexpr QRgb kGrey = 0xff8b949e;

void Box(QPainter& painter, QRgb color, double x, double y, double width, double height) {
    painter.fillRect(QRectF(x, y, width, height), QColor::fromRgba(color));
}

void Shape(QPainter& painter, QRgb color, const QPolygonF& corners) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(color));
    painter.drawPolygon(corners);
}

void Disc(QPainter& painter, QRgb color, double x, double y, double radius) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(color));
    painter.drawEllipse(QPointF(x, y), radius, radius);
}

void Stroke(QPainter& painter, QRgb color, double width, const QPolygonF& points) {
    painter.setPen(QPen(QColor::fromRgba(color), width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(points);
}

/// A box with an outline of one unit.
void Framed(QPainter& painter, QRgb line, QRgb inside, double x, double y, double width,
            double height) {
    Box(painter, line, x, y, width, height);
    Box(painter, inside, x + 1, y + 1, width - 2, height - 2);
}

/// A sheet with a folded corner.
void Sheet(QPainter& painter) {
    Shape(painter, kInk, {{2, 0}, {10, 0}, {14, 4}, {14, 16}, {2, 16}});
    Shape(painter, kPaper, {{3, 1}, {9, 1}, {9, 5}, {13, 5}, {13, 15}, {3, 15}});
    Shape(painter, kShade, {{10, 1.4}, {10, 4}, {12.6, 4}});
}

void DrawFile(QPainter& painter) {
    Sheet(painter);
    for (const int y : {7, 9, 11})
        Box(painter, kShade, 5, y, 6, 1);
    Box(painter, kShade, 5, 13, 4, 1);
}

void DrawNotice(QPainter& painter) {
    Disc(painter, kBlue, 8, 8, 7.5);
    Box(painter, kPaper, 7, 3, 2, 2);
    Box(painter, kPaper, 7, 6, 2, 7);
}

void DrawServer(QPainter& painter) {
    Framed(painter, kInk, kShade, 3, 0, 10, 16);
    for (const int y : {2, 5})
        Framed(painter, kInk, kPaper, 5, y, 6, 3);
    Box(painter, kGreen, 9, 10, 2, 2);
    for (const int y : {10, 12})
        Box(painter, kInk, 5, y, 3, 1);
}

void DrawFileServers(QPainter& painter) {
    for (const int x : {0, 8}) {
        Framed(painter, kInk, kShade, x, 0, 8, 10);
        Framed(painter, kInk, kPaper, x + 2, 2, 4, 3);
        Box(painter, kGreen, x + 5, 7, 1, 1);
    }
    for (const int x : {3, 11})
        Box(painter, kBlue, x, 10, 2, 4);
    Box(painter, kBlue, 0, 13, 16, 2);
}

/// A board of lamps. @param lit which of its 7 columns and 4 rows shine, row by row.
void Board(QPainter& painter, std::string_view lit) {
    constexpr std::size_t columns = 7;
    Box(painter, kBoard, 0, 1, 16, 11);
    for (std::size_t i = 0; i < lit.size(); ++i)
        Box(painter, lit[i] == '#' ? kAmber : kUnlit, 1.0 + 2.0 * static_cast<double>(i % columns),
            3.0 + 2.0 * static_cast<double>(i / columns), 1, 1);
}

void DrawSignType(QPainter& painter) {
    Board(painter,
          "#.##.##"
          "###.##."
          "#.##.##"
          "#.#.#.#");
    Box(painter, kInk, 3, 12, 2, 4);
    Box(painter, kInk, 11, 12, 2, 4);
}

void DrawLibrary(QPainter& painter) {
    Box(painter, kRed, 1, 2, 4, 13);
    Box(painter, kBlue, 5, 4, 4, 11);
    Shape(painter, kGreen, {{9, 4.2}, {12.2, 3}, {15.6, 13.8}, {12.2, 15}});
    for (const double y : {4.0, 12.0})
        Box(painter, kPaper, 2, y, 2, 1);
    for (const double y : {6.0, 12.0})
        Box(painter, kPaper, 6, y, 2, 1);
    Box(painter, kInk, 0, 15, 16, 1);
}

/// A strip of film with a picture in its middle.
void Film(QPainter& painter, QRgb strip, QRgb picture) {
    Box(painter, strip, 0, 2, 16, 12);
    for (const int x : {1, 4, 7, 10, 13}) {
        Box(painter, kPaper, x, 3, 2, 1);
        Box(painter, kPaper, x, 12, 2, 1);
    }
    Box(painter, picture, 1, 5, 14, 6);
}

void DrawSequence(QPainter& painter) {
    Film(painter, kBoard, kBoard);
    for (const double x : {1.0, 6.0, 11.0})
        Box(painter, kAmber, x, 5, 4, 6);
    Box(painter, kBoard, 2, 8, 2, 2);
    Box(painter, kBoard, 7, 7, 2, 2);
    Box(painter, kBoard, 12, 6, 2, 2);
}

void DrawOldSequence(QPainter& painter) {
    Film(painter, kGrey, kPaper);
    for (const double x : {5.0, 10.0})
        Box(painter, kGrey, x, 5, 1, 6);
    for (const double x : {2.0, 7.0, 12.0})
        Box(painter, kShade, x, 7, 2, 2);
}

void DrawSchedule(QPainter& painter) {
    Framed(painter, kInk, kPaper, 1, 2, 14, 14);
    Box(painter, kRed, 2, 3, 12, 3);
    for (const int x : {4, 10})
        Box(painter, kInk, x, 0, 2, 4);
    for (const int y : {8, 11}) {
        for (const int x : {3, 7, 11})
            Box(painter, y == 11 && x == 7 ? kBlue : kShade, x, y, 2, 2);
    }
}

void DrawScript(QPainter& painter) {
    Sheet(painter);
    Stroke(painter, kBlue, 1.5, {{4.5, 6.5}, {7, 9}, {4.5, 11.5}});
    Box(painter, kBlue, 8, 11, 4, 1);
}

void DrawDownload(QPainter& painter) {
    Shape(painter, kGreen, {{6, 0}, {10, 0}, {10, 5}, {13, 5}, {8, 10}, {3, 5}, {6, 5}});
    Box(painter, kBoard, 0, 11, 16, 5);
    for (const int x : {1, 4, 7, 10, 13})
        Box(painter, kAmber, x, 13, 2, 1);
}

void DrawPalette(QPainter& painter) {
    QPainterPath wood;
    wood.addEllipse(QRectF(0, 1, 16, 14));
    QPainterPath hole;
    hole.addEllipse(QRectF(9.5, 10, 4, 3.5));
    painter.setPen(QPen(QColor::fromRgba(0xff8a6a3a), 0.8));
    painter.setBrush(QColor::fromRgba(0xffe3c48c));
    painter.drawPath(wood.subtracted(hole));
    Disc(painter, kRed, 4, 6, 1.7);
    Disc(painter, kAmber, 8, 4.2, 1.7);
    Disc(painter, kGreen, 12, 6, 1.7);
    Disc(painter, kBlue, 4.8, 10.6, 1.7);
}

void DrawMovie(QPainter& painter) {
    Framed(painter, kInk, kBlue, 0, 1, 16, 12);
    Shape(painter, kPaper, {{6, 3}, {12, 7}, {6, 11}});
    Box(painter, kInk, 4, 14, 8, 2);
    Box(painter, kInk, 7, 13, 2, 1);
}

void DrawUp(QPainter& painter) {
    Shape(painter, 0xffb98a1e, {{0, 2}, {6, 2}, {8, 4}, {16, 4}, {16, 15}, {0, 15}});
    Shape(painter, 0xfffbd777, {{1, 3}, {5.6, 3}, {7.6, 5}, {15, 5}, {15, 14}, {1, 14}});
    Shape(painter, kGreen, {{8, 5}, {12, 9}, {9, 9}, {9, 13}, {7, 13}, {7, 9}, {4, 9}});
}

void DrawList(QPainter& painter) {
    for (const int x : {0, 8}) {
        for (const int y : {1, 6, 11}) {
            Box(painter, kBlue, x, y, 3, 3);
            Box(painter, kGrey, x + 4, y + 1, 3, 1);
        }
    }
}

void DrawDetails(QPainter& painter) {
    Framed(painter, kInk, kPaper, 0, 1, 16, 14);
    Box(painter, kBlue, 1, 2, 14, 2);
    for (const int y : {6, 9, 12}) {
        Box(painter, kInk, 2, y, 5, 1);
        Box(painter, kGrey, 8, y, 2, 1);
        Box(painter, kGrey, 11, y, 3, 1);
    }
}

void DrawSignFilter(QPainter& painter) {
    Board(painter,
          "#######"
          "#.....#"
          "#.....#"
          "#######");
    Shape(painter, kPaper,
          {{5, 6}, {16, 6}, {16, 8}, {12.5, 11.7}, {12.5, 16}, {8.5, 16}, {8.5, 11.7}, {5, 8}});
    Shape(painter, kBlue,
          {{6, 7}, {15, 7}, {15, 7.6}, {11.5, 11.3}, {11.5, 15}, {9.5, 15}, {9.5, 11.3}, {6, 7.6}});
}

void DrawProperties(QPainter& painter) {
    Framed(painter, kInk, kPaper, 1, 0, 14, 16);
    for (const double y : {2.0, 6.0, 10.0}) {
        Stroke(painter, kGreen, 1.4, {{3, y + 1.5}, {4.3, y + 3}, {6.6, y}});
        Box(painter, kInk, 8, y + 1, 5, 1);
    }
}

struct Picture {
    std::string_view name;
    void (*draw)(QPainter&);
};

/// The last one is that of any file.
constexpr std::array<Picture, 18> kPictures{{
    {"notice", DrawNotice},
    {"server", DrawServer},
    {"file-servers", DrawFileServers},
    {"sign-type", DrawSignType},
    {"library", DrawLibrary},
    {"SQ4", DrawSequence},
    {"SD4", DrawSchedule},
    {"SC4", DrawScript},
    {"SEQ", DrawOldSequence},
    {"DL4", DrawDownload},
    {"SP4", DrawPalette},
    {"AVI", DrawMovie},
    {"up", DrawUp},
    {"list", DrawList},
    {"details", DrawDetails},
    {"sign-filter", DrawSignFilter},
    {"properties", DrawProperties},
    {"file", DrawFile},
}};

}  // namespace

FilePicture::FilePicture(std::string_view name) {
    const auto found = std::find_if(kPictures.begin(), kPictures.end() - 1,
                                    [&](const Picture& picture) { return picture.name == name; });
    m_at = static_cast<std::size_t>(found - kPictures.begin());
}

std::string_view FilePicture::Name() const {
    return kPictures[m_at].name;
}

void FilePicture::Draw(QPainter& painter) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    kPictures[m_at].draw(painter);
    painter.restore();
}

}  // namespace k4cmn
