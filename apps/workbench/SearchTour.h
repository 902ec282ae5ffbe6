#pragma once

#include <QStringList>
#include <string>

class QTreeView;
class QWidget;

namespace workbench {

class MainWindow;
class TourRecord;

/// The search for a file, driven from end to end: out of the file selection dialog a person looks
/// in the whole store by keywords, sign and date, sorts what is found, looks at the properties of
/// a file, prints the list, narrows it to one server, and takes the file over. Another program
/// finds the same files.
///
/// It looks for copies of a sequence with keywords that it puts into a library of its own.
class SearchTour {
 public:
    /// @param folder where the printed list is left.
    SearchTour(MainWindow& window, TourRecord& record, std::string folder);

    /// Goes through all of it with the type of the sign that is chosen in the window.
    void Run();

 private:
    void MakeFiles();
    void OpenSearch();
    void Search(QWidget& sheet);
    void ChoosePlace(QWidget& sheet, const QStringList& way, const char* picture);
    void SetSign(QWidget& sheet);
    void SetDates(QWidget& sheet);
    void PickDate(QWidget& sheet);
    void SeeResults(QWidget& sheet);
    void Sort(QWidget& sheet);
    void SeeProperties(QWidget& sheet);
    void PrintList(QWidget& sheet);
    void Narrow(QWidget& sheet);
    void CompareWithTool(const QStringList& found);
    void FindFromMenu();

    bool Step(bool passed, const std::string& what);
    /// The path of the tour's file on a server, without its ending.
    std::string PathOn(const char* server, const char* name) const;

    MainWindow& m_window;
    TourRecord& m_record;
    const std::string m_folder;
    std::string m_type;     ///< the sign type of the chosen sign
    QString m_firstDate;    ///< what the edit of the first date shows in the end
    std::string m_fromDay;  ///< the same as k4ctl takes it
};

}  // namespace workbench
