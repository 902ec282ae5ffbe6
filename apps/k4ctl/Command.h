#pragma once

#include "apps/k4ctl/Answer.h"

namespace CLI {
class App;
}

namespace k4ctl {

/// What the help says about a command.
struct CommandText {
    const char* name;  ///< a word, or a group's name and a word: "sequence make"
    const char* summary;
    const char* examples;             ///< whole lines
    const char* exitCodes = nullptr;  ///< whole lines, where they aren't the usual ones
};

/// One command of the program: its arguments, which the command line fills, and what it does with
/// them. Used once, on the main thread.
///
/// A command on signs knows the library's exported clients and nothing that stands behind them, so
/// that it works on whatever is installed; the program chooses what that is. A command on files
/// works with the parts of the suite that it is made of, stands in a library of its own
/// (`sequence/`), and is added by the program.
class Command {
 public:
    Command();
    virtual ~Command();
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    virtual CommandText Text() const = 0;
    /// Declares the command's arguments. They are filled while the command line is parsed; one that
    /// can't be read ends the parsing with CLI::ValidationError.
    virtual void AddArguments(CLI::App& app) = 0;
    /// Whether it asks the services of a data home. One that doesn't is run without a suite, so
    /// that it neither makes a home nor holds its services, and needs none.
    virtual bool UsesServices() const { return true; }
    /// Whether it draws texts in fonts, for which the toolkit needs more of an application.
    virtual bool DrawsText() const { return false; }
    /// Does what was asked for, blocking until the service has answered.
    virtual Answer Run() const = 0;
};

}  // namespace k4ctl
