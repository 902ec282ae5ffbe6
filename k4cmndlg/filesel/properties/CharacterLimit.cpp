#include "k4cmndlg/filesel/properties/CharacterLimit.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <optional>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

namespace {

/// A piece of a text, in the toolkit's units.
struct Piece {
    int from;
    int to;
};

/// What has to go from a text that has too many characters: those before the cursor, where what was
/// put in last ends, or, where there aren't enough of them, before the text's end.
std::optional<Piece> BeyondLimit(const QString& text, int cursor, std::size_t most) {
    const std::size_t count = CharacterCount(FromQt(text));
    if (count <= most)
        return {};
    const std::size_t before = CharacterCount(FromQt(text.left(cursor)));
    const int to = before >= count - most ? cursor : static_cast<int>(text.size());
    int from = to;
    for (std::size_t excess = count - most; excess > 0; --excess) {
        --from;
        if (from > 0 && text[from].isLowSurrogate() && text[from - 1].isHighSurrogate())
            --from;
    }
    return Piece{from, to};
}

}  // namespace

void LimitCharacters(QLineEdit* edit, std::size_t most) {
    QObject::connect(edit, &QLineEdit::textChanged, edit, [edit, most](const QString& text) {
        const auto beyond = BeyondLimit(text, edit->cursorPosition(), most);
        if (!beyond)
            return;
        // Anew, and not as a step of its own: undoing that would only lead to here again.
        QString within = text;
        edit->setText(within.remove(beyond->from, beyond->to - beyond->from));
        edit->setCursorPosition(beyond->from);
    });
}

void LimitCharacters(QPlainTextEdit* edit, std::size_t most) {
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [edit, most] {
        QTextCursor cursor = edit->textCursor();
        const auto beyond = BeyondLimit(edit->toPlainText(), cursor.position(), most);
        if (!beyond)
            return;
        cursor.joinPreviousEditBlock();
        cursor.setPosition(beyond->from);
        cursor.setPosition(beyond->to, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        cursor.endEditBlock();
    });
}

}  // namespace k4cmn
