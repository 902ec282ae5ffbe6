#pragma once

#include <QWidget>

class QComboBox;
class QLabel;

namespace preview {

class PictureArea;
class PlayActions;
class Player;

/// The row of buttons below the picture: playing and stepping, the speed, the zoom.
class ControlBar final : public QWidget {
    Q_OBJECT

 public:
    /// @param actions, player, area what the buttons work on; must outlive the object.
    ControlBar(const PlayActions& actions, Player& player, PictureArea& area);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QWidget* Button(QAction* action);
    void AddZoom(PictureArea& area);
    void ShowSpeed();
    void ShowZoom(int zoom);

    Player& m_player;
    QLabel* m_speed;
    QComboBox* m_zoom;
};

}  // namespace preview
