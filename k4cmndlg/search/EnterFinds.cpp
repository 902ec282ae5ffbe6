#include "k4cmndlg/search/EnterFinds.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <utility>

#include "k4cmndlg/frame/CPropertyPage.h"
#include "k4cmndlg/frame/CPropertySheet.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "k4cmndlg/frame/WindowMessages.h"
#include "k4cmndlg/search/FindCommand.h"

namespace k4cmn {

namespace {

bool IsEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return !key.isAutoRepeat() && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
           !(key.modifiers() & Qt::AltModifier);
}

}  // namespace

EnterFinds::EnterFinds(CPropertyPage& page) : QObject(&page), m_page(page) {
    // Lists that drop down are made when somebody asks for them.
    for (const QComboBox* combo : page.findChildren<QComboBox*>())
        static_cast<void>(combo->view());
    page.installEventFilter(this);
    for (QWidget* control : page.findChildren<QWidget*>())
        control->installEventFilter(this);
}

bool EnterFinds::IsTravelling(const QObject* watched, const QEvent* event) {
    const QPointer<QObject> before = std::exchange(m_lastSeenBy, const_cast<QObject*>(watched));
    const QEvent* const last = std::exchange(m_last, event);
    return event == last && before && before->parent() == watched;
}

bool EnterFinds::eventFilter(QObject* watched, QEvent* event) {
    if (!IsEnter(*event) || IsTravelling(watched, event))
        return false;
    const bool isInList = static_cast<QWidget*>(watched)->window() != m_page.window();
    if (isInList) {
        PostWindowMessage(m_page.GetSheet(), WM_COMMAND, kFindCommand);
        return false;
    }
    // The sheet may ask a person, and close meanwhile. A control that is gone needs no key.
    const QPointer<QObject> control(watched);
    SendWindowMessage(m_page.GetSheet(), WM_COMMAND, kFindCommand);
    return !control;
}

}  // namespace k4cmn
