#pragma once

#include <functional>

class QWidget;

namespace workbench {

class MainWindow;
class TourRecord;

/// The small dialogs, each opened by its menu entry, filled in and ended: a quick message, a font,
/// a date.
class SmallDialogTour {
 public:
    SmallDialogTour(MainWindow& window, TourRecord& record);

    void Run();

 private:
    void TypeMessage();
    void ChooseFont();
    void ChooseDate();

    /// Opens a dialog by its menu entry and hands it to `drive`, which ends it.
    bool InDialog(const char* name, const std::function<void(QWidget& dialog)>& drive);

    MainWindow& m_window;
    TourRecord& m_record;
};

}  // namespace workbench
