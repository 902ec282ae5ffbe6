#include "k4cmndlg/frame/HyperLinkAccess.h"

#include <QAccessibleWidget>

#include "k4cmndlg/frame/CK4CmnHyperLink.h"

namespace k4cmn {

namespace {

class HyperLinkAccess final : public QAccessibleWidget {
 public:
    explicit HyperLinkAccess(CK4CmnHyperLink* link)
        : QAccessibleWidget(link, QAccessible::Link), m_link(link) {}

    QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? m_link->text() : own;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.linked = true;
        state.traversed = m_link->GetVisited() != 0;
        return state;
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString& name) override {
        if (name == pressAction())
            m_link->Click();
    }

 private:
    CK4CmnHyperLink* m_link;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
    auto* link = qobject_cast<CK4CmnHyperLink*>(object);
    return link ? new HyperLinkAccess(link) : nullptr;
}

}  // namespace

void InstallHyperLinkAccess() {
    static const bool installed = [] {
        QAccessible::installFactory(MakeAccess);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace k4cmn
