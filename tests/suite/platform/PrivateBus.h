#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <string>

#include "tests/support/TempFolder.h"

namespace k4test {

/// A bus of the test's own, which nobody else is on and which ends with the object.
class PrivateBus {
 public:
    /// @param activatable a name that the bus offers to start, by a program that fails; or none.
    explicit PrivateBus(const std::string& activatable = {});
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const QDBusConnection& Connection() const { return m_connection; }
    /// Ends the bus, as if it had died.
    void Stop();

    /// Puts a mock of logind on the bus.
    /// @param parameters what it answers, as JSON: {"CanReboot": "no"}.
    /// @return whether it is there.
    bool StartLogind(const std::string& parameters = "{}");
    /// Ends it.
    void StopLogind();
    /// The calls that the mock got, "Reboot True" and the like, a line each.
    std::string LogindCalls() const;

 private:
    QString StartDaemon(const std::string& activatable);

    TempFolder m_folder;
    QProcess m_daemon;
    QProcess m_logind;
    QString m_address;
    QString m_name;
    QDBusConnection m_connection;
};

}  // namespace k4test
