#pragma once

#include <QString>
#include <QStringList>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QAbstractItemView;
class QKeySequence;
class QMessageBox;
class QModelIndex;
class QTimer;
class QTreeView;
class QWidget;

namespace workbench {

/// Opens the items of a tree on the way to the last one and clicks that. An item is known by what
/// its text begins with. @return whether all of them are there.
bool ClickItemOf(QTreeView& tree, const QStringList& way);
/// Clicks a row of a view.
void ClickAt(QAbstractItemView& view, const QModelIndex& index);
/// Clicks the heading of a column.
void ClickHeadingOf(QTreeView& list, int column);

/// @name What a tour does in the file selection dialog, by mouse and keys.
/// @{
/// ClickItemOf() its tree.
bool ClickItem(QWidget& dialog, const QStringList& way);
/// The view of the list that is shown.
QAbstractItemView& FileList(QWidget& dialog);
/// The texts of a column of the list, from the top.
QStringList ListTexts(QWidget& dialog, int column = 0);
/// Clicks the row of the list with that name. @return whether there is one.
bool ClickRow(QWidget& dialog, const QString& name);
/// Clicks the list below its rows, so that none is selected any more.
void ClickBesideRows(QWidget& dialog);
/// Clicks the heading of a column.
void ClickHeading(QWidget& dialog, int column);
/// Opens the context menu at a control by its keys, chooses an entry by its text, and returns when
/// that is carried out. @return whether the entry was there and enabled.
bool ChooseFromMenu(QWidget& control, const QString& text);
/// Presses keys in a control, and returns when what they stand for is carried out.
void Press(QWidget& control, const QKeySequence& keys);
/// @}

/// Answers the message boxes that come up during its life, in the order in which the answers were
/// announced. A box that wasn't announced is closed and counts as unexpected.
class BoxAnswers {
 public:
    BoxAnswers();
    ~BoxAnswers();

    /// @param text what the box's text holds. @param button the text of the button, without "&".
    void Expect(const QString& text, const QString& button);
    /// Whether every announced box came up and no other one did.
    bool AllAsExpected() const { return m_expected.empty() && m_unexpected.isEmpty(); }
    /// The texts of boxes that weren't announced.
    const QStringList& Unexpected() const { return m_unexpected; }

 private:
    struct Box {
        QString text;
        QString button;
    };
    void Look();
    bool Press(QMessageBox& box, const Box& expected);

    std::deque<Box> m_expected;
    QStringList m_unexpected;
    const std::unique_ptr<QTimer> m_poll;
};

}  // namespace workbench
