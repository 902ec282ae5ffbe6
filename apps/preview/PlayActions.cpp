#include "apps/preview/PlayActions.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "apps/preview/PictureArea.h"
#include "apps/preview/Player.h"
#include "apps/preview/TransportIcon.h"
#include "apps/preview/ZoomSteps.h"

namespace preview {

namespace {

using Keys = QList<QKeySequence>;

/// Makes an action with its keys, the first of which its tip tells.
template <class Slot>
QAction* Make(QWidget& window, const char* name, const QString& text, const Keys& keys,
              Slot&& slot) {
    auto* action = new QAction(text, &window);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    QString tip = text;
    tip.remove(QLatin1Char('&'));
    action->setToolTip(
        QStringLiteral("%1 (%2)").arg(tip, keys.first().toString(QKeySequence::NativeText)));
    QObject::connect(action, &QAction::triggered, &window, std::forward<Slot>(slot));
    window.addAction(action);
    return action;
}

}  // namespace

PlayActions::PlayActions(Player& player, PictureArea& area, QWidget& window)
    : QObject(&window), m_player(player), m_area(area) {
    play = Make(window, "play", tr("&Play"), {Qt::Key_Space},
                [&player] { player.IsPlaying() ? player.Pause() : player.Play(); });
    first = Make(window, "first", tr("&First Frame"), {Qt::Key_Home}, [&] { player.ToFirst(); });
    back = Make(window, "back", tr("Step &Back"), {Qt::Key_Left}, [&] { player.Step(-1); });
    forward = Make(window, "forward", tr("&Step"), {Qt::Key_Right}, [&] { player.Step(1); });
    last = Make(window, "last", tr("&Last Frame"), {Qt::Key_End}, [&] { player.ToLast(); });
    slower = Make(window, "slower", tr("Sl&ower"), {Qt::Key_Minus},
                  [&] { player.SetSpeed(player.Speed() - 1); });
    faster = Make(window, "faster", tr("F&aster"), {Qt::Key_Plus, Qt::Key_Equal},
                  [&] { player.SetSpeed(player.Speed() + 1); });
    ownSpeed = Make(window, "ownSpeed", tr("&Normal Speed"), {Qt::Key_1},
                    [&] { player.SetSpeed(kOwnSpeed); });
    loop = Make(window, "loop", tr("&Repeat"), {Qt::Key_R},
                [&](bool checked) { player.SetLooping(checked); });
    loop->setCheckable(true);
    fit = Make(window, "fit", tr("&Fit the Window"), {Qt::CTRL | Qt::Key_0},
               [&] { area.SetZoom(kFit); });
    zoomIn = Make(window, "zoomIn", tr("Zoom &In"),
                  {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [&] { area.ZoomIn(); });
    zoomOut = Make(window, "zoomOut", tr("Zoom &Out"), {Qt::CTRL | Qt::Key_Minus},
                   [&] { area.ZoomOut(); });
    close = Make(window, "close", tr("&Close"), {Qt::CTRL | Qt::Key_W, Qt::CTRL | Qt::Key_Q},
                 [&window] { window.close(); });
    first->setIcon(TransportIcon(Transport::First));
    back->setIcon(TransportIcon(Transport::Back));
    forward->setIcon(TransportIcon(Transport::Forward));
    last->setIcon(TransportIcon(Transport::Last));
    loop->setIcon(TransportIcon(Transport::Loop));

    connect(&player, &Player::SeenChanged, this, &PlayActions::Update);
    connect(&player, &Player::StateChanged, this, &PlayActions::Update);
    connect(&area, &PictureArea::ZoomChanged, this, &PlayActions::Update);
    Update();
}

void PlayActions::AddTo(QMenuBar& bar) const {
    QMenu* sequence = bar.addMenu(tr("&Sequence"));
    sequence->addActions({play, first, back, forward, last});
    sequence->addSeparator();
    sequence->addActions({slower, faster, ownSpeed, loop});
    sequence->addSeparator();
    sequence->addAction(close);
    QMenu* view = bar.addMenu(tr("&View"));
    view->addActions({fit, zoomIn, zoomOut});
}

void PlayActions::ShowPlaying(bool isPlaying) {
    if (!play->icon().isNull() && isPlaying == m_showsPlaying)
        return;
    m_showsPlaying = isPlaying;
    play->setText(isPlaying ? tr("&Pause") : tr("&Play"));
    play->setToolTip(isPlaying ? tr("Pause (Space)") : tr("Play (Space)"));
    play->setIcon(TransportIcon(isPlaying ? Transport::Pause : Transport::Play));
}

void PlayActions::Update() {
    const bool isPlaying = m_player.IsPlaying();
    const std::size_t count = m_player.Line().Count();
    const std::size_t index = m_player.Index();
    play->setEnabled(m_player.CanPlay());
    ShowPlaying(isPlaying);
    first->setEnabled(count > 0 && index > 0);
    back->setEnabled(count > 0 && index > 0);
    forward->setEnabled(index + 1 < count);
    last->setEnabled(index + 1 < count);
    slower->setEnabled(m_player.Speed() > 0);
    faster->setEnabled(m_player.Speed() + 1 < kSpeeds.size());
    ownSpeed->setEnabled(m_player.Speed() != kOwnSpeed);
    loop->setChecked(m_player.IsLooping());
    fit->setEnabled(m_area.Zoom() != kFit);
    zoomIn->setEnabled(m_area.Zoom() != kZooms.back());
    zoomOut->setEnabled(m_area.Zoom() != kZooms.front());
}

}  // namespace preview
