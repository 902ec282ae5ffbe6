#include <QGroupBox>
#include <QLabel>
#include <QVariant>

#include "k4cmndlg/frame/DialogFrame.h"
#include "k4cmndlg/frame/HelpDecision.h"

namespace k4cmn {

namespace {

constexpr const char* kHelpId = "helpId";
constexpr const char* kControlId = "controlId";

std::uint32_t ResourceIdAround(const QWidget* control) {
    for (const QWidget* widget = control; widget; widget = widget->parentWidget()) {
        if (const auto* dialog = qobject_cast<const CDialog*>(widget))
            return dialog->ResourceId();
    }
    return 0;
}

/// Labels and frames say something about the control behind them and have no help of their own.
bool IsStatic(const QWidget* control) {
    return qobject_cast<const QLabel*>(control) || qobject_cast<const QGroupBox*>(control);
}

}  // namespace

std::uint32_t GetWindowContextHelpId(const QWidget* window) {
    if (!window)
        return 0;
    const QVariant own = window->property(kHelpId);
    if (own.isValid())
        return own.toUInt();
    const QVariant controlId = window->property(kControlId);
    if (!controlId.isValid() && !IsStatic(window))
        return 0;
    const std::uint32_t low =
        controlId.isValid() ? static_cast<std::uint32_t>(controlId.toInt()) : kStaticControl;
    return ResourceIdAround(window) << 16 | (low & 0xFFFF);
}

void SetWindowContextHelpId(QWidget* window, std::uint32_t helpId) {
    if (window)
        window->setProperty(kHelpId, helpId);
}

}  // namespace k4cmn
