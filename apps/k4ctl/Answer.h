#pragma once

#include <QJsonObject>
#include <string>
#include <vector>

#include "apps/k4ctl/Table.h"

namespace k4ctl {

/// How the program ends.
enum class ExitCode {
    Done = 0,         ///< all was done
    Refused = 1,      ///< the service refused or failed, or the answer couldn't be written
    NotFound = 1,     ///< a search found nothing
    Usage = 2,        ///< the command line can't be understood
    Unavailable = 3,  ///< a service couldn't be connected to, or what is searched couldn't be read
};

/// What a command has to say: the same for people, for machines, and what failed.
struct Answer {
    ExitCode code = ExitCode::Done;
    std::string text;                ///< for people: whole lines, fit for a terminal
    QJsonObject json;                ///< for machines
    bool changed = false;            ///< something of the sign was changed
    std::vector<std::string> words;  ///< what failed, a line each, not yet escaped

    /// Adds a line for people. Any text will do; it is escaped.
    void Say(const std::string& line);
    /// Adds a table for people.
    void Say(const Table& table);
    /// Makes this a failure with words for people, and in "error" for machines. Of several
    /// failures the first gives the words for machines, and the greatest code stays.
    void Fail(ExitCode with, const std::string& failure);
    /// Whether something failed.
    bool HasFailed() const;
};

}  // namespace k4ctl
