#pragma once

#include <QMainWindow>
#include <string>

#include "apps/preview/Player.h"
#include "apps/preview/RequestWatch.h"

class QLabel;
class QSlider;

namespace preview {

class ElidedLabel;
class PictureArea;
class PlayActions;

/// The window of the preview: the picture of a sequence, lamp by lamp, with all that belongs to
/// playing it. It follows the requests in the settings of a data home. What can't be shown is told
/// in the place of the picture.
///
/// The profile keeps, in the section "Preview", its place ("Geometry"), the size of the lamps
/// ("Zoom") and whether it repeats ("Repeat").
class PreviewWindow final : public QMainWindow {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PreviewWindow)

 public:
    /// Shows nothing yet.
    /// @param registry the settings of `home`; must outlive the window.
    PreviewWindow(k4suite::IniRegistry& registry, const k4suite::DataHome& home);
    ~PreviewWindow() override;

    /// Does what the request asks that the settings hold now.
    void ShowRequest();
    /// Shows a sequence without a request.
    /// @param path of the store.
    void Open(const std::string& path, bool play);
    /// Brings the window to the front, out of the task bar too.
    void BringToFront();

    Player& ThePlayer() { return m_player; }
    PictureArea& Area() { return *m_area; }

 protected:
    void closeEvent(QCloseEvent* event) override;

 private:
    QWidget* BuildPage();
    void BuildSlider();
    void Follow(const k4suite::PreviewRequest& request);
    void ShowSeen();
    void ShowState();
    void ReadProfile();

    k4suite::IniRegistry& m_registry;
    Player m_player;
    RequestWatch m_requests;
    PictureArea* m_area;
    PlayActions* m_actions;
    ElidedLabel* m_name;
    ElidedLabel* m_facts;
    QSlider* m_slider;
    ElidedLabel* m_place;
    QLabel* m_time;
    ElidedLabel* m_notice;
};

}  // namespace preview
