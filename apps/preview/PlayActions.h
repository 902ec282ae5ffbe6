#pragma once

#include <QObject>

class QAction;
class QMenuBar;
class QWidget;

namespace preview {

class PictureArea;
class Player;

/// What a person can do with the preview: each thing once, with its key, for the menus and for the
/// buttons. Every action knows whether it makes sense now.
class PlayActions final : public QObject {
    Q_OBJECT

 public:
    /// @param player, area what the actions work on; must outlive the object.
    /// @param window the window that has the keys.
    PlayActions(Player& player, PictureArea& area, QWidget& window);

    void AddTo(QMenuBar& bar) const;

    QAction* play;
    QAction* first;
    QAction* back;
    QAction* forward;
    QAction* last;
    QAction* slower;
    QAction* faster;
    QAction* ownSpeed;
    QAction* loop;
    QAction* fit;
    QAction* zoomIn;
    QAction* zoomOut;
    QAction* close;

 private:
    void Update();
    void ShowPlaying(bool isPlaying);

    Player& m_player;
    PictureArea& m_area;
    bool m_showsPlaying = false;
};

}  // namespace preview
