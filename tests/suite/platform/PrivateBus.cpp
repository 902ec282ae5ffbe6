#include "tests/suite/platform/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDeadlineTimer>
#include <QProcessEnvironment>
#include <sstream>

namespace k4test {

namespace {

constexpr int kPatience = 20'000;

void End(QProcess& process) {
    if (process.state() == QProcess::NotRunning)
        return;
    process.kill();
    process.waitForFinished(kPatience);
}

QString NextName() {
    static int made = 0;
    return QStringLiteral("k4test-bus-%1").arg(++made);
}

}  // namespace

PrivateBus::PrivateBus(const std::string& activatable)
    : m_address(StartDaemon(activatable)),
      m_name(NextName()),
      m_connection(QDBusConnection::connectToBus(m_address, m_name)) {}

PrivateBus::~PrivateBus() {
    QDBusConnection::disconnectFromBus(m_name);
    StopLogind();
    Stop();
}

QString PrivateBus::StartDaemon(const std::string& activatable) {
    if (!activatable.empty())
        m_folder.Write("services/a.service",
                       "[D-BUS Service]\nName=" + activatable + "\nExec=/bin/false\n");
    const std::filesystem::path config = m_folder.Write(
        "bus.conf", "<busconfig><type>session</type><listen>unix:dir=" + m_folder.Path().string() +
                        "</listen><servicedir>" + (m_folder / "services").string() +
                        "</servicedir><policy context=\"default\"><allow send_destination=\"*\"/>"
                        "<allow own=\"*\"/><allow receive_sender=\"*\"/></policy></busconfig>");
    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                    QStringLiteral("--config-file=") + QString::fromStdString(config.string())});
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(kPatience)) {
    }
    return QString::fromUtf8(m_daemon.readLine()).trimmed();
}

void PrivateBus::Stop() {
    End(m_daemon);
}

bool PrivateBus::StartLogind(const std::string& parameters) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);
    environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), m_address);
    m_logind.setProcessEnvironment(environment);
    m_logind.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_logind.setStandardOutputFile(QProcess::nullDevice());
    m_logind.start(
        QStringLiteral("/usr/bin/python3"),
        {QStringLiteral("-m"), QStringLiteral("dbusmock"), QStringLiteral("--session"),
         QStringLiteral("--logfile"), QString::fromStdString((m_folder / "calls").string()),
         QStringLiteral("--template"), QStringLiteral("logind"), QStringLiteral("--parameters"),
         QString::fromStdString(parameters)});
    const QDeadlineTimer deadline(kPatience);
    while (m_connection.isConnected() && !deadline.hasExpired() &&
           m_logind.state() != QProcess::NotRunning) {
        if (m_connection.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.login1")))
            return true;
        m_logind.waitForFinished(10);  // notices a mock that ends instead
    }
    return false;
}

void PrivateBus::StopLogind() {
    End(m_logind);
}

std::string PrivateBus::LogindCalls() const {
    std::istringstream lines(m_folder.Read("calls"));
    std::string calls;
    for (std::string line; std::getline(lines, line);)
        calls += line.substr(line.find(' ') + 1) + "\n";  // without the time
    return calls;
}

}  // namespace k4test
