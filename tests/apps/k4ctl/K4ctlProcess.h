#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <filesystem>
#include <functional>
#include <string>

#include "tests/support/TempFolder.h"

namespace k4test {

/// What a run of the program left behind.
struct K4ctlRun {
    int code = -1;   ///< -1: it crashed, or didn't end
    int signal = 0;  ///< what ended it, where it didn't end by itself
    std::string out;
    std::string err;

    QJsonObject Json() const {
        return QJsonDocument::fromJson(QByteArray::fromStdString(out)).object();
    }
};

/// The real program, run on a data home of the test's own.
class K4ctlProcess {
 public:
    std::filesystem::path Home() const { return m_folder / "home"; }

    /// Puts a file on the home's drive A:, beside what else lies there.
    /// @return its path in the store.
    QString AddFile(const std::string& name, const std::string& content = "any") const;

    /// Puts a sequence of ten frames of a second each on the home's drive A:.
    /// @return its path in the store.
    QString AddSequence(const std::string& name) const;

    /// Runs it to its end.
    K4ctlRun Run(const QStringList& arguments) const;
    /// Runs it, and sends it a signal as soon as something holds for its process.
    K4ctlRun RunUntil(const std::function<bool(qint64 pid)>& holds, int signal,
                      const QStringList& arguments) const;
    /// Runs it with its standard output in a file.
    K4ctlRun RunInto(const QString& file, const QStringList& arguments) const;
    /// Sets a variable of its environment; the data home is set already.
    void Set(const QString& name, const QString& value) { m_environment.insert(name, value); }

 private:
    void Prepare(QProcess& process, const QStringList& arguments) const;
    static K4ctlRun Finish(QProcess& process);

    TempFolder m_folder;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

}  // namespace k4test
