#include "apps/workbench/StoreTour.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <filesystem>

#include "apps/workbench/FileHands.h"
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/QuickTreeHost.h"
#include "apps/workbench/TourHands.h"
#include "apps/workbench/TourPrinting.h"
#include "apps/workbench/TourRecord.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileListCtrl.h"
#include "k4cmndlg/filesel/CK4CmnDlgK4FileTree.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/EmbeddedSuite.h"
#include "suite/remoteservice/RemoteEngine.h"

namespace workbench {

namespace fs = std::filesystem;
using k4cmn::Format;
using k4cmn::FromQt;
using k4cmn::ToQt;

namespace {

constexpr char kHere[] = "A:";
constexpr char kThere[] = "\\\\STORE\\SIGNS";
constexpr char kRemote[] = "\\\\OBSERVATORY\\SIGNS";
constexpr char kLibrary[] = "Match Day";
constexpr char kNewName[] = "Second Half";

// Control ids of the dialogs.
constexpr int kTree = 1070;
constexpr int kPath = 1072;
constexpr int kFileName = 1073;
constexpr int kModified = 1075;
constexpr int kSignRows = 1015;
constexpr int kSignColumns = 1017;
constexpr int kServers = 1022;
constexpr int kLibraryName = 1087;

constexpr int kToday = 0;
constexpr int kAnyTime = 4;
constexpr int kSizeColumn = 1;
constexpr std::chrono::hours kLongAgo{24 * 400};

}  // namespace

StoreTour::StoreTour(k4suite::EmbeddedSuite& suite, MainWindow& window, TourRecord& record,
                     std::string folder)
    : m_suite(suite), m_window(window), m_record(record), m_folder(std::move(folder)) {}

void StoreTour::Run() {
    const SignLook& look = m_window.LastLook();
    m_type = CK4Files().BuildSign(look.rows, look.columns, look.color, look.pixel, 0);
    MakeSignFolders();
    Manage();
    PickFile();
    PickInQuickTree();
    SeeFileList();
    SeeServerBehindTelephone();
}

bool StoreTour::InDialog(const char* name, const std::function<void(QWidget&)>& drive) {
    QAction* action = m_window.DialogAction(name);
    if (!Step(action && action->isEnabled(), Format("the menu offers %s", name)))
        return false;
    return Step(TriggerAndDrive(*action, drive), Format("%s opened and closed", name));
}

bool StoreTour::Step(bool passed, const std::string& what) {
    return m_record.Step(passed, what);
}

QStringList StoreTour::Way(const char* server, const char* library) const {
    QStringList way{ToQt(server), ToQt(m_type)};
    if (library)
        way << ToQt(library);
    return way;
}

std::string StoreTour::Native(const std::string& path) const {
    return k4cmn::Provided<k4cmn::FilesProvider>::Current().NativePath(path);
}

void StoreTour::MakeSignFolders() {
    constexpr std::uint32_t kRows = 40;
    constexpr std::uint32_t kColumns = 112;
    InDialog("CreateSignFolders", [&](QWidget& dialog) {
        Type(dialog, kSignRows, QString::number(kRows));
        Type(dialog, kSignColumns, QString::number(kColumns));
        auto* servers = qobject_cast<QListWidget*>(Control(dialog, kServers));
        if (Step(servers && servers->count() == 2, "it lists the servers of this system")) {
            servers->setFocus();
            servers->setCurrentRow(0);
            QTest::keyClick(servers, Qt::Key_Space);
        }
        m_record.Picture(dialog, "create-sign-folders");
        Click(dialog, IDOK);
    });
    bool made = true;
    for (const int palette : {0, 1}) {
        const std::string type = CK4Files().BuildSign(kRows, kColumns, K4_SIGN_COLOR_MONO1,
                                                      K4_PIXEL_TECH_INCAND, palette);
        made &= fs::is_directory(Native(Format("%s\\%s.Sign\\Default.Lib", kHere, type.c_str())));
    }
    Step(made, "the sign folder, its palette twin and their libraries are there");
}

void StoreTour::Manage() {
    InDialog("FileManager", [&](QWidget& dialog) {
        if (!Step(dialog.windowTitle() == u"K4File" && Control(dialog, kTree),
                  "it is the file manager")) {
            dialog.close();
            return;
        }
        MakeLibrary(dialog);
        CopyLibrary(dialog);
        RenameFile(dialog);
        FilterAndSort(dialog);
        PrintList(dialog);
        Click(dialog, IDCANCEL);
    });
}

void StoreTour::MakeLibrary(QWidget& dialog) {
    QWidget* tree = Control(dialog, kTree);
    Step(ClickItem(dialog, Way(kHere)), "the sign type is selected in the tree");
    // The question comes up over the small dialog that asks for the name, once that is typed.
    BoxAnswers answers;
    answers.Expect(QStringLiteral("Create Library: \n"), QStringLiteral("OK"));
    QTimer typing;
    QObject::connect(&typing, &QTimer::timeout, &typing, [&] {
        QWidget* asks = QApplication::activeModalWidget();
        if (!asks || asks == &dialog || !Control(*asks, kLibraryName))
            return;
        typing.stop();
        Type(*asks, kLibraryName, ToQt(kLibrary));
        m_record.Picture(*asks, "create-library");
        Click(*asks, IDOK);
    });
    typing.start(20);
    Step(ChooseFromMenu(*tree, QStringLiteral("Create Library...")), "the menu makes a library");
    Step(answers.AllAsExpected(), "it asks once");

    Step(ClickItem(dialog, Way(kHere, "Default")), "the library \"Default\" is selected");
    const auto count = ListTexts(dialog).size();
    Step(count >= 2, Format("its %d files are listed", static_cast<int>(count)));
    m_record.Picture(dialog, "file-manager");
    QAbstractItemView& list = FileList(dialog);
    Press(list, QKeySequence::SelectAll);
    Press(list, QKeySequence::Copy);
    ClickItem(dialog, Way(kHere, kLibrary));
    Press(*tree, QKeySequence::Paste);
    Step(ListTexts(dialog).size() == count, "they are copied into the new library");
}

void StoreTour::CopyLibrary(QWidget& dialog) {
    QWidget* tree = Control(dialog, kTree);
    const QStringList names = ListTexts(dialog);
    ClickBesideRows(dialog);
    Press(*tree, QKeySequence::Copy);
    Step(ClickItem(dialog, Way(kThere)), "the same sign type on another server is selected");
    BoxAnswers answers;
    answers.Expect(QStringLiteral("Create Library: \n"), QStringLiteral("OK"));
    Press(*tree, QKeySequence::Paste);
    Step(answers.AllAsExpected(), "the library is pasted there after one question");
    Step(ClickItem(dialog, Way(kThere, kLibrary)) && ListTexts(dialog) == names,
         "it lists the same files");
    m_record.Picture(dialog, "library-copied");
}

void StoreTour::RenameFile(QWidget& dialog) {
    const QString old = ListTexts(dialog).value(0);
    const QString name = ToQt(kNewName);
    ClickRow(dialog, old);
    Press(FileList(dialog), QKeySequence(Qt::Key_F2));
    if (auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget())) {
        editor->selectAll();
        QTest::keyClicks(editor, name);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    const std::string folder = Format("%s\\%s.Sign\\%s.Lib\\", kThere, m_type.c_str(), kLibrary);
    Step(ListTexts(dialog).contains(name) && !ListTexts(dialog).contains(old) &&
             fs::exists(Native(folder + FromQt(name) + ".SQ4")),
         "\"" + FromQt(old) + "\" is renamed to \"" + FromQt(name) + "\"");
}

void StoreTour::FilterAndSort(QWidget& dialog) {
    const QStringList all = ListTexts(dialog);
    const std::string aged = Format("%s\\%s.Sign\\%s.Lib\\%s.SQ4", kThere, m_type.c_str(), kLibrary,
                                    FromQt(all.value(0)).c_str());
    std::error_code failed;
    fs::last_write_time(Native(aged), fs::file_time_type::clock::now() - kLongAgo, failed);
    Choose(dialog, kModified, kToday);
    Step(!failed && ListTexts(dialog) == all.mid(1),
         "\"today\" leaves out the one file of last year");
    Choose(dialog, kModified, kAnyTime);
    Step(ListTexts(dialog) == all, "\"any time\" brings it back");
    ClickHeading(dialog, kSizeColumn);
    ClickHeading(dialog, kSizeColumn);
    const QStringList sizes = ListTexts(dialog, kSizeColumn);
    Step(std::is_sorted(sizes.begin(), sizes.end()), "the second click on \"Size\" sorts upward");
    m_record.Picture(dialog, "sorted-by-size");
}

void StoreTour::PrintList(QWidget& dialog) {
    const std::string file = m_folder + "/file-list.pdf";
    const PrintsToFile printing(file);
    Step(ChooseFromMenu(FileList(dialog), QStringLiteral("Print File List")),
         "the menu prints the list");
    const QString text = TextOfPdf(file);
    const QStringList names = ListTexts(dialog);
    bool holdsAll = !names.isEmpty();
    qsizetype last = 0;
    for (const QString& name : names) {
        last = text.indexOf(name, last);
        holdsAll &= last >= 0;
    }
    Step(holdsAll, "the PDF holds every file, in the order of the list");
    Step(text.contains(QStringLiteral("%1 file(s)").arg(names.size())) &&
             text.contains(QStringLiteral("Directory listing for ")),
         Format("its totals count %d files", static_cast<int>(names.size())));
}

void StoreTour::PickFile() {
    std::string path;
    InDialog("OpenFile", [&](QWidget& dialog) {
        Step(ClickItem(dialog, Way(kThere, kLibrary)), "the copied library is opened");
        Step(ClickRow(dialog, ToQt(kNewName)) && FieldText(dialog, kFileName) == ToQt(kNewName),
             "the renamed file is chosen");
        path = FromQt(FieldText(dialog, kPath)) + kNewName + ".SQ4";
        m_record.Picture(dialog, "open-file");
        Click(dialog, IDOK);
    });
    Step(Plays(path), "and the sign plays it");
    m_record.Picture(m_window, "picked-file-on-sign");
}

void StoreTour::PickInQuickTree() {
    const std::string path = Format("%s\\%s.Sign\\Default.Lib\\Welcome.SQ4", kHere, m_type.c_str());
    QAction* action = m_window.DialogAction("QuickFileTree");
    if (!Step(action && action->isEnabled(), "the menu offers QuickFileTree"))
        return;
    action->trigger();
    const auto* host = m_window.findChild<QuickTreeHost*>();
    if (!Step(host && host->Tree(), "QuickFileTree opened"))
        return;
    std::string selected;
    host->Tree()->SetSelectedFile(path);
    host->Tree()->GetSelectedFile(selected);
    Step(selected == path, "it opens the way to a file");
    m_record.Picture(*host->Tree(), "quick-file-tree");
    std::string chosen;
    const auto told = QObject::connect(host, &QuickTreeHost::Chosen, host,
                                       [&](const std::string& what) { chosen = what; });
    QTest::keyClick(host->Tree()->focusWidget(), Qt::Key_Return);
    Step(Until([&] { return !chosen.empty(); }) && chosen == path && !host->Tree(),
         "Enter picks it and closes the tree");
    QObject::disconnect(told);
    Step(Plays(path), "and the sign plays it");
}

void StoreTour::SeeFileList() {
    InDialog("FileList", [&](QWidget& dialog) {
        const auto* list = dialog.findChild<CK4CmnDlgFileListCtrl*>();
        Step(list && list->GetItemCount() >= 4, "it lists the library of the sign's sequence");
        m_record.Picture(dialog, "file-list");
        dialog.close();
    });
}

void StoreTour::SeeServerBehindTelephone() {
    auto* phone = m_window.findChild<QMenu*>(QStringLiteral("phone"));
    if (!Step(phone && !phone->isEmpty(), "the menu offers the phone book"))
        return;
    k4suite::RemoteEngine& engine = *m_suite.Remote();
    engine.SetDialingTime(std::chrono::milliseconds(200));
    phone->actions().first()->trigger();
    Step(Until([&] { return engine.Links().size() == 1; }),
         "\"" + engine.PhoneBook().front().name + "\" is dialled and connected");
    InDialog("OpenFile", [&](QWidget& dialog) {
        Step(ClickItem(dialog, {ToQt(kRemote)}), "its server is in the tree");
        Press(*Control(dialog, kTree), QKeySequence(Qt::Key_Right));
        m_record.Picture(dialog, "server-behind-telephone");
        Click(dialog, IDCANCEL);
    });
    phone->actions().first()->trigger();
    Step(Until([&] { return engine.Links().empty(); }), "the line is hung up");
}

bool StoreTour::Plays(const std::string& path) {
    return CK4CmnSS().PlaySequence(m_window.Service(), m_window.Sign(), path,
                                   K4_PLAY_SEQ_CONTINUOUS, 0) &&
           Until([&] { return m_window.LastLook().sequence == path; });
}

}  // namespace workbench
