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
/// places a window on it, and sees the sign change; then a machine that can't be reached.
/// Every step is checked through a client of its own.
class Tour {
 public:
    Tour(k4suite::EmbeddedSuite& suite, MainWindow& window, TourRecord& record);

    /// @return 0 if every step passed, else 1.
    int Run();

 private:
    void SeeSigns();
    void SeeMotion();
    void Dim();
    void PlaceWindow();
    void SeeOtherMachine();
    void MeetUnreachableMachine();

    /// Opens a dialog by its menu entry and hands it to `drive`, which ends it.
    bool InDialog(const char* name, const std::function<void(QWidget& dialog)>& drive);
    /// Triggers an action that runs a modal window, and hands the first one that comes up to
    /// `drive`. Windows that stay open beyond a time are closed, so that a tour always ends.
    /// @return whether one came up and none had to be closed.
    static bool TriggerAndDrive(QAction& action, const std::function<void(QWidget& window)>& drive);
    /// Waits until something holds. @return whether it did within the time.
    static bool Until(const std::function<bool()>& holds, int milliseconds = 10000);

    k4suite::EmbeddedSuite& m_suite;
    MainWindow& m_window;
    TourRecord& m_record;
};

}  // namespace workbench
