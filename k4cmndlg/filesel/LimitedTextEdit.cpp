#include "k4cmndlg/filesel/LimitedTextEdit.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

namespace {

constexpr int kLines = 3;
constexpr int kFewestLines = 2;

}  // namespace

LimitedTextEdit::LimitedTextEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    connect(document(), &QTextDocument::contentsChange, this, &LimitedTextEdit::NoteAddition);
    connect(this, &QPlainTextEdit::textChanged, this, &LimitedTextEdit::DropExcess);
}

void LimitedTextEdit::SetText(const std::string& text) {
    m_isLoading = true;
    setPlainText(ToQt(text));
    m_isLoading = false;
    m_length = Length();
}

std::string LimitedTextEdit::Text() const {
    // Not the plain text, in which some blanks become others.
    QString text = document()->toRawText();
    return FromQt(text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'))
                      .replace(QChar::LineSeparator, QLatin1Char('\n')));
}

int LimitedTextEdit::Length() const {
    // The document counts a last line end that isn't part of the text.
    return document()->characterCount() - 1;
}

void LimitedTextEdit::NoteAddition(int position, int, int added) {
    m_additionEnd = position + added;
}

void LimitedTextEdit::DropExcess() {
    if (m_isLoading)
        return;
    // A text that was too long already may become shorter step by step.
    const int most = std::max(m_maxLength, m_length);
    const int excess = Length() - most;
    if (excess > 0) {
        QTextCursor cursor(document());
        cursor.joinPreviousEditBlock();
        const int end = std::min(m_additionEnd, Length());
        int begin = std::max(end - excess, 0);
        if (document()->characterAt(begin).isLowSurrogate() && begin > 0)
            --begin;
        m_isLoading = true;
        cursor.setPosition(begin);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        cursor.endEditBlock();
        m_isLoading = false;
    }
    m_length = Length();
}

int LimitedTextEdit::HeightOf(int lines) const {
    // Lines are as high as their letters ask for, which may be a little more than the font says.
    const int margins = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()) + 1);
    return lines * fontMetrics().lineSpacing() + margins;
}

QSize LimitedTextEdit::sizeHint() const {
    constexpr int characters = 16;
    return {characters * fontMetrics().averageCharWidth(), HeightOf(kLines)};
}

QSize LimitedTextEdit::minimumSizeHint() const {
    constexpr int characters = 12;
    return {characters * fontMetrics().averageCharWidth(), HeightOf(kFewestLines)};
}

}  // namespace k4cmn
