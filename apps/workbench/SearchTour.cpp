#include "apps/workbench/SearchTour.h"

#include <QAction>
#include <QApplication>
#include <QDate>
#include <QJsonArray>
#include <QJsonObject>
#include <QStatusBar>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

#include "apps/workbench/FileHands.h"
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/TourHands.h"
#include "apps/workbench/TourPrinting.h"
#include "apps/workbench/TourRecord.h"
#include "apps/workbench/TourTool.h"
#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/search/FoundRows.h"
#include "k4cmndlg/search/SearchPlace.h"
#include "k4cmndlg/smalldlg/contracts/K4CalendarCtrl.h"

namespace workbench {

namespace fs = std::filesystem;
using k4cmn::Format;
using k4cmn::FoundRows;
using k4cmn::FromQt;
using k4cmn::ToQt;

namespace {

constexpr char kHere[] = "A:";
constexpr char kThere[] = "\\\\STORE\\SIGNS";
constexpr char kLibrary[] = "Finals";
constexpr char kNew[] = "Cup Final";
constexpr char kOld[] = "Cup Final of Old";
constexpr char kWords[] = "final, football";
constexpr std::chrono::hours kLongAgo{24 * 400};

// Control ids of the dialogs.
constexpr int kPath = 1072;
constexpr int kSearch = 1076;
constexpr int kKeywords = 1101;
constexpr int kLookIn = 1106;
constexpr int kBrowse = 1107;
constexpr int kEnableSign = 1111;
constexpr int kRows = 1112;
constexpr int kColumns = 1114;
constexpr int kColor = 1116;
constexpr int kPixel = 1117;
constexpr int kModified = 1125;
constexpr int kBetween = 1126;
constexpr int kFirstDate = 1127;
constexpr int kPlaces = 1140;
constexpr int kCalendar = 1145;
constexpr int kFind = 1160;
constexpr int kPrevious = 1162;
constexpr int kResults = 1163;

enum Page : int { kNamePage, kSignPage, kSizePage };

/// The view of the results; null before the first search.
QTreeView* Results(QWidget& sheet) {
    const QWidget* list = Control(sheet, kResults);
    return list ? list->findChild<QTreeView*>() : nullptr;
}

QStringList Texts(QWidget& sheet, int column) {
    QStringList texts;
    if (const QTreeView* view = Results(sheet)) {
        for (int row = 0; row < view->model()->rowCount(); ++row)
            texts.append(view->model()->index(row, column).data().toString());
    }
    return texts;
}

bool ClickFound(QWidget& sheet, const std::string& path) {
    const auto row = Texts(sheet, FoundRows::kFolder).indexOf(ToQt(path));
    if (row < 0)
        return false;
    QTreeView& view = *Results(sheet);
    ClickAt(view, view.model()->index(static_cast<int>(row), 0));
    return true;
}

std::string Native(const std::string& path) {
    return k4cmn::Provided<k4cmn::FilesProvider>::Current().NativePath(path);
}

/// Cancels a dialog that should have ended, so that the tour goes on.
void Abandon(QWidget& dialog) {
    if (dialog.isVisible())
        Click(dialog, IDCANCEL);
}

QStringList Sorted(QStringList texts) {
    std::sort(texts.begin(), texts.end());
    return texts;
}

}  // namespace

SearchTour::SearchTour(MainWindow& window, TourRecord& record, std::string folder)
    : m_window(window), m_record(record), m_folder(std::move(folder)) {}

void SearchTour::Run() {
    const SignLook& look = m_window.LastLook();
    m_type = CK4Files().BuildSign(look.rows, look.columns, look.color, look.pixel, 0);
    MakeFiles();
    OpenSearch();
    FindFromMenu();
}

bool SearchTour::Step(bool passed, const std::string& what) {
    return m_record.Step(passed, what);
}

std::string SearchTour::PathOn(const char* server, const char* name) const {
    return k4cmn::SearchPathText({server, m_type, kLibrary}) + name + ".SQ4";
}

void SearchTour::MakeFiles() {
    const std::string original = k4cmn::SearchPathText({kHere, m_type, "Default"}) + "Kick Off.SQ4";
    std::error_code failed;
    for (const std::string& path :
         {PathOn(kHere, kNew), PathOn(kThere, kNew), PathOn(kHere, kOld)}) {
        std::error_code problem;
        fs::create_directories(fs::path(Native(path)).parent_path(), problem);
        fs::copy_file(Native(original), Native(path), problem);
        failed = problem ? problem : failed;
    }
    std::error_code problem;
    fs::last_write_time(Native(PathOn(kHere, kOld)), fs::file_time_type::clock::now() - kLongAgo,
                        problem);
    Step(!failed && !problem,
         "a sequence with keywords lies in the libraries \"Finals\" of two servers, and one of "
         "last year beside it");
}

void SearchTour::OpenSearch() {
    QAction* action = m_window.DialogAction("OpenFile");
    if (!Step(action && action->isEnabled(), "the menu offers OpenFile"))
        return;
    const bool driven = TriggerAndDrive(*action, [&](QWidget& dialog) {
        Step(ClickItem(dialog, {ToQt(kHere), ToQt(m_type), QStringLiteral("Default")}),
             "a library is opened in the file selection dialog");
        const QString path = FieldText(dialog, kPath);
        const bool searched =
            OpenAndDrive([&] { Click(dialog, kSearch); },
                         [&](QWidget& sheet) {
                             Step(sheet.windowTitle() == u"Find Files",
                                  "\"Advanced File Search\" opens \"Find Files\"");
                             Step(FieldText(sheet, kLookIn) == path,
                                  "it looks in the place that was open: " + FromQt(path));
                             Search(sheet);
                             Abandon(sheet);
                         });
        Step(searched, "\"Find Files\" opened and closed");
        Step(!dialog.isVisible(), "and with it the file selection");
        Abandon(dialog);
    });
    Step(driven, "OpenFile opened and closed");
    const std::string wanted = "Chosen: " + PathOn(kThere, kNew);
    const std::string told = FromQt(m_window.statusBar()->currentMessage());
    Step(told == wanted, "the workbench has the file that was found: " + told);
    m_record.Picture(m_window, "found-file-taken");
}

void SearchTour::Search(QWidget& sheet) {
    ChoosePlace(sheet, {ToQt(k4cmn::kFileServers)}, "search-place");
    Type(sheet, kKeywords, ToQt(kWords));
    m_record.Picture(sheet, "search-name");
    SetSign(sheet);
    SetDates(sheet);
    Click(sheet, kFind);
    SeeResults(sheet);
    Sort(sheet);
    SeeProperties(sheet);
    PrintList(sheet);
    Narrow(sheet);
    if (Step(ClickFound(sheet, PathOn(kThere, kNew)), "the file is selected")) {
        QTest::keyClick(Results(sheet), Qt::Key_Return);
        Step(Until([&] { return !sheet.isVisible(); }), "Enter on its row ends the search");
    }
}

void SearchTour::ChoosePlace(QWidget& sheet, const QStringList& way, const char* picture) {
    const bool driven =
        OpenAndDrive([&] { Click(sheet, kBrowse); },
                     [&](QWidget& dialog) {
                         auto* tree = qobject_cast<QTreeView*>(Control(dialog, kPlaces));
                         Step(tree && dialog.windowTitle() == u"Select Directory To Search" &&
                                  ClickItemOf(*tree, way),
                              "\"" + FromQt(way.last()) + "\" is selected as the place to search");
                         m_record.Picture(dialog, picture);
                         Click(dialog, IDOK);
                     });
    Step(driven && FieldText(sheet, kLookIn) == way.last() + u'\\',
         "\"Look in:\" shows " + FromQt(FieldText(sheet, kLookIn)));
}

void SearchTour::SetSign(QWidget& sheet) {
    const SignLook& look = m_window.LastLook();
    ClickTab(sheet, kSignPage);
    Click(sheet, kEnableSign);
    Type(sheet, kRows, QString::number(look.rows));
    Type(sheet, kColumns, QString::number(look.columns));
    Choose(sheet, kColor, look.color);
    Choose(sheet, kPixel, look.pixel - 1);
    const QWidget* rows = Control(sheet, kRows);
    Step(rows && rows->isVisible() && rows->isEnabled(),
         "the page \"Sign\" takes the type of the chosen sign");
    m_record.Picture(sheet, "search-sign");
}

void SearchTour::SetDates(QWidget& sheet) {
    ClickTab(sheet, kSizePage);
    Click(sheet, kModified);
    Click(sheet, kBetween);
    PickDate(sheet);
    m_record.Picture(sheet, "search-size");
}

void SearchTour::PickDate(QWidget& sheet) {
    QWidget* edit = Control(sheet, kFirstDate);
    if (!Step(edit && edit->isVisible() && edit->isEnabled(), "the first date can be changed"))
        return;
    const QString before = FieldText(sheet, kFirstDate);
    edit->setFocus();
    const bool driven = OpenAndDrive(
        [&] { QTest::keyClick(edit, Qt::Key_1); },
        [&](QWidget& dialog) {
            auto* calendar = qobject_cast<K4CalendarCtrl*>(Control(dialog, kCalendar));
            if (!Step(calendar && dialog.windowTitle() == u"Select Date",
                      "typing there opens \"Select Date\"")) {
                dialog.close();
                return;
            }
            QWidget* days = QApplication::focusWidget();
            QTest::keyClick(days ? days : calendar, Qt::Key_PageUp);
            const QDate day(calendar->GetYear(), calendar->GetMonth(), calendar->GetDay());
            m_fromDay = FromQt(day.toString(Qt::ISODate));
            m_firstDate = ToQt(Format("%2d/%2d/%4d", day.month(), day.day(), day.year()));
            m_record.Picture(dialog, "select-date");
            Click(dialog, IDOK);
        });
    Step(driven && FieldText(sheet, kFirstDate) == m_firstDate && m_firstDate != before,
         "Page Up and OK give the month before: " + FromQt(FieldText(sheet, kFirstDate)));
}

void SearchTour::SeeResults(QWidget& sheet) {
    const QStringList found = Texts(sheet, FoundRows::kFolder);
    const auto holds = [&](const std::string& path) { return found.contains(ToQt(path)); };
    Step(holds(PathOn(kHere, kNew)) && holds(PathOn(kThere, kNew)),
         Format("%d files are found, among them that of both servers",
                static_cast<int>(found.size())));
    Step(!holds(PathOn(kHere, kOld)), "and not the one of last year");
    m_record.Picture(sheet, "search-results");
    CompareWithTool(found);
}

void SearchTour::CompareWithTool(const QStringList& found) {
    const SignLook& look = m_window.LastLook();
    const QJsonObject answer = RunTool(
        m_record,
        {QStringLiteral("find"), QStringLiteral("--keywords"), ToQt(kWords),
         QStringLiteral("--between"), ToQt(m_fromDay), QDate::currentDate().toString(Qt::ISODate),
         QStringLiteral("--rows"), QString::number(look.rows), QStringLiteral("--columns"),
         QString::number(look.columns), QStringLiteral("--color"), QString::number(look.color),
         QStringLiteral("--pixel"), QString::number(look.pixel)},
        "k4ctl searches by the same criteria");
    QStringList paths;
    for (const auto file : answer.value(QLatin1String("files")).toArray())
        paths.append(file.toObject().value(QLatin1String("path")).toString());
    Step(!paths.isEmpty() && Sorted(paths) == Sorted(found), "and finds the same files");
}

void SearchTour::Sort(QWidget& sheet) {
    QTreeView* view = Results(sheet);
    if (!Step(view != nullptr, "the list of results is there"))
        return;
    ClickHeadingOf(*view, FoundRows::kFolder);
    const auto folded = [&] {
        QStringList folders = Texts(sheet, FoundRows::kFolder);
        for (QString& folder : folders)
            folder = folder.toLower();
        return folders;
    };
    const QStringList downward = folded();
    Step(std::is_sorted(downward.rbegin(), downward.rend()),
         "the first click on \"In Folder\" sorts downward");
    ClickHeadingOf(*view, FoundRows::kFolder);
    const QStringList upward = folded();
    Step(std::is_sorted(upward.begin(), upward.end()), "the second one upward");
}

void SearchTour::SeeProperties(QWidget& sheet) {
    if (!Step(ClickFound(sheet, PathOn(kHere, kNew)), "a file of the results is selected"))
        return;
    Step(ChooseFromMenu(*Results(sheet), QStringLiteral("Properties")),
         "the menu shows its properties");
    auto* properties = sheet.findChild<CK4CmnDlgFileProp*>();
    if (!Step(properties && Until([&] { return properties->isVisible(); }), "they are shown"))
        return;
    m_record.Picture(*properties, "search-properties");
    Step(ClickFound(sheet, PathOn(kThere, kNew)) &&
             Until([&] { return properties->GetCurFilePath() == PathOn(kThere, kNew); }),
         "they follow the selection");
    Click(*properties, IDCANCEL);
    Step(Until([&] { return !properties->isVisible(); }), "and are closed");
}

void SearchTour::PrintList(QWidget& sheet) {
    const std::string file = m_folder + "/search-results.pdf";
    const PrintsToFile printing(file);
    Step(ChooseFromMenu(*Results(sheet), QStringLiteral("Print File List")),
         "the menu prints the list");
    const QString text = TextOfPdf(file);
    bool holdsAll = text.contains(QStringLiteral("Results of file search"));
    qsizetype last = 0;
    for (const QString& path : Texts(sheet, FoundRows::kFolder)) {
        last = text.indexOf(path, last);
        holdsAll &= last >= 0;
    }
    Step(holdsAll, "the PDF holds every path, in the order of the list");
}

void SearchTour::Narrow(QWidget& sheet) {
    const QStringList before = Texts(sheet, FoundRows::kFolder);
    ClickTab(sheet, kNamePage);
    ChoosePlace(sheet, {ToQt(k4cmn::kFileServers), ToQt(kThere)}, "search-place-narrowed");
    Click(sheet, kPrevious);
    Click(sheet, kFind);
    QStringList expected;
    for (const QString& path : before) {
        if (path.startsWith(ToQt(kThere)))
            expected.append(path);
    }
    const QStringList narrowed = Texts(sheet, FoundRows::kFolder);
    Step(!narrowed.isEmpty() && narrowed.size() < before.size() &&
             Sorted(narrowed) == Sorted(expected),
         Format("\"Previous\" keeps %d of %d files: those of that server",
                static_cast<int>(narrowed.size()), static_cast<int>(before.size())));
    m_record.Picture(sheet, "search-narrowed");
}

void SearchTour::FindFromMenu() {
    QAction* action = m_window.DialogAction("FindFiles");
    if (!Step(action && action->isEnabled(), "the menu offers FindFiles"))
        return;
    const bool driven = TriggerAndDrive(*action, [&](QWidget& sheet) {
        Type(sheet, kKeywords, ToQt(kWords));
        Click(sheet, kFind);
        Step(ClickFound(sheet, PathOn(kHere, kOld)), "it looks in all servers");
        QTest::keyClick(Results(sheet), Qt::Key_Return);
        Until([&] { return !sheet.isVisible(); });
        Abandon(sheet);
    });
    Step(driven, "FindFiles opened and closed");
    Step(m_window.statusBar()->currentMessage() == ToQt("Chosen: " + PathOn(kHere, kOld)),
         "the status bar tells the file that was chosen");
}

}  // namespace workbench
