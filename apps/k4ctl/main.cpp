#include <langinfo.h>

#include <QCoreApplication>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "apps/k4ctl/CommandLine.h"
#include "apps/k4ctl/Console.h"
#include "apps/k4ctl/ScheduleCommand.h"
#include "apps/k4ctl/Session.h"
#include "apps/k4ctl/sequence/SequenceCommands.h"

namespace {

/// All text is UTF-8 here. In another locale the toolkit would complain on standard error.
void UseUtf8() {
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) {
        setenv("LC_ALL", "C.UTF-8", 1);
    }
}

int Run(std::vector<std::string> arguments) {
    const k4suite::DataHome home = k4suite::DataHome::FromEnvironment();
    const k4ctl::FilePlaces places = k4ctl::PlacesOf(home);
    std::vector<std::unique_ptr<k4ctl::Command>> onFiles = k4ctl::SequenceCommands(places);
    onFiles.push_back(std::make_unique<k4ctl::ScheduleCommand>(places));
    const k4ctl::Invocation invocation =
        k4ctl::ParseCommandLine(std::move(arguments), std::cout, std::cerr, std::move(onFiles));
    if (!invocation.command) {
        return static_cast<int>(invocation.code);
    }
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
    std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("k4ctl"));
    try {
        return Run(std::move(arguments));
    } catch (const std::exception& failure) {
        k4ctl::WriteError(failure.what(), std::cerr);
        return static_cast<int>(k4ctl::ExitCode::Refused);
    }
}
