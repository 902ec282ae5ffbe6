#pragma once

#include <functional>
#include <string>

class QAction;
class QWidget;

namespace k4suite {
class EmbeddedSuite;
}

namespace workbench {

class MainWindow;
class TourRecord;

/// The main job, driven from end to end through real windows: an operator finds a sign, dims it,
/// plays a sequence on it (SequenceTour), places a window on it, and sees the sign change; then a
/// machine that can't be reached.
/// Every step is checked through a client of its own.
class Tour {
 public:
    /// @param folder for what it makes on the way.
    Tour(k4suite::EmbeddedSuite& suite, MainWindow& window, TourRecord& record, std::string folder);

    /// @return 0 if every step passed, else 1.
    int Run();

 private:
    void SeeSigns();
    void SeeMotion();
    void Dim();
    void HoldPicture();
    void PlaceWindow();
    void SeeOtherMachine();
    void MeetUnreachableMachine();

    /// Opens a dialog by its menu entry and hands it to `drive`, which ends it.
    bool InDialog(const char* name, const std::function<void(QWidget& dialog)>& drive);

    k4suite::EmbeddedSuite& m_suite;
    MainWindow& m_window;
    TourRecord& m_record;
    const std::string m_folder;
};

}  // namespace workbench
