#include <langinfo.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "apps/k4ctl/CommandLine.h"
#include "apps/k4ctl/Console.h"
#include "apps/k4ctl/ScheduleCommand.h"
#include "apps/k4ctl/Session.h"
#include "apps/k4ctl/sequence/SequenceCommands.h"
#include "apps/k4ctl/store/StoreCommands.h"

namespace {

/// All text is UTF-8 here. In another locale the toolkit would complain on standard error.
void UseUtf8() {
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) {
        setenv("LC_ALL", "C.UTF-8", 1);
    }
}

/// What the toolkit needs of this process. Nothing is ever shown, so that it works where there is
/// no display.
std::unique_ptr<QCoreApplication> MakeApplication(const k4ctl::Command& command, int& argc,
                                                  char** argv) {
    QCoreApplication::setApplicationName(QStringLiteral("k4ctl"));
    if (!command.DrawsText()) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // What the toolkit misses of a desktop isn't missed here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return std::make_unique<QGuiApplication>(argc, argv);
}

int Run(int argc, char** argv) {
    std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const k4suite::DataHome home = k4suite::DataHome::FromEnvironment();
    const k4ctl::FilePlaces places = k4ctl::PlacesOf(home);
    std::vector<std::unique_ptr<k4ctl::Command>> onFiles = k4ctl::SequenceCommands(places);
    onFiles.push_back(std::make_unique<k4ctl::ScheduleCommand>(places));
    for (auto& command : k4ctl::StoreCommands(home, k4ctl::Terminal::OfProcess())) {
        onFiles.push_back(std::move(command));
    }
    const k4ctl::Invocation invocation =
        k4ctl::ParseCommandLine(std::move(arguments), std::cout, std::cerr, std::move(onFiles));
    if (!invocation.command) {
        return static_cast<int>(invocation.code);
    }
    const auto application = MakeApplication(*invocation.command, argc, argv);
    const k4ctl::Answer answer = invocation.command->UsesServices()
                                     ? k4ctl::RunOnHome(home, *invocation.command, std::cerr)
                                     : invocation.command->Run();
    return static_cast<int>(k4ctl::WriteAnswer(answer, invocation.json, std::cout, std::cerr));
}

}  // namespace

int main(int argc, char** argv) {
    // A reader that goes away must not end the program while it changes something.
    std::signal(SIGPIPE, SIG_IGN);
    UseUtf8();
    try {
        return Run(argc, argv);
    } catch (const std::exception& failure) {
        k4ctl::WriteError(failure.what(), std::cerr);
        return static_cast<int>(k4ctl::ExitCode::Refused);
    }
}
