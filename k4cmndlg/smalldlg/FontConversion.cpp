#include "k4cmndlg/smalldlg/FontConversion.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

namespace {

constexpr int kHighest = 4096;
constexpr int kPointsPerInch = 72;

/// The height of the letters of a face in lines of a height.
int LettersOfLine(QFont face, int line) {
    face.setPixelSize(kHighest);
    const double perDot = QFontMetricsF(face).height() / kHighest;
    return std::max(1, static_cast<int>(std::lround(line / perDot)));
}

}  // namespace

QFont ToQtFont(const LOGFONT& font) {
    QFont made = QApplication::font();
    if (!font.lfFaceName.empty())
        made.setFamily(ToQt(font.lfFaceName));
    if (font.lfWeight > 0)
        made.setWeight(static_cast<QFont::Weight>(std::min(font.lfWeight, 1000)));
    made.setItalic(font.lfItalic != 0);
    made.setUnderline(font.lfUnderline != 0);
    made.setStrikeOut(font.lfStrikeOut != 0);
    if (font.lfHeight < 0)
        made.setPixelSize(-std::max(font.lfHeight, -kHighest));
    else if (font.lfHeight > 0)
        made.setPixelSize(LettersOfLine(made, std::min(font.lfHeight, kHighest)));
    return made;
}

void PutFont(const QFont& from, double dotsPerInch, LOGFONT& font) {
    const double dots =
        from.pixelSize() > 0 ? from.pixelSize() : from.pointSizeF() * dotsPerInch / kPointsPerInch;
    font.lfHeight = -static_cast<std::int32_t>(std::lround(dots));
    font.lfWidth = 0;
    font.lfWeight = from.weight();
    font.lfItalic = from.italic() ? 1 : 0;
    font.lfUnderline = from.underline() ? 1 : 0;
    font.lfStrikeOut = from.strikeOut() ? 1 : 0;
    font.lfFaceName = FromQt(from.family());
}

}  // namespace k4cmn
