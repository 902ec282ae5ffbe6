#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <string>

class QWidget;

namespace k4suite {
class EmbeddedSuite;
}

namespace workbench {

class MainWindow;
class TourRecord;

/// The management of the file store, driven from end to end: a person makes a sign folder, makes a
/// library and copies it to another server, renames a file, filters by date, sorts, prints the
/// list, and picks files to play; then a server that is reached by telephone. What the dialogs do
/// is checked on the disk and by another program.
class StoreTour {
 public:
    /// @param folder where the printed list is left.
    StoreTour(k4suite::EmbeddedSuite& suite, MainWindow& window, TourRecord& record,
              std::string folder);

    /// Goes through all of it with the type of the sign that is chosen in the window.
    void Run();

 private:
    void MakeSignFolders();
    void Manage();
    void MakeLibrary(QWidget& dialog);
    void CopyLibrary(QWidget& dialog);
    void RenameFile(QWidget& dialog);
    void FilterAndSort(QWidget& dialog);
    void PrintList(QWidget& dialog);
    void PickFile();
    void PickInQuickTree();
    void SeeFileList();
    void SeeServerBehindTelephone();

    /// Opens a dialog by its menu entry and hands it to `drive`, which ends it.
    bool InDialog(const char* name, const std::function<void(QWidget& dialog)>& drive);
    bool Step(bool passed, const std::string& what);
    QStringList Way(const char* server, const char* library = nullptr) const;
    std::string Native(const std::string& path) const;
    /// Plays a file on the chosen sign. @return whether the window shows it.
    bool Plays(const std::string& path);

    k4suite::EmbeddedSuite& m_suite;
    MainWindow& m_window;
    TourRecord& m_record;
    const std::string m_folder;
    std::string m_type;  ///< the sign type of the chosen sign
};

}  // namespace workbench
