#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "apps/k4ctl/CommandLine.h"
#include "apps/k4ctl/Console.h"

namespace k4test {

/// What a command line did in this process, on whatever is installed behind the contracts.
struct CommandRun {
    k4ctl::ExitCode code = k4ctl::ExitCode::Done;
    std::string out;
    std::string err;

    /// @param further commands beside those on signs.
    explicit CommandRun(std::vector<std::string> arguments,
                        std::vector<std::unique_ptr<k4ctl::Command>> further = {}) {
        std::ostringstream outStream;
        std::ostringstream errStream;
        const k4ctl::Invocation invocation =
            k4ctl::ParseCommandLine(std::move(arguments), outStream, errStream, std::move(further));
        code = invocation.command ? k4ctl::WriteAnswer(invocation.command->Run(), invocation.json,
                                                       outStream, errStream)
                                  : invocation.code;
        out = outStream.str();
        err = errStream.str();
    }

    /// The one document on standard output; empty if it is none.
    QJsonObject Json() const {
        return QJsonDocument::fromJson(QByteArray::fromStdString(out)).object();
    }
};

}  // namespace k4test
