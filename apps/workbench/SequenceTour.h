#pragma once

#include <QImage>
#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace workbench {

class MainWindow;
class TourRecord;

/// The life of a sequence, driven from end to end: made out of ordinary pictures, played on a sign,
/// looked at in the preview pane and in its properties, given keywords and another thumbnail, and
/// read back by another program.
class SequenceTour {
 public:
    /// @param folder where the pictures that the sequence is made of are left.
    SequenceTour(MainWindow& window, TourRecord& record, std::string folder);

    /// Goes through all of it with the sign that is chosen in the window.
    void Run();

 private:
    void Make();
    void Play();
    void Preview();
    void ChangeProperties();

    /// Opens a window by its menu entry and hands it to `drive`, which ends it.
    bool InWindow(const char* name, const std::function<void(QWidget& window)>& drive);
    /// Reads the sequence back and checks what it says.
    void ReadBack(const std::string& keywords, const std::string& notes, int thumbnail);
    void DrawPictures();

    MainWindow& m_window;
    TourRecord& m_record;
    const std::string m_folder;
    std::string m_path;    ///< of the sequence in the store
    std::string m_native;  ///< of the sequence on this machine
    std::vector<QImage> m_pictures;
};

}  // namespace workbench
