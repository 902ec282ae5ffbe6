#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>
#include <filesystem>
#include <string>

#include "apps/workbench/MainWindow.h"
#include "apps/workbench/Tour.h"
#include "apps/workbench/TourRecord.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/EmbeddedSuite.h"
#include "suite/sample/SampleData.h"
#include "suite/ui/SuiteWindows.h"

using k4cmn::FromQt;
using k4cmn::ToQt;

namespace {

// A tour begins from nothing, so that two of them give the same pictures.
k4suite::DataHome TourHome(const std::filesystem::path& folder) {
    const std::filesystem::path home = folder / "home";
    std::error_code ignored;  // what couldn't be removed shows up as a failed step
    std::filesystem::remove_all(home, ignored);
    return k4suite::DataHome(home);
}

void ShowProblems(QWidget* parent, const std::vector<std::string>& problems) {
    if (problems.empty())
        return;
    QStringList lines;
    for (const std::string& problem : problems)
        lines.append(ToQt(problem));
    QMessageBox::warning(parent, QApplication::applicationDisplayName(),
                         lines.join(QLatin1Char('\n')));
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("workbench"));
    QApplication::setApplicationDisplayName(QStringLiteral("K4400 Workbench"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Every dialog of the library over live signs, on the embedded suite.\n"
        "The data home is the folder in K4_HOME, else the folder \"k4400\" in your data folder;\n"
        "a new one is filled with sample machines and signs."));
    parser.addHelpOption();
    parser.addOption(
        {QStringLiteral("home"), QStringLiteral("Use another data home."), QStringLiteral("DIR")});
    parser.addOption({QStringLiteral("tour"),
                      QStringLiteral("Drive the main job through real windows, leave pictures and "
                                     "summary.txt in DIR, and exit; non-zero if a step failed."),
                      QStringLiteral("DIR")});
    parser.process(application);

    const bool tour = parser.isSet(QStringLiteral("tour"));
    const std::filesystem::path tourFolder = FromQt(parser.value(QStringLiteral("tour")));
    if (tour)
        QApplication::setStyle(QStringLiteral("Fusion"));

    k4suite::DataHome home = k4suite::DataHome::FromEnvironment();
    if (parser.isSet(QStringLiteral("home")))
        home = k4suite::DataHome(FromQt(parser.value(QStringLiteral("home"))));
    if (tour)
        home = TourHome(tourFolder);

    // The programs that are started from here belong to the same system.
    qputenv("K4_HOME", QByteArray::fromStdString(std::filesystem::absolute(home.Path()).string()));

    std::vector<std::string> problems;
    if (std::string problem; !k4suite::SeedSampleData(home, &problem))
        problems.push_back(problem);

    k4suite::SuiteWindows windows;
    k4suite::EmbeddedSuite suite(home, "workbench", &windows.FileOperations());
    for (const std::string& problem : suite.Problems())
        problems.push_back(problem);

    workbench::MainWindow window(suite);
    window.show();
    if (tour) {
        workbench::TourRecord record(tourFolder);
        for (const std::string& problem : problems)
            record.Step(false, problem);
        return workbench::Tour(suite, window, record, tourFolder.string()).Run();
    }
    ShowProblems(&window, problems);
    return QApplication::exec();
}
