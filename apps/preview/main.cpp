#include <QApplication>
#include <QCommandLineParser>
#include <filesystem>
#include <string>

#include "apps/preview/PreviewSuite.h"
#include "apps/preview/PreviewWindow.h"
#include "apps/preview/SingleInstance.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/settings/DataHome.h"
#include "suite/store/StorePath.h"

using k4cmn::FromQt;

namespace {

/// An argument as a path that means the same in another process.
std::string AbsolutePath(const std::string& argument) {
    if (argument.empty() || k4suite::IsAbsoluteStorePath(argument))
        return argument;
    std::error_code failed;
    const std::filesystem::path path = std::filesystem::absolute(argument, failed);
    return failed ? argument : path.lexically_normal().string();
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("K4Prevu"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Shows a sequence as a sign plays it: the one that was asked for last in the settings of\n"
        "the data home, and each one that is asked for while it runs.\n"
        "The data home is the folder in K4_HOME, else the folder \"k4400\" in your data folder.\n"
        "One preview runs on a data home: a second start brings the first one to the front."));
    parser.addHelpOption();
    parser.addOption(
        {QStringLiteral("home"), QStringLiteral("Use another data home."), QStringLiteral("DIR")});
    parser.addPositionalArgument(
        QStringLiteral("FILE"),
        QStringLiteral("Play this sequence: a path of the store (A:\\…) or of this machine."),
        QStringLiteral("[FILE]"));
    parser.process(application);
    if (parser.positionalArguments().size() > 1)
        parser.showHelp(2);

    k4suite::DataHome home = k4suite::DataHome::FromEnvironment();
    if (parser.isSet(QStringLiteral("home")))
        home = k4suite::DataHome(AbsolutePath(FromQt(parser.value(QStringLiteral("home")))));
    const std::string file = AbsolutePath(FromQt(parser.positionalArguments().value(0)));

    preview::SingleInstance instance(home);
    if (!instance.Start(file))
        return 0;

    preview::PreviewSuite suite(home);
    preview::PreviewWindow window(suite.Registry(), home);
    QObject::connect(&instance, &preview::SingleInstance::StartedAgain, &window,
                     [&window](const std::string& again) {
                         if (!again.empty())
                             window.Open(again, true);
                         window.BringToFront();
                     });
    if (file.empty())
        window.ShowRequest();
    else
        window.Open(file, true);
    window.show();
    return QApplication::exec();
}
