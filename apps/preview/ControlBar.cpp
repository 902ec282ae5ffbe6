#include "apps/preview/ControlBar.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>

#include "apps/preview/PictureArea.h"
#include "apps/preview/PlayActions.h"
#include "apps/preview/Player.h"
#include "apps/preview/PlayerWords.h"
#include "apps/preview/ZoomSteps.h"
#include "k4cmndlg/frame/Text.h"

namespace preview {

using k4cmn::ToQt;

ControlBar::ControlBar(const PlayActions& actions, Player& player, PictureArea& area)
    : m_player(player), m_speed(new QLabel), m_zoom(new QComboBox) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (QAction* action :
         {actions.first, actions.back, actions.play, actions.forward, actions.last, actions.loop})
        row->addWidget(Button(action));
    row->addStretch(1);
    actions.slower->setIconText(QStringLiteral("\u2212"));
    actions.faster->setIconText(QStringLiteral("+"));
    m_speed->setObjectName(QStringLiteral("speed"));
    m_speed->setAccessibleName(tr("Speed"));
    m_speed->setToolTip(tr("Speed (- and +)"));
    m_speed->setAlignment(Qt::AlignCenter);
    m_speed->setMinimumWidth(m_speed->fontMetrics().horizontalAdvance(QStringLiteral("0.25x")));
    row->addWidget(new QLabel(tr("Speed")));
    row->addWidget(Button(actions.slower));
    row->addWidget(m_speed);
    row->addWidget(Button(actions.faster));
    row->addStretch(1);
    AddZoom(area);
    auto* zoomLabel = new QLabel(tr("&Zoom"));
    zoomLabel->setBuddy(m_zoom);
    row->addWidget(zoomLabel);
    row->addSpacing(4);
    row->addWidget(m_zoom);
    connect(&player, &Player::StateChanged, this, &ControlBar::ShowSpeed);
    ShowSpeed();
}

QWidget* ControlBar::Button(QAction* action) {
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    const int edge = button->fontMetrics().height() * 6 / 5;
    button->setIconSize({edge, edge});
    QString name = action->text();
    name.remove(QLatin1Char('&'));
    button->setAccessibleName(name);
    connect(action, &QAction::changed, button, [button, action] {
        QString present = action->text();
        present.remove(QLatin1Char('&'));
        button->setAccessibleName(present);
    });
    button->installEventFilter(this);
    return button;
}

void ControlBar::AddZoom(PictureArea& area) {
    m_zoom->setObjectName(QStringLiteral("zoom"));
    m_zoom->setAccessibleName(tr("Zoom"));
    m_zoom->setToolTip(tr("Size of a lamp in the picture (Ctrl and the wheel; Ctrl+0 fits)"));
    m_zoom->addItem(tr("Fit"), kFit);
    for (const int zoom : kZooms)
        m_zoom->addItem(QStringLiteral("%1x").arg(zoom), zoom);
    m_zoom->installEventFilter(this);
    connect(m_zoom, &QComboBox::activated, &area,
            [this, &area](int index) { area.SetZoom(m_zoom->itemData(index).toInt()); });
    connect(&area, &PictureArea::ZoomChanged, this, &ControlBar::ShowZoom);
    ShowZoom(area.Zoom());
}

bool ControlBar::eventFilter(QObject* watched, QEvent* event) {
    // Space belongs to the button that has the focus; elsewhere it plays.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        event->accept();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void ControlBar::ShowSpeed() {
    m_speed->setText(ToQt(SpeedText(m_player.Speed())));
}

void ControlBar::ShowZoom(int zoom) {
    m_zoom->setCurrentIndex(m_zoom->findData(zoom));
}

}  // namespace preview
