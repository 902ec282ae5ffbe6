#include "suite/printing/PaintDocument.h"

#include <QFont>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <algorithm>

namespace k4suite {

namespace {

constexpr double kCellWidth = 0.6;  ///< of the font's size, as the face that is asked for has it
constexpr int kMeasured = 1000;     ///< pixels; large enough that rounding doesn't count

/// A text as it is printed on its line.
QString OneLine(const std::string& text) {
    QString line = QString::fromStdString(text);
    for (QChar& letter : line)
        if (letter.category() == QChar::Other_Control ||
            letter.category() == QChar::Separator_Line ||
            letter.category() == QChar::Separator_Paragraph)
            letter = QLatin1Char(' ');
    return line;
}

class PagePainter {
 public:
    PagePainter(QPagedPaintDevice& device, const QString& face)
        : m_device(device),
          m_unit(std::min(device.width(), device.height()) /
                 static_cast<double>(k4cmn::PrintSurface::kPageUnits)),
          m_fixed(FontOf(face, Height::OfCell)),
          m_serif(FontOf(PrintSerifFace(), Height::OfLetters)),
          m_isFixed(QFontInfo(m_fixed).fixedPitch()) {}

    bool Paint(const PrintedDocument& document) {
        QPainter painter;
        if (!painter.begin(&m_device))
            return false;
        SetPrintAlign(painter);
        bool isFirst = true;
        for (const PrintedPage& page : document.pages) {
            if (!isFirst && !m_device.newPage())
                return false;
            isFirst = false;
            for (const PrintedText& text : page)
                PaintText(painter, text);
        }
        return painter.end();
    }

 private:
    /// Texts begin at their points, whatever the program's language, and stand on their baselines.
    static void SetPrintAlign(QPainter& painter) { painter.setLayoutDirection(Qt::LeftToRight); }

    /// What of a font is as high as it is to be: its cell, or its letters without what the face
    /// adds above them.
    enum class Height { OfCell, OfLetters };

    QFont FontOf(const QString& face, Height height) const {
        QFont font(face);
        font.setStyleHint(QFont::Serif);
        font.setFixedPitch(height == Height::OfCell);
        font.setWeight(static_cast<QFont::Weight>(k4cmn::kPrintFontWeight));
        font.setHintingPreference(QFont::PreferNoHinting);
        font.setKerning(false);
        font.setPixelSize(kMeasured);
        const double measured =
            height == Height::OfCell ? QFontMetricsF(font, &m_device).height() : kMeasured;
        const double size = k4cmn::kPrintFontHeight * m_unit * kMeasured / measured;
        font.setPixelSize(std::max(1, qRound(size)));
        return font;
    }

    void PaintText(QPainter& painter, const PrintedText& text) const {
        const bool isSerif = text.font == k4cmn::PrintFont::Serif;
        QFont font = isSerif ? m_serif : m_fixed;
        font.setUnderline(text.font == k4cmn::PrintFont::Underlined);
        painter.setFont(font);
        QPointF foot(text.x * m_unit, text.y * m_unit);
        if (text.foot == TextFoot::Bottom)
            foot.ry() -= QFontMetricsF(font, &m_device).descent();
        const QString line = OneLine(text.text);
        if (isSerif || m_isFixed)
            painter.drawText(foot, line);
        else
            PaintInCells(painter, foot, line);
    }

    void PaintInCells(QPainter& painter, QPointF foot, const QString& line) const {
        QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, line);
        qsizetype from = 0;
        for (qsizetype to = characters.toNextBoundary(); to > 0; to = characters.toNextBoundary()) {
            painter.drawText(foot, line.mid(from, to - from));
            foot.rx() += kCellWidth * m_fixed.pixelSize();
            from = to;
        }
    }

    QPagedPaintDevice& m_device;
    double m_unit;  ///< in pixels of the device
    const QFont m_fixed;
    const QFont m_serif;
    const bool m_isFixed;  ///< whether that is so of the face of m_fixed
};

}  // namespace

bool PaintDocument(QPagedPaintDevice& device, const PrintedDocument& document,
                   const QString& face) {
    return PagePainter(device, face).Paint(document);
}

}  // namespace k4suite
