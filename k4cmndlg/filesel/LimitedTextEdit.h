#pragma once

#include <QPlainTextEdit>
#include <string>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// A field of several lines that takes a limited number of characters, as fields of one line do:
/// what is typed or pasted beyond it is left away. What counts is UTF-16 units, as there. The Enter
/// key begins a new line, the Tab key goes to the next control. It is three lines high, and can be
/// made two.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT LimitedTextEdit final : public QPlainTextEdit {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LimitedTextEdit)

 public:
    explicit LimitedTextEdit(QWidget* parent = nullptr);

    /// Limits what can be typed. A longer text that is there already, or comes by SetText(), isn't
    /// cut; nothing can be added to it.
    void SetMaxLength(int length) { m_maxLength = length; }
    /// Shows another text, of any length. It can't be undone.
    void SetText(const std::string& text);
    /// The text as it stands, its lines ending in '\n'.
    std::string Text() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 private:
    int Length() const;
    int HeightOf(int lines) const;
    void NoteAddition(int position, int removed, int added);
    void DropExcess();

    int m_maxLength = 32767;
    int m_length = 0;          ///< before the change that is being made
    int m_additionEnd = 0;     ///< where that change ends
    bool m_isLoading = false;  ///< the text is changed by this class, not by a person
};

}  // namespace k4cmn
