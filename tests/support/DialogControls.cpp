#include "tests/support/DialogControls.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QVariant>

namespace k4test {

void Click(const CDialog& dialog, int controlId) {
    auto* control = Item<QWidget>(dialog, controlId);
    QPoint where = control->rect().center();
    // A radio button or check box may be wider than what it shows.
    if (qobject_cast<QRadioButton*>(control) || qobject_cast<QCheckBox*>(control))
        where.setX(control->height() / 2);
    QTest::mouseClick(control, Qt::LeftButton, {}, where);
}

void TypeOver(const CDialog& dialog, int controlId, const QString& text) {
    auto* edit = Item<QLineEdit>(dialog, controlId);
    QTest::mouseClick(edit, Qt::LeftButton);
    edit->selectAll();
    if (text.isEmpty())
        QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

std::string TextOf(const CDialog& dialog, int controlId) {
    auto* control = Item<QWidget>(dialog, controlId);
    if (const auto* edit = qobject_cast<QLineEdit*>(control))
        return edit->text().toStdString();
    if (const auto* label = qobject_cast<QLabel*>(control))
        return label->text().toStdString();
    if (const auto* button = qobject_cast<QAbstractButton*>(control))
        return button->text().toStdString();
    ADD_FAILURE() << "shows no text: " << controlId;
    return {};
}

int FocusedId(const CDialog& dialog) {
    const QWidget* focused = dialog.focusWidget();
    return focused ? focused->property("controlId").toInt() : 0;
}

void PressKey(CDialog& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = dialog.focusWidget();
    QTest::keyClick(target ? target : &dialog, key, modifiers);
}

}  // namespace k4test
