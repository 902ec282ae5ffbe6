#include "k4cmndlg/frame/FieldLooks.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace k4cmn {

void FitToText(QLineEdit* edit, const QString& widest) {
    constexpr int kUsualLetters = 17;
    edit->ensurePolished();
    const QFontMetrics font = edit->fontMetrics();
    const int letters = kUsualLetters * font.horizontalAdvance(QLatin1Char('x'));
    const int around = edit->sizeHint().width() - letters;
    edit->setFixedWidth(around + font.horizontalAdvance(widest));
}

void PutOnGround(QLineEdit* edit) {
    QPalette ground = edit->palette();
    ground.setBrush(QPalette::Base, ground.window());
    edit->setPalette(ground);
}

void TakeDigitsAlone(QLineEdit* edit) {
    const QRegularExpression digits(QStringLiteral("\\d*"));
    edit->setValidator(new QRegularExpressionValidator(digits, edit));
}

}  // namespace k4cmn
